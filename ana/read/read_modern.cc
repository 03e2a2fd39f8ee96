// Declarations come from the tolerant readers. Each comment is parsed by itself, so that a fault
// in it costs nothing else, and what it documents is known before it is parsed.
#include "ana/read/read_modern.h"

#include <algorithm>
#include <map>
#include <optional>

#include "ana/comments/commands.h"
#include "ana/comments/foreign_text.h"
#include "ana/comments/translate.h"
#include "ana/comments/words.h"
#include "ana/read/attach.h"
#include "ana/read/attach_places.h"
#include "ana/read/code_elements.h"
#include "ana/read/element_groups.h"
#include "ana/read/field_texts.h"
#include "ana/read/rich_pieces.h"
#include "ana/read/unit_kinds.h"
#include "vlb/gexception.h"
#include "vlb/messages.h"

namespace {

constexpr std::string_view opening = "@_vlbcom ";
constexpr std::string_view closing = " @_vlecom ";
constexpr std::string_view special = "@_vlukwd ";
constexpr std::size_t longest_title = 300;
constexpr std::size_t most_scopes = 256;
constexpr std::size_t most_unknown = 100; // commands of a file
// Of examples, that the comments of a source may have looked at: each part that is shown of one
// counts for the whole of it.
constexpr std::size_t most_example_bytes = 32u << 20;

// The first one keeps its indentation; of those that follow it would make a part of an item.
void add_paragraph(std::string & text, std::string_view words) {
  if (trimmed(words).empty())
    return;
  if (!text.empty())
    text += "\n\n";
  text += text.empty() ? words : words.substr(words.find_first_not_of(' '));
}

// Without the blanks that all of its lines have in front, so that more lines can be put behind.
std::string without_indent(std::string_view text) {
  std::size_t least = text.size();
  for (std::size_t at = 0; at < text.size();) {
    std::size_t const end = std::min(text.find('\n', at), text.size());
    std::size_t const blanks = text.substr(at, end - at).find_first_not_of(" \t");
    if (at > 0 && blanks != text.npos)
      least = std::min(least, blanks);
    at = end + 1;
  }
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t const end = std::min(text.find('\n', at), text.size());
    std::string_view const line = text.substr(at, end - at);
    std::size_t const blanks = std::min(line.find_first_not_of(" \t"), line.size());
    result += line.substr(std::min(blanks, least));
    result += '\n';
    at = end + 1;
  }
  return result;
}

} // namespace

// One file while it is read.
class gModernReader::File : private gCommentFiles {
public:
  File(gModernReader & reader, gSrcFile const & file, std::string_view text)
      : reader_(reader),
        text_(text),
        pascal_(file.language() == gLanguage::pascal),
        options_(reader.input_.comments) {
    result_.facts.file = file;
    options_.files = this;
  }

  gModernFile read(gStrList const & scope, Decl::gPascalContext const & context);
  gModernFile read_comment();

private:
  // What the comments say about one declaration.
  struct Words {
    std::string text;
    gLinePlace place;   // of the first of them
    bool titles = true; // may stand in it
    bool documenting = false;
    std::vector<std::pair<std::string, std::string>> parameters; // of a routine, with their words
    std::string values;                                          // of an enumeration, as items
  };

  std::optional<std::string> read(std::string_view name) override;

  void read_declarations(Decl::gPascalContext const & context);
  void take_comments();
  void take_block(gCommentBlock const & block, gAttachment const & attachment);
  void leave_out(gCommentBlock const & block, gLeftOut reason);
  void take_words(std::int32_t declaration, std::string const & words, gCommentBlock const & block);
  void take_parameter(gAttachment const & attachment, std::string const & words,
                      gCommentBlock const & block);
  void take_value(std::int32_t enumerator, std::string const & words);
  gLinePlace place_of(gCommentBlock const & block) const;
  bool is_own(std::string_view words, gCommentBlock const & block, std::int32_t declaration) const;
  bool is_foreign(std::string_view keyword, std::string_view rest, gString const & type,
                  std::int32_t declaration) const;
  void parse_own(gCommentBlock const & block, std::string const & words);
  void hand_down_fields();
  void make_units();
  void note_unknown(gTranslated const & text, int line);
  static void note(std::vector<gUnknownWord> & list,
                   std::map<std::string, std::size_t> const & words, int line);
  std::vector<std::int32_t> sharing(std::int32_t declaration, std::size_t length) const;
  void make_unit(std::int32_t declaration, gTranslated text, gLinePlace place);
  void make_topic(gTranslated text, gCommentBlock const & block);
  void make_about(gTranslated text, gCommentBlock const & block);
  void note_topic(gTranslated const & text, gCommentBlock const & block, gUnitFacts & unit) const;
  void add_parts(int unit, gTranslated text);
  void bind(std::int32_t declaration, int unit);
  static void add_parameters(Words & words);
  gCommentHints hints_for(std::int32_t declaration, Words const & words) const;
  int parse_unit(std::string const & text, gLinePlace place, bool own = false);
  int add_plain_unit(gLinePlace place);
  int parse_plain_unit(gLinePlace place);
  std::int32_t scope_at(std::uint32_t place) const;
  void report_skipped();
  void add_includes(gStrList const & scope);
  gCodeElem const * class_of(Decl::gInclude const & file) const;
  gStrList scope_names(std::int32_t scope) const;
  Decl::gDeclaration const & item(std::int32_t i) const {
    return found_.items[static_cast<std::size_t>(i)];
  }

  gModernReader & reader_;
  std::string_view text_;
  bool pascal_;
  Decl::gFileDeclarations found_;
  gReadElements elements_;
  std::vector<std::int32_t> next_;      // by declaration: of the same statement
  std::map<std::int32_t, Words> words_; // by declaration
  gCommentOptions options_;
  std::pair<std::string, std::string> example_; // the last one: its name and text
  std::size_t example_bytes_ = 0;               // that were looked at
  std::optional<gCommentRegions> regions_;
  gModernFile result_;
};

void gModernReader::File::read_declarations(Decl::gPascalContext const & context) {
  found_ =
      pascal_ ? Decl::read_pascal(text_, context) : Decl::read_cpp(text_, reader_.input_.macros);
  elements_ = make_code_elements(text_, found_, result_.facts.file);
  next_ = next_of_statement(found_);
  result_.declarations = elements_.elements.size();
  if (elements_.too_deep >= 0) {
    Decl::gDeclaration const & one = item(elements_.too_deep);
    found_.skipped.push_back(
        {one.whole, one.line, one.end_line, one.scope, "more than 100 scopes around it"});
  }
}

// Some keywords are tags of other systems, too: "@class Name" with more lines below, and "@p name"
// in front of what is no property.
bool gModernReader::File::is_foreign(std::string_view keyword, std::string_view rest,
                                     gString const & type, std::int32_t declaration) const {
  if (!keyword.starts_with('@') || Commands::find(keyword.substr(1)).kind == gCommandKind::none)
    return false;
  std::int32_t const element =
      declaration < 0 ? -1 : elements_.of[static_cast<std::size_t>(declaration)];
  if (element >= 0 && unit_type_name(elements_.elements[static_cast<std::size_t>(element)]->type) !=
                          std::string_view(type))
    return true;
  std::string_view const line = rest.substr(0, rest.find('\n'));
  std::string_view const name = trimmed(line);
  bool const one_word = !name.empty() && name.find_first_of(" \t.;") == name.npos;
  return one_word && !trimmed(rest.substr(line.size())).empty();
}

// A keyword of the project's own mark-up begins the comment.
bool gModernReader::File::is_own(std::string_view words, gCommentBlock const & block,
                                 std::int32_t declaration) const {
  std::size_t const begin = words.find_first_not_of(" \t\n");
  if (begin == words.npos || reader_.input_.unit_words.empty())
    return false;
  std::string_view const rest = words.substr(begin);
  std::string_view const keyword =
      rest.substr(0, std::min(rest.find_first_of(" \t\n:;,"), rest.size()));
  auto const found = reader_.input_.unit_words.find(keyword);
  return found != reader_.input_.unit_words.end() &&
         !(block.documenting &&
           is_foreign(keyword, rest.substr(keyword.size()), found->second, declaration));
}

// Parses the text of one comment; the index of the unit that it makes, -1 if it makes none.
int gModernReader::File::parse_unit(std::string const & text, gLinePlace place, bool own) {
  gTextFacts & facts = result_.facts.text;
  std::size_t const before = facts.units.size();
  doc_parse & doc = reader_.doc_;
  try {
    doc.reset();
    doc.report_to(facts.reports);
    static gTakenNames const none;
    doc.read_into(facts, none, reader_.tables_);
    if (!own)
      doc.scanner().read_translated();
    doc.scanner().open_text(result_.facts.file, text, place.line);
    doc.parse();
  } catch (gExcFatalErr const & fault) {
    facts.reports.take(fault.report());
  }
  if (facts.units.size() == before)
    return -1;
  // With a column it shares its line with others.
  for (std::size_t i = before; i < facts.units.size(); ++i)
    facts.units[i].place = {std::max(place.line, facts.units[i].place.line), place.column};
  return static_cast<int>(before);
}

// Parses a unit without text, and keeps it for those that follow.
int gModernReader::File::parse_plain_unit(gLinePlace place) {
  gTextFacts & facts = result_.facts.text;
  std::size_t const reports = facts.reports.reports().size();
  int const units = facts.units_made, labels = facts.labels_made;
  int const made =
      parse_unit(std::string(opening) + std::string(special) + std::string(closing), place);
  if (made < 0 || facts.reports.reports().size() > reports)
    return made;
  gUnitFacts unit = facts.units.back();
  unit.number -= units;
  unit.label -= labels;
  reader_.plain_unit_ = {std::move(unit), facts.units_made - units, facts.labels_made - labels};
  return made;
}

// All of them are alike but for place and numbers, and nearly every declaration with a comment has
// one. The index of the unit, -1 if there is none.
int gModernReader::File::add_plain_unit(gLinePlace place) {
  if (!reader_.plain_unit_)
    return parse_plain_unit(place);
  gTextFacts & facts = result_.facts.text;
  auto const & [plain, units, labels] = *reader_.plain_unit_;
  gUnitFacts & unit = facts.units.emplace_back(plain);
  unit.place = place;
  unit.number += std::exchange(facts.units_made, facts.units_made + units);
  unit.label += std::exchange(facts.labels_made, facts.labels_made + labels);
  return static_cast<int>(facts.units.size()) - 1;
}

void gModernReader::File::parse_own(gCommentBlock const & block, std::string const & words) {
  parse_unit(std::string(opening) + words + std::string(closing), place_of(block), true);
}

gLinePlace gModernReader::File::place_of(gCommentBlock const & block) const {
  return {static_cast<int>(block.line), static_cast<int>(found_.comments[block.first].column)};
}

// The words of a value stand in the comment of its enumeration, as far as they are running text.
void gModernReader::File::take_value(std::int32_t enumerator, std::string const & words) {
  std::int32_t const scope = item(enumerator).scope;
  if (scope < 0)
    return;
  std::string & values = words_[scope].values;
  values += "@value " + std::string(item(enumerator).name.of(text_)) + " ";
  for (std::size_t at = 0; at < words.size();) {
    std::size_t const end = std::min(words.find('\n', at), words.size());
    std::string_view const line = trimmed(std::string_view(words).substr(at, end - at));
    std::string_view const word = line.substr(0, line.find_first_of(" \t["));
    if (word.size() > 1 && (word[0] == '@' || word[0] == '\\') &&
        Commands::begins_part(Commands::find(word.substr(1)).kind))
      break;
    values += (at > 0 ? "    " : "") + std::string(line) + "\n";
    at = end + 1;
  }
  values += "\n";
}

void gModernReader::File::take_words(std::int32_t declaration, std::string const & words,
                                     gCommentBlock const & block) {
  Words & all = words_[declaration];
  if (all.place.line == 0) {
    all.place = place_of(block);
    all.titles = block.documenting && !block.behind;
  }
  add_paragraph(all.text, words);
  all.documenting = all.documenting || block.documenting;
}

void gModernReader::File::take_parameter(gAttachment const & attachment, std::string const & words,
                                         gCommentBlock const & block) {
  Decl::gDeclaration const & routine = item(attachment.declaration);
  Decl::gParam const & param =
      found_.parameters[routine.first_param + static_cast<std::uint32_t>(attachment.param)];
  take_words(attachment.declaration, {}, block);
  words_[attachment.declaration].parameters.emplace_back(param.name.of(text_), trimmed(words));
}

void gModernReader::File::leave_out(gCommentBlock const & block, gLeftOut reason) {
  result_.facts.code.comments.push_back(
      {place_of(block), static_cast<int>(found_.comments[block.last].end_line), reason});
}

void gModernReader::File::take_block(gCommentBlock const & block, gAttachment const & attachment) {
  if (regions_->at(block.begin).hidden)
    return leave_out(block, gLeftOut::in_code_out);
  bool const hidden =
      attachment.left_out == gLeftOut::in_code_out || attachment.left_out == gLeftOut::in_body;
  std::string words =
      with_aliases(comment_text(text_, block, found_.comments, pascal_), options_.aliases);
  if (!hidden && is_own(words, block, attachment.declaration))
    return parse_own(block, words);
  if (attachment.param >= 0)
    return take_parameter(attachment, words, block);
  if (attachment.left_out == gLeftOut::taken) {
    bool const value = item(attachment.declaration).kind == Decl::gKind::enumerator;
    if (value)
      take_value(attachment.declaration, words);
    return take_words(attachment.declaration, words, block);
  }
  if (hidden || !block.documenting || comment_subject(words).kind == gTranslated::unit)
    return;
  gTranslated text = translate(words, nullptr, options_);
  note_unknown(text, static_cast<int>(block.line));
  if (text.kind == gTranslated::topic)
    make_topic(std::move(text), block);
  else if (text.kind == gTranslated::about)
    make_about(std::move(text), block);
  else
    leave_out(block, attachment.left_out);
}

void gModernReader::File::make_about(gTranslated text, gCommentBlock const & block) {
  int const made = parse_unit(
      std::string(opening) + "@about " + text.name + " | " + std::string(closing), place_of(block));
  if (gString const topics = topics_of(text.groups, gCommentGroup::member);
      made >= 0 && !topics.empty())
    result_.facts.text.units[static_cast<std::size_t>(made)].set_attribute("TOPICS", topics);
  add_parts(made, std::move(text));
}

// What tells topics and pages from other texts, and where they stand among each other.
void gModernReader::File::note_topic(gTranslated const & text, gCommentBlock const & block,
                                     gUnitFacts & unit) const {
  if (!text.sort.empty())
    unit.set_attribute("KIND", gString(text.sort));
  bool const several = !text.sort.empty() && text.sort != "file"; // comments may speak of it
  if (several && !text.id.empty())
    unit.set_attribute("TOPIC", place_name(text.id));
  gString topics = topics_of(text.groups, gCommentGroup::member);
  if (std::string const & around = regions_->at(block.begin).topic; !around.empty())
    topics += (topics.empty() ? "" : " ") + around;
  if (!topics.empty())
    unit.set_attribute("TOPICS", topics);
  if (gString const below = topics_of(text.groups, gCommentGroup::below); !below.empty())
    unit.set_attribute("BELOW", below);
  bool const joins = !text.groups.empty() && text.groups.front().kind == gCommentGroup::joins;
  if (joins)
    unit.set_attribute("JOINS", text.groups.front().title.empty() ? "name" : "title");
}

void gModernReader::File::make_topic(gTranslated text, gCommentBlock const & block) {
  int const made = parse_unit(
      std::string(opening) + "@text vl_topic @noxe @hdline{" +
          translate_inline(text.name.substr(0, character_end(text.name, longest_title))) + "}" +
          std::string(closing),
      place_of(block));
  if (made < 0)
    return;
  gTextFacts & facts = result_.facts.text;
  gUnitFacts & unit = facts.units[static_cast<std::size_t>(made)];
  unit.names = gStrList(gString()); // a title is all it has, or several would pass for overloads
  note_topic(text, block, unit);
  gStrList pieces = topic_pieces(std::move(text), facts);
  facts.units[static_cast<std::size_t>(made)].add_subentry("text", std::move(pieces));
}

void gModernReader::File::add_parts(int unit, gTranslated text) {
  if (unit < 0)
    return;
  gTextFacts & facts = result_.facts.text;
  for (gCommentPart & part : text.parts) {
    gStrList pieces = text_pieces(std::move(part.text), facts);
    if (!pieces.is_wsp())
      facts.units[static_cast<std::size_t>(unit)].add_subentry(gString(part.entry),
                                                               std::move(pieces));
  }
}

void gModernReader::File::take_comments() {
  std::vector<gCommentBlock> const blocks = comment_blocks(text_, found_.comments, pascal_);
  std::vector<gAttachment> const attachments = attach(text_, found_, blocks, pascal_);
  gCommentOptions regions = options_;
  regions.files = nullptr;
  regions_.emplace(text_, blocks, found_.comments, pascal_, regions);
  note_regions(*regions_, found_, elements_);
  for (std::size_t i = 0; i < blocks.size(); ++i)
    take_block(blocks[i], attachments[i]);
}

// All that one statement declares shares its comment, but what has one of its own. A long text
// isn't repeated for ever.
std::vector<std::int32_t> gModernReader::File::sharing(std::int32_t declaration,
                                                       std::size_t length) const {
  constexpr std::size_t most = 64, longest = 1000;
  std::vector<std::int32_t> all{declaration};
  if (item(declaration).statement == declaration)
    for (std::int32_t i = next_[static_cast<std::size_t>(declaration)];
         i >= 0 && (length <= longest || all.size() < most); i = next_[static_cast<std::size_t>(i)])
      if (!words_.contains(i))
        all.push_back(i);
  // "struct {...} v": the text is about what has the name.
  if (item(declaration).name.empty() && all.size() > 1)
    all.erase(all.begin());
  return all;
}

// What makes no element, such as a union without a name, can't have a text.
void gModernReader::File::make_unit(std::int32_t declaration, gTranslated text, gLinePlace place) {
  if (elements_.of[static_cast<std::size_t>(declaration)] < 0)
    return;
  Decl::gDeclaration const & one = item(declaration);
  if (place.line == 0)
    place = {static_cast<int>(one.line), static_cast<int>(one.column)};
  int const made = add_plain_unit(place);
  if (made < 0)
    return;
  add_parts(made, std::move(text));
  bind(declaration, made);
}

void gModernReader::File::bind(std::int32_t declaration, int unit) {
  std::int32_t const element = elements_.of[static_cast<std::size_t>(declaration)];
  if (element < 0)
    return;
  gCodeElem & bound = *elements_.elements[static_cast<std::size_t>(element)];
  bound.text = unit;
  auto const words = words_.find(item(declaration).statement);
  auto const own = words_.find(declaration);
  bound.documented = own != words_.end() ? own->second.documenting
                                         : words != words_.end() && words->second.documenting;
}

// What the tags say of a parameter comes before what stands beside it.
void gModernReader::File::add_parameters(Words & words) {
  if (words.parameters.empty())
    return;
  auto const described = described_parameters(words.text);
  for (auto const & [name, text] : words.parameters)
    if (!described.contains(name))
      add_paragraph(words.text, "@param " + name + " " + text);
}

gCommentHints gModernReader::File::hints_for(std::int32_t declaration, Words const & words) const {
  using Decl::gKind;
  Decl::gDeclaration const & one = item(declaration);
  gCommentHints hints;
  hints.pascal = pascal_;
  hints.name = shown_name(text_, found_, one);
  hints.titles = words.titles;
  for (std::uint32_t i = 0; i < one.params; ++i)
    hints.parameters.emplace(found_.parameters[one.first_param + i].name.of(text_));
  hints.declared = one.params > 0 || !one.parameter_list.empty() ? gCommentHints::routine
                   : one.kind == gKind::enum_ || one.kind == gKind::enum_class
                       ? gCommentHints::enumeration
                       : gCommentHints::other;
  return hints;
}

void gModernReader::File::note(std::vector<gUnknownWord> & list,
                               std::map<std::string, std::size_t> const & words, int line) {
  for (auto const & [word, count] : words) {
    auto const known = std::ranges::find(list, word, &gUnknownWord::word);
    if (known != list.end())
      known->count += count;
    else if (list.size() < most_unknown)
      list.push_back({word, count, line});
  }
}

// Fields that have no comment of their own take what that of their structure says.
void gModernReader::File::hand_down_fields() {
  for (auto & [declaration, words] : words_) {
    Decl::gDeclaration const & outer = item(declaration);
    if (pascal_ || !is_class_like(outer.kind) || words.text.find('@') == std::string::npos)
      continue;
    std::map<std::string, std::int32_t, std::less<>> members;
    auto const count = static_cast<std::int32_t>(found_.items.size());
    for (std::int32_t i = declaration + 1; i < count && item(i).whole.begin < outer.body.end; ++i)
      if (item(i).scope == declaration && !item(i).name.empty() && !words_.contains(i))
        members.try_emplace(std::string(item(i).name.of(text_)), i);
    std::set<std::string, std::less<>> names;
    for (auto const & [name, member] : members)
      names.insert(name);
    for (auto & [name, text] : take_field_texts(words.text, names)) {
      Words & field = words_[members.at(name)];
      field.text += text;
      field.place = words.place;
      field.documenting = words.documenting;
    }
  }
}

void gModernReader::File::note_unknown(gTranslated const & text, int line) {
  note(result_.unknown, text.unknown, line);
  note(result_.missing, text.missing, line);
}

// "this" is the source itself.
std::optional<std::string> gModernReader::File::read(std::string_view name) {
  if (name == "this") {
    example_bytes_ += text_.size();
    return example_bytes_ <= most_example_bytes ? std::optional(std::string(text_)) : std::nullopt;
  }
  gExampleFiles const & examples = reader_.input_.examples;
  result_.shows_files = result_.shows_files || !examples.empty();
  if (example_.first != name || name.empty()) {
    std::optional<std::string> text = examples.read(name);
    if (!text || example_bytes_ > most_example_bytes)
      return {};
    example_ = {std::string(name), std::move(*text)};
  }
  example_bytes_ += example_.second.size();
  return example_bytes_ <= most_example_bytes ? std::optional(example_.second) : std::nullopt;
}

void gModernReader::File::make_units() {
  hand_down_fields();
  for (auto & [declaration, words] : words_) {
    add_parameters(words);
    gCommentHints const hints = hints_for(declaration, words);
    if (!words.values.empty())
      words.text = without_indent(words.text) + "\n" + words.values;
    gTranslated const text = translate(words.text, &hints, options_);
    note_unknown(text, words.place.line);
    std::vector<std::int32_t> const all = sharing(declaration, words.text.size());
    for (std::int32_t one : all)
      if (std::int32_t const element = elements_.of[static_cast<std::size_t>(one)]; element >= 0)
        add_topics(*elements_.elements[static_cast<std::size_t>(element)], text.groups);
    if (text.parts.empty())
      continue;
    for (std::int32_t one : all)
      make_unit(one, text, one == all.front() ? words.place : gLinePlace());
  }
}

// The innermost scope around a place; -1 for none. A fault among brackets is met before scopes are.
std::int32_t gModernReader::File::scope_at(std::uint32_t place) const {
  auto const & items = found_.items;
  auto const next = std::upper_bound(
      items.begin(), items.end(), place,
      [](std::uint32_t at, Decl::gDeclaration const & one) { return at < one.whole.begin; });
  std::int32_t found = static_cast<std::int32_t>(next - items.begin()) - 1;
  auto const holds = [&](Decl::gRange const & body) {
    return body.begin <= place && place < body.end;
  };
  while (found >= 0 && !holds(item(found).body))
    found = item(found).scope;
  return found;
}

void gModernReader::File::report_skipped() {
  for (Decl::gSkipped const & skipped : found_.skipped) {
    std::int32_t const around = skipped.scope < 0 ? scope_at(skipped.whole.begin) : skipped.scope;
    std::int32_t const scope = around < 0 ? -1 : elements_.of[static_cast<std::size_t>(around)];
    result_.skipped.push_back(
        {result_.facts.file.opath(), static_cast<int>(skipped.line),
         static_cast<int>(std::max(skipped.line, skipped.end_line)), skipped.reason,
         scope < 0 ? gString() : elements_.elements[static_cast<std::size_t>(scope)]->name()});
    std::uint32_t const lines = skipped.end_line - std::min(skipped.line, skipped.end_line) + 1;
    result_.facts.code.reports(Msg::stretch_skipped,
                               skipped.reason + ", " + std::to_string(lines) +
                                   (lines == 1 ? " line" : " lines"),
                               gLoc(result_.facts.file, static_cast<int>(skipped.line)));
  }
}

gStrList gModernReader::File::scope_names(std::int32_t scope) const {
  std::vector<std::int32_t> around;
  for (; scope >= 0 && around.size() < most_scopes; scope = item(scope).scope)
    around.push_back(scope);
  gStrList names;
  for (auto one = around.rbegin(); one != around.rend(); ++one)
    if (!item(*one).name.empty())
      names.push_back(gString(shown_name(text_, found_, item(*one), Decl::gSyntax::pascal)));
  return names;
}

void gModernReader::File::add_includes(gStrList const & scope) {
  for (Decl::gInclude const & one : found_.includes) {
    if (!pascal_ && one.system)
      continue;
    gStrList names = scope;
    if (pascal_)
      names.append(scope_names(one.scope));
    else if (gCodeElem const * const outer = class_of(one))
      names.append(outer->names);
    else
      continue;
    result_.includes.push_back(
        {std::string(one.name.of(text_)), result_.facts.file, std::move(names), one.context});
  }
}

// Null where no class stands directly around.
gCodeElem const * gModernReader::File::class_of(Decl::gInclude const & file) const {
  bool const in_class = file.scope >= 0 && is_class_like(item(file.scope).kind);
  std::int32_t const element = in_class ? elements_.of[static_cast<std::size_t>(file.scope)] : -1;
  return element < 0 ? nullptr : elements_.elements[static_cast<std::size_t>(element)].get();
}

gModernFile gModernReader::File::read(gStrList const & scope,
                                      Decl::gPascalContext const & context) {
  read_declarations(context);
  take_comments();
  make_units();
  report_skipped();
  add_includes(scope);
  std::vector<bool> const hidden = hidden_elements(*regions_, found_, elements_);
  for (std::size_t i = 0; i < hidden.size(); ++i) {
    cRef<gCodeElem> & element = elements_.elements[i];
    if (hidden[i])
      continue;
    if (!scope.empty()) {
      gStrList names = scope;
      names.append(std::move(element->names));
      element->names = std::move(names);
    }
    result_.facts.code.elements.push_back(std::move(element));
  }
  std::vector<int> & lines = result_.facts.text.unit_lines;
  for (gUnitFacts const & unit : result_.facts.text.units)
    lines.push_back(unit.place.line);
  std::sort(lines.begin(), lines.end());
  return std::move(result_);
}

gModernFile gModernReader::File::read_comment() {
  parse_unit(std::string(opening) + std::string(text_) + std::string(closing), {1, 0}, true);
  return std::move(result_);
}

gModernFile gModernReader::read(gSrcFile const & file, std::string_view text,
                                gStrList const & scope, Decl::gPascalContext const & context) {
  return File(*this, file, text).read(scope, context);
}

gModernFile gModernReader::read_comment(gSrcFile const & file, std::string const & text) {
  return File(*this, file, text).read_comment();
}

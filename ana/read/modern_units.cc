// What comments say becomes text units, each bound to the declaration that it is about.
#include <algorithm>

#include "ana/comments/foreign_text.h"
#include "ana/comments/words.h"
#include "ana/read/attach_places.h"
#include "ana/read/element_groups.h"
#include "ana/read/field_texts.h"
#include "ana/read/modern_file.h"
#include "ana/read/rich_pieces.h"
#include "ana/read/unit_kinds.h"
#include "vlb/messages.h"

namespace {

constexpr std::size_t longest_title = 300;
constexpr std::size_t most_unknown = 100; // commands of a file
// Of examples, that the comments of a source may have looked at: each part that is shown of one
// counts for the whole of it.
constexpr std::size_t most_example_bytes = 32u << 20;

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

void gModernReader::File::make_about(gTranslated text, gCommentBlock const & block) {
  int const made = parse_unit(std::string(comment_opening) + "@about " + text.name + " | " +
                                  std::string(comment_closing),
                              place_of(block));
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
      std::string(comment_opening) + "@text vl_topic @noxe @hdline{" +
          translate_inline(text.name.substr(0, character_end(text.name, longest_title))) + "}" +
          std::string(comment_closing),
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
  if (pascal_ && one.scope >= 0)
    hints.scope = shown_name(text_, found_, item(one.scope));
  hints.titles = words.titles;
  for (std::uint32_t i = 0; i < one.params; ++i)
    hints.parameters.emplace(found_.parameters[one.first_param + i].name.of(text_));
  // "int (*f)(int)": what it points to has parameters.
  bool const points = !pascal_ && one.parameter_list.empty() && !is_class_like(one.kind) &&
                      one.whole.of(text_).substr(0, 400).find("(*") != std::string_view::npos;
  hints.declared = one.params > 0 || !one.parameter_list.empty() || points ? gCommentHints::routine
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

// It, or something around it, has a comment that says that it isn't shown.
bool gModernReader::File::is_excluded(std::int32_t declaration) const {
  if (excluded_.empty())
    return false;
  for (std::int32_t i = declaration; i >= 0; i = item(i).scope)
    if (excluded_.contains(i))
      return true;
  return false;
}

std::string gModernReader::File::picture(std::string_view name) {
  static constexpr std::string_view kinds[] = {".png", ".jpg", ".jpeg", ".gif", ".svg", ".webp"};
  std::string const kind = Vlb::to_lower(name.substr(std::min(name.rfind('.'), name.size())));
  if (std::ranges::find(kinds, kind) == std::end(kinds))
    return {};
  result_.shows_files = result_.shows_files || !reader_.input_.pictures.empty();
  return reader_.input_.pictures.find(name);
}

void gModernReader::File::make_units() {
  hand_down_fields();
  for (auto & [declaration, words] : words_) {
    add_parameters(words);
    gCommentHints const hints = hints_for(declaration, words);
    if (!words.values.empty())
      words.text = without_indent(words.text) + "\n" + words.values;
    if (is_excluded(declaration))
      continue;
    gTranslated const text = translate(words.text, &hints, options_);
    if (text.excluded)
      excluded_.insert(declaration);
    note_unknown(text, words.place.line);
    std::vector<std::int32_t> const all = sharing(declaration, words.text.size());
    for (std::int32_t one : all)
      if (std::int32_t const element = elements_.of[static_cast<std::size_t>(one)]; element >= 0)
        add_topics(*elements_.elements[static_cast<std::size_t>(element)], text.groups);
    if (text.parts.empty() || text.excluded)
      continue;
    for (std::int32_t one : all)
      make_unit(one, text, one == all.front() ? words.place : gLinePlace());
  }
}

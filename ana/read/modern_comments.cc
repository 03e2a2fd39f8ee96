// Each comment is parsed by itself, so that a fault in it costs nothing else, and what it documents
// is known before it is parsed.
#include <algorithm>

#include "ana/comments/commands.h"
#include "ana/comments/words.h"
#include "ana/read/attach_headings.h"
#include "ana/read/element_groups.h"
#include "ana/read/modern_file.h"
#include "ana/read/rich_pieces.h"
#include "ana/read/unit_kinds.h"
#include "vlb/gexception.h"
#include "vlb/messages.h"

namespace {

constexpr std::string_view special = "@_vlukwd ";

// "@deprecated use b" within running text.
std::string as_remark(std::string_view line) {
  std::size_t const end = std::min(line.find(' '), line.size());
  std::string word(line.substr(1, end - 1));
  word[0] = Vlb::upper(word[0]);
  return "\\n **" + word + (end < line.size() ? ":**" : "**") + std::string(line.substr(end));
}

} // namespace

// The first one keeps its indentation; of those that follow it would make a part of an item.
void gModernReader::File::add_paragraph(std::string & text, std::string_view words) {
  if (trimmed(words).empty())
    return;
  if (!text.empty())
    text += "\n\n";
  text += text.empty() ? words : words.substr(words.find_first_not_of(' '));
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
  int const made = parse_unit(
      std::string(comment_opening) + std::string(special) + std::string(comment_closing), place);
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
  parse_unit(std::string(comment_opening) + words + std::string(comment_closing), place_of(block),
             true);
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
    gCommand const command = word.size() > 1 && (word[0] == '@' || word[0] == '\\')
                                 ? Commands::find(word.substr(1))
                                 : gCommand();
    if (command.kind == gCommandKind::named)
      break;
    values += (at > 0 ? "    " : "") +
              (Commands::begins_part(command.kind) ? as_remark(line) : std::string(line)) + "\n";
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

bool gModernReader::File::declares_namespace(std::string_view name) const {
  std::string_view const last = name.substr(name.find_last_of(':') + 1);
  return std::ranges::any_of(found_.items, [&](Decl::gDeclaration const & one) {
    return one.kind == Decl::gKind::name_space && one.name.of(text_) == last;
  });
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
  if (attachment.first_headed >= 0)
    note_heading(heading_of(words), found_, attachment, elements_);
  if (hidden || !block.documenting || comment_subject(words, pascal_).kind == gTranslated::unit)
    return;
  gTranslated text = translate(words, nullptr, options_);
  note_unknown(text, static_cast<int>(block.line));
  constexpr std::string_view space = "Namespace ";
  if (text.kind == gTranslated::topic && text.name.starts_with(space) &&
      declares_namespace(std::string_view(text.name).substr(space.size()))) {
    text.kind = gTranslated::about;
    text.name.erase(0, space.size());
  }
  if (text.kind == gTranslated::topic)
    make_topic(std::move(text), block);
  else if (text.kind == gTranslated::about)
    make_about(std::move(text), block);
  else
    leave_out(block, attachment.left_out);
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

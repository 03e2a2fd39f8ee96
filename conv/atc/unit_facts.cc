// One look at the parsed text of each unit; the text itself isn't kept.
#include "conv/atc/unit_facts.h"

#include "conv/atc/qualified_name.h"
#include "vlb/gstring.h"

namespace {

constexpr std::size_t longest_summary = 200;

// True if the word stands in the text by itself. Blanks don't count inside of an operator's name.
bool holds_word(std::string_view text, std::string_view word) {
  if (word.empty())
    return false;
  for (std::size_t at = text.find(word); at != text.npos; at = text.find(word, at + 1)) {
    bool const begins = at == 0 || !Vlb::is_word(word[0]) || !Vlb::is_word(text[at - 1]);
    std::size_t const behind = at + word.size();
    bool const ends =
        behind == text.size() || !Vlb::is_word(word.back()) || !Vlb::is_word(text[behind]);
    if (begins && ends)
      return true;
  }
  return word.starts_with("operator") && text.find("operator") != text.npos;
}

// A subentry that begins with a verbatim block shows code; the text behind it is about the code.
bool shows_code(gNode const & subentry) {
  return subentry.children.size() > 1 && subentry.children[1].kind == gNodeKind::verbatim;
}

std::string const * code_with(gNodeList const & body, auto const & fits) {
  for (gNode const & node : body)
    if (node.kind == gNodeKind::subentry && shows_code(node) && fits(node.children[1].text))
      return &node.children[1].text;
  return nullptr;
}

// The text that the facts are of; else, where an author wrote it himself, one with the unit's name.
std::string const * declaration(gNodeList const & body, gUnitRecord & unit) {
  if (std::string const * found =
          code_with(body, [&](std::string const & text) { return Atc::fit_to(text, unit.facts); }))
    return found;
  unit.facts.size = 0;
  std::string_view const name = Atc::last_component(unit);
  return code_with(body, [&](std::string const & text) { return holds_word(text, name); });
}

bool has_title(gNode const & subentry) {
  return !subentry.children.empty() && !subentry.children[0].children.empty();
}

// Below a title stands what is said beside the description, such as what to use instead.
gNode const * first_paragraph(gNodeList const & body, bool below_titles) {
  for (gNode const & node : body) {
    if (node.kind == gNodeKind::paragraph)
      return &node;
    if (node.kind == gNodeKind::subentry && !shows_code(node) && (below_titles || !has_title(node)))
      if (gNode const * found = first_paragraph(node.children, below_titles))
        return found;
  }
  return nullptr;
}

gNode const * first_paragraph(gNodeList const & body) {
  gNode const * const found = first_paragraph(body, false);
  return found ? found : first_paragraph(body, true);
}

// Up to a full stop that a blank and no small letter follow ("e.g. this" goes on).
std::string first_sentence(std::string const & text) {
  for (std::size_t i = 0; i + 2 < text.size(); ++i) {
    bool const stop = text[i] == '.' || text[i] == '!' || text[i] == '?';
    if (stop && text[i + 1] == ' ' && !(text[i + 2] >= 'a' && text[i + 2] <= 'z'))
      return text.substr(0, i + 1);
  }
  return text;
}

std::string shortened(std::string text) {
  constexpr std::string_view dots = "\u2026";
  if (text.size() <= longest_summary)
    return text;
  std::size_t end = longest_summary - dots.size();
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
    --end;
  std::size_t const blank = text.rfind(' ', end);
  text.resize(blank != text.npos && blank > longest_summary / 2 ? blank : end);
  return text.append(dots);
}

// A unit that is kept out of the index still has a name: its label is made of it, without the
// separators, so a title that fits the label is the name.
bool is_name_of_label(std::string_view title, std::string_view label) {
  std::size_t const number = label.rfind('_');
  if (!label.starts_with("VL_A") || number == label.npos || number <= 4)
    return false;
  std::string_view const stem = label.substr(4, number - 4);
  std::string made;
  for (std::size_t i = 0; i < title.size() && made.size() <= stem.size(); ++i) {
    if (title.substr(i, 2) == "::")
      ++i;
    else if (title[i] != '.')
      made += Vlb::is_word(title[i]) ? Vlb::upper(title[i]) : '_';
  }
  constexpr std::size_t longest_stem = 23;
  bool const cut = stem.size() == longest_stem && made.size() > stem.size();
  return made == stem || (cut && made.starts_with(stem));
}

} // namespace

namespace Atc {

void take_facts(gUnitText const & text, gUnitRecord & unit) {
  unit.title = plain_text(text.title);
  if (unit.name.empty() && !unit.facts.known && is_name_of_label(unit.title, unit.label))
    unit.name = unit.title;
  if (unit.title.empty())
    unit.title = unit.name;
  if (unit.title.empty())
    unit.title =
        unit.path.substr(unit.path.rfind('/') + 1) + ":" + std::to_string(unit.source_line);
  unit.toc = plain_text(text.toc_title);
  if (unit.toc.empty())
    unit.toc = unit.title;
  if (std::string const * found = declaration(text.body, unit))
    unit.declaration = *found;
  unit.summary = plain_text(text.subject);
  if (unit.summary.empty())
    if (gNode const * found = first_paragraph(text.body))
      unit.summary = first_sentence(plain_text(found->children));
  unit.summary = shortened(std::move(unit.summary));
}

void take_marks(gNodeList const & nodes, gMarks & marks) {
  for (gNode const & node : nodes) {
    if (node.kind == gNodeKind::bookmark) {
      marks.bookmarks.push_back(node.param(0));
      if (node.param(1) == "hid")
        marks.help_ids.push_back(node.param(0));
    } else if (node.kind == gNodeKind::hid_alias) {
      marks.help_aliases.push_back(node.param(0));
    } else if (node.kind == gNodeKind::index_entry) {
      marks.bookmarks.push_back(node.param(0));
      gIndexEntry entry;
      entry.label = node.param(0);
      for (std::size_t i = 0; i < 5; ++i)
        entry.fields[i] = node.param(i + 1);
      marks.entries.push_back(std::move(entry));
    }
    take_marks(node.children, marks);
  }
}

void take_marks(gUnitText const & text, gMarks & marks) {
  for (gNodeList const * nodes : {&text.toc_title, &text.title, &text.subject, &text.body})
    take_marks(*nodes, marks);
}

} // namespace Atc

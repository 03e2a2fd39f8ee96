// What RTF does in its own way: a paragraph can't hold another one, so list items give their later
// paragraphs away, margin notes wait for the block that they stand beside, and trees are
// paragraphs with an indentation.

#include "conv/rtf/rtf_setter.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "conv/rtf/rtf_text.h"
#include "conv/set/block_text.h"
#include "conv/set/declaration.h"
#include "conv/set/index_lines.h"

namespace {

constexpr int widest_step = 5000; // twips

} // namespace

int Rtf::number_in(std::string_view text, int fallback) {
  int number = fallback;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

gRtfSetter::gRtfSetter(gDocument const & document, gVltRules const & rules, gKinds const & kinds,
                       int text_width, int font_size, std::string index_separator,
                       std::string place_holder)
    : gSetter(document, rules),
      kinds_(kinds),
      text_width_(text_width),
      font_size_(font_size),
      list_indent_(std::clamp(Rtf::number_in(rules.setting("list_indent"), 360), 0, widest_step)),
      step_indent_(std::clamp(Rtf::number_in(rules.setting("step_indent"), 360), 0, widest_step)),
      index_separator_(std::move(index_separator)),
      place_holder_(std::move(place_holder)) {}

void gRtfSetter::begin_unit(int unit, int level) {
  set_unit(unit);
  level_above_ = level;
  margin_notes_.clear();
  headlines_.clear();
}

void gRtfSetter::set_body(gNodeList const & blocks, std::string & text, std::string & links) {
  text += take_margin_notes();
  for (gNode const & node : blocks)
    set_node(node, node.kind == gNodeKind::link_line ? links : text);
}

void gRtfSetter::escape(std::string_view text, std::string & out) const {
  Rtf::escape(text, out);
}

gLinkEnd gRtfSetter::link_end(gTarget const & target) {
  gUnitRecord const & unit = document().units[static_cast<std::size_t>(target.unit)];
  gLinkEnd end;
  end.href = Rtf::bookmark(target.bookmark.empty() ? unit.label : target.bookmark);
  end.title = escaped(unit.title);
  end.kind = kinds_.of(target.unit).word;
  return end;
}

// A bookmark stands once, and not in running heads, which stand on every page.
std::string gRtfSetter::anchor(std::string_view bookmark) {
  std::string name = Rtf::bookmark(bookmark);
  return unit() >= 0 && placed_.insert(Vlb::to_upper(name)).second ? name : std::string();
}

std::string gRtfSetter::headline_anchor(gNode const & node) {
  gRtfHeadline headline;
  headline.level = level_above_ + Rtf::number_in(node.param(0), 1);
  headline.bookmark = "VLS_" + std::to_string(++headlines_done_);
  headline.title = escaped(node.param(1).empty() ? plain_text(node.children) : node.param(1));
  headlines_.push_back(headline);
  return headline.bookmark;
}

std::string gRtfSetter::headline_level(gNode const & node) const {
  int const level = level_above_ + Rtf::number_in(node.param(0), 1);
  return std::to_string(std::clamp(level, 1, Rtf::deepest_headline));
}

void gRtfSetter::set_verbatim(gNode const & node, bool declaration, std::string & out) {
  std::string text = block_text(node.text);
  std::size_t cut = 0;
  if (declaration && unit() >= 0) {
    gUnitRecord const & record = document().units[static_cast<std::size_t>(unit())];
    text = text == record.declaration ? Declaration::broken(text, record.facts)
                                      : Declaration::broken(text);
    cut = text.size();
    Declaration::cut(text);
    cut -= text.size();
  }
  std::string shown;
  Rtf::escape_lines(text, shown);
  if (cut > 0) {
    std::string const left = std::to_string(cut);
    rules().apply(gVltRule::cut, gVltValues().set(gVltValue::count, left), shown);
  }
  std::string const space = indentation();
  rules().apply(declaration ? gVltRule::declaration : gVltRule::verbatim,
                gVltValues().set(gVltValue::text, shown).set(gVltValue::width, space), out);
}

// Word processors know no notes in notes or running heads; those stand in the text.
void gRtfSetter::set_note(gNode const & node, std::string & out) {
  if (in_note_ || unit() < 0) {
    escape(" (", out);
    set(node.children, out);
    return escape(")", out);
  }
  in_note_ = true;
  set_own_note(node, out);
  in_note_ = false;
}

void gRtfSetter::set_own_note(gNode const & node, std::string & out) {
  if (node.kind != gNodeKind::margin_note)
    return gSetter::set_note(node, out);
  std::string note;
  gSetter::set_note(node, note);
  margin_notes_ += note;
}

void gRtfSetter::set_block(gNode const & node, std::string & out) {
  std::string block;
  gSetter::set_block(node, block);
  out += take_margin_notes();
  out += block;
}

void gRtfSetter::set_item(gNode const & item, std::string & text, std::string & below) {
  bool in_text = true;
  for (gNode const & node : item.children) {
    bool const is_block = node.kind >= gNodeKind::paragraph;
    bool const first = in_text && text.empty() && node.kind == gNodeKind::paragraph;
    in_text = in_text && !is_block;
    if (first)
      set(node.children, text);
    else
      set_node(node, in_text ? text : below);
  }
}

std::string gRtfSetter::indentation() const {
  return list_level() > 0 ? std::to_string(indent()) : std::string();
}

// A size may be a part of the usual one.
std::string gRtfSetter::measure(gNode const & node) const {
  std::string const & text = node.param(0);
  bool const is_size = node.kind == gNodeKind::font_size;
  if (is_size && text.ends_with('%'))
    return std::to_string(
        std::clamp(font_size_ * std::clamp(Rtf::number_in(text, 100), 1, 10000) / 100, 2, 400));
  int const twips = Rtf::twips(text);
  if (twips < 0)
    return is_size ? std::to_string(font_size_) : "720";
  return std::to_string(is_size ? std::clamp(twips / 10, 2, 400) : twips);
}

std::string gRtfSetter::step_indentation(int depth) const {
  return std::to_string(fitted(depth * step_indent_));
}

std::vector<std::string> gRtfSetter::index_marks(std::string const (&fields)[5]) const {
  std::vector<std::string> marks;
  for (Index::gWording const & wording : Index::wordings_of(fields, place_holder_)) {
    std::string & mark = marks.emplace_back(escaped(wording.key));
    if (!wording.phrase.empty())
      (mark += index_separator_) += escaped(wording.phrase);
  }
  return marks;
}

// The place itself comes with the first mark.
void gRtfSetter::set_index_entry(gNode const & node, std::string & out) {
  std::string fields[5];
  for (std::size_t i = 0; i < 5; ++i)
    fields[i] = node.param(i + 1);
  std::string place = node.param(0).empty() ? std::string() : anchor(node.param(0));
  for (std::string const & mark : index_marks(fields)) {
    rules().apply(gVltRule::xe, gVltValues().set(gVltValue::id, place).set(gVltValue::text, mark),
                  out);
    place.clear();
  }
}

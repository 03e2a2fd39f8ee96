// Trees are flattened in one walk; the reader bounds their depth.
#include "conv/atc/node.h"

#include "vlb/gstring.h"

namespace {

bool is_note(gNodeKind kind) {
  return kind == gNodeKind::margin_note || kind == gNodeKind::footnote ||
         kind == gNodeKind::endnote;
}

// Blocks and breaks part words.
bool parts_words(gNodeKind kind) {
  return kind == gNodeKind::line_break || kind >= gNodeKind::paragraph ||
         (kind >= gNodeKind::left_tab && kind <= gNodeKind::right_tab);
}

void add(std::string_view text, std::string & out) {
  for (char c : text)
    if (!Vlb::is_space(c))
      out += c;
    else if (!out.empty() && out.back() != ' ')
      out += ' ';
}

void add(std::span<gNode const> nodes, std::string & out) {
  for (gNode const & node : nodes) {
    if (is_note(node.kind))
      continue;
    if (parts_words(node.kind))
      add(" ", out);
    add(node.text, out);
    add(node.children, out);
  }
}

} // namespace

std::string const & gNode::param(std::size_t index) const {
  static std::string const none;
  return index < params.size() ? params[index] : none;
}

std::string plain_text(std::span<gNode const> nodes) {
  std::string text;
  add(nodes, text);
  if (text.ends_with(' '))
    text.pop_back();
  return text;
}

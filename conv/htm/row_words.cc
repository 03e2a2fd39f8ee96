// Parts without a title are as good as the text itself.

#include "conv/htm/row_words.h"

#include <algorithm>

#include "conv/set/relation_text.h"

namespace {

constexpr std::size_t longest_words = 240; // that a row shows whole

// What has a place of its own, or can't stand within a line.
bool is_more_than_words(gNode const & node) {
  switch (node.kind) {
  case gNodeKind::text:
  case gNodeKind::em:
  case gNodeKind::kbd:
  case gNodeKind::bold:
  case gNodeKind::italic:
  case gNodeKind::tt:
  case gNodeKind::plain:
  case gNodeKind::dfn:
  case gNodeKind::code:
  case gNodeKind::underline:
  case gNodeKind::format:
  case gNodeKind::reference:
  case gNodeKind::name_ref:
  case gNodeKind::web_link:
    return std::ranges::any_of(node.children, is_more_than_words);
  default:
    return true;
  }
}

// The paragraphs of a text, also of parts without a title; false if it has something else to say.
bool find_paragraphs(gNodeList const & blocks, std::vector<gNodeList const *> & found) {
  return std::ranges::all_of(blocks, [&](gNode const & node) {
    bool const titled = node.kind == gNodeKind::title && !node.children.empty();
    if (is_mark(node) || titled)
      return false;
    if (node.kind == gNodeKind::title || !RelationText::says_something({node}))
      return true;
    if (node.kind == gNodeKind::subentry)
      return find_paragraphs(node.children, found);
    found.push_back(&node.children);
    return node.kind == gNodeKind::paragraph;
  });
}

} // namespace

std::optional<gNodeList> RowWords::of(gUnitText const & text) {
  std::vector<gNodeList const *> said;
  if (!text.subject.empty())
    said.push_back(&text.subject);
  if (!find_paragraphs(text.body, said) || said.size() > 1)
    return std::nullopt;
  if (said.empty())
    return gNodeList();
  if (std::ranges::any_of(*said[0], is_more_than_words) ||
      plain_text(*said[0]).size() > longest_words)
    return std::nullopt;
  return *said[0];
}

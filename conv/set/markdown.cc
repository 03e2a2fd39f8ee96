// The reader of comments makes mark-up of the text, and that is read as the text of a unit is: so a
// page and a comment show the same Markdown alike.

#include "conv/set/markdown.h"

#include <algorithm>

#include "ana/comments/markdown.h"
#include "conv/atc/node_parser.h"

namespace {

constexpr std::size_t longest = 1 << 20; // bytes; a README is shorter

std::string mark_up_of(std::string_view text) {
  std::string code;
  for (gRichPiece const & one : markdown_page(text))
    if (one.kind == gRichPiece::code)
      code += one.text;
  return code;
}

bool is_blank(gNode const & node) {
  return plain_text(node.children).empty();
}

// A link around a picture is left without words, and so may be its paragraph. Headlines stand below
// that of the page.
void tidy(gNodeList & nodes) {
  for (gNode & node : nodes) {
    tidy(node.children);
    if (node.kind == gNodeKind::headline) {
      std::string const level = node.param(0);
      node.params = {level == "3" ? "2" : "1", plain_text(node.children)};
    }
  }
  std::erase_if(nodes, [](gNode const & node) {
    bool const may_go = node.kind == gNodeKind::web_link || node.kind == gNodeKind::paragraph ||
                        node.kind == gNodeKind::headline;
    return may_go && is_blank(node);
  });
}

} // namespace

gMarkdownText read_markdown(std::string_view text) {
  std::string const code = mark_up_of(text.substr(0, longest));
  gAtcScanner scanner(code, 0, code.size(), 1, nullptr);
  gMarkdownText result;
  result.body = gNodeParser(scanner).unit_text().body;
  bool const titled = !result.body.empty() && result.body[0].kind == gNodeKind::headline &&
                      result.body[0].param(0) == "1";
  if (titled) {
    result.title = plain_text(result.body[0].children);
    result.body.erase(result.body.begin());
  }
  tidy(result.body);
  return result;
}

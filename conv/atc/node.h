// The text of a unit as a tree: what the commands of the intermediate code mean, whatever the
// target.
#pragma once

#include <span>
#include <string>
#include <vector>

// What a node is. The comment tells its parameters and children; all texts are UTF-8 without
// escapes.
enum class gNodeKind : unsigned char {
  // Inline
  text,        // `text`
  em,          // children, as for all formats
  kbd,         //
  bold,        //
  italic,      //
  tt,          //
  plain,       //
  dfn,         //
  code,        //
  underline,   // style; children
  font_size,   // size, such as "100%"; children
  format,      // name; children
  left_tab,    // width, such as "3cm"
  centre_tab,  // width
  right_tab,   // width
  reference,   // window type, target, level or empty; children. No target: window type "void"
  name_ref,    // window type, name as its author wrote it; children
  web_link,    // address outside of the document, "here" if it is a place on the page; children
  image,       // its address; children: the text that stands for it
  picture,     // path of its file, "inline" or "block", width or empty; children: the text below it
  formula,     // "inline" or "display", its source in TeX
  bookmark,    // name, "hid" or empty
  hid_alias,   // name
  index_entry, // label, then the five fields: text, key, text, second key, text
  macro,       // name: "cur_file", "cur_page", "cur_date", "cur_time"
  source_link, // path, line; children
  margin_note, // children
  footnote,    // children
  endnote,     // children
  line_break,
  // Blocks
  paragraph,   // inline children; never white space alone
  headline,    // level "1" to "3", its text for the contents; children
  subentry,    // children: a `title`, then the blocks up to the next subentry
  title,       // inline children; empty if the subentry has none
  subtitle,    // children: a title inside a text
  link_line,   // children: references, name references, source links, texts between them
  verbatim,    // `text`: lines with their line ends, without the one in front of the end command;
               // its language, if its author told one
  enumeration, // style; children: items
  numbering,   // style; children: items
  quote,       // children: blocks
  rule,        // a line across
  item,        // inline children if it is one paragraph, else blocks
  table,       // style, columns, marked columns, marked rows (lists with ","); children: rows
  row,         // children: cells
  cell,        // as an item
  hierarchy,   // children: steps
  step,        // "base", "this" or "child", target or empty, level, access, "virtual" or empty,
               // the label of the step; children: the name
};

struct gNode {
  gNodeKind kind = gNodeKind::text;
  int line = 0; // in the file of the intermediate code, from 1
  std::string text;
  std::vector<std::string> params;
  std::vector<gNode> children;

  // A parameter; empty where the node has fewer.
  std::string const & param(std::size_t index) const;
};

using gNodeList = std::vector<gNode>;

// True for what stands at a place and shows nothing there.
inline bool is_mark(gNode const & node) {
  return node.kind == gNodeKind::bookmark || node.kind == gNodeKind::hid_alias ||
         node.kind == gNodeKind::index_entry;
}

// All text in the nodes, without notes, with runs of white space as one blank and none at the ends.
std::string plain_text(std::span<gNode const> nodes);

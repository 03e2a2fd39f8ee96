// The words of the transformation language: what rules there are, and what each may show.
#pragma once

#include <optional>
#include <span>
#include <string_view>

// Values that the converters give to the templates. All are finished text of the target.
enum class gVltValue : unsigned char {
  // What is set
  text,  // the inner text of the command
  title, // a title
  items, // the items, one behind the other; of a list item, what stands below its first paragraph
  name,  // a name: of a format, of a unit
  style, // the style of a unit, list or table
  // Places
  href,    // where a link leads; empty for none
  target,  // the title of the place that a link leads to
  id,      // the anchor or bookmark of the place itself
  aliases, // further anchors of the place
  path,    // of a source file
  line,    // of a source file, from 1
  editor,  // a link that opens the editor at the place; empty where the user has none
  // Numbers and flags; a flag is "1" or empty
  level,      // from 1
  number,     // a running number, from 1
  count,      // how many
  width,      // of a tab, cell, font or indentation
  columns,    // the columns of a table; of a row in RTF, its definition
  mark,       // a marked row or cell; running heads that differ between left and right pages
  current,    // the place where the reader is
  open,       // a place above it
  member,     // the unit stands below another one on its page
  named,      // the title is the unit's name
  is_virtual, // virtual inheritance
  access,     // "public", "protected", "private" or empty
  label,      // the text of an inheritance step
  // Units
  kind,       // what a unit is, in words, such as "class"
  kind_class, // the same for style sheets: lower-case letters and "-" only
  subject,    // the subject line
  links,      // the link line
  body,       // the text
  notes,      // the notes of the unit or page
  overview,   // the list of the units below it
  summary,    // one line about a unit
  signature,  // its declaration in one line, with links
  relations,  // what it replaces and what replaces it
  scope,      // what its name stands in, such as "boost::asio"
  source,     // a link to its source; empty if there is none
  include,    // how the code of a user names what it has to take in for it
  condition,  // of the preprocessor; empty if it is always there
  deprecated, // "1" if it is
  since,      // the version that has it first
  // Drawings: places in pixels
  x,
  y,
  height,
  to_x, // where a line ends
  to_y,
  middle,  // halfway to the end of a line or of a box
  drawing, // a hierarchy as a picture
  // Pages and documents
  doc_title,      // of the whole documentation
  page_title,     // of the page
  root,           // from the page to the folder of the start page: empty or "../"
  crumbs,         // the way to the page
  contents,       // the tree of contents
  on_page,        // the places on the page
  previous,       // the page in front of it: address
  previous_title, //
  next,           // the page behind it: address
  next_title,     //
  content,        // the main text
  head_left,      // running heads and feet
  head_right,     //
  foot_left,      //
  foot_right,     //
  version,        // of what is documented
  address,        // of the page on its server; empty if that isn't known
  share,          // how many percent have a text
  // The index
  key,        // the first key
  second_key, //
  before,     // the texts around the keys
  between,    //
  after,      //
  // Help topics
  context,  // the context string
  keywords, //
  browse,   // the place in the browse sequence
  wintype,  // a window type
  // Pages
  repository, // a link to the source where its project keeps it; empty if that isn't known
  // Rows of lists
  template_head, // of a declaration, with links
  // Pages
  class_tree, // the page with all class hierarchies, or the place of a class in it
  last_value
};
constexpr std::size_t vlt_value_count = static_cast<std::size_t>(gVltValue::last_value);

// The rules. Those that say "by ..." may be written for one value of it: @fmt<hint>.
enum class gVltRule : unsigned char {
  // Inline commands
  em,
  kbd,
  b,
  i,
  tt,
  plain,
  dfn,
  code,
  ul,       // by style
  fontsize, // by size
  fmt,      // by name
  ltab,
  ctab,
  rtab,
  cref,  // by window type
  noref, // a reference without a target
  bkmk,
  hid,
  hidalias,
  xe,
  macro, // by name
  srclink,
  marnote,
  footnote,
  endnote,
  endl,
  weblink,
  image,
  picture, // by style: inline, block
  formula, // by style: inline, display
  // Blocks
  p, // by place: item for all but the first paragraph of a list item
  sub /* by level */,
  subentry /* by title */,
  subtitle,
  linkline,
  link,
  verbatim,
  quote,
  rule,
  declaration, // a verbatim block that a subentry consists of
  cut,         // behind the beginning of a declaration that is too long to be shown
  enumeration /* by style */,
  item,
  numbering /* by style */,
  step_item,
  table /* by style */,
  row,
  cell,
  hierarchy,
  hierarchy_page,
  drawing,
  drawn_line,
  drawn_box /* by role, as of a step */,
  step /* by role: base, this, child */,
  notes,
  note,
  // Units
  unit,    // by style
  include, // by language: how code takes in what a unit declares
  kind,    // by style: the word for what such a unit is
  kinds,   // by style: several such units, with their number
  group,   // by kind: what stands above a list of them
  overview,
  overview_item,
  inherited,     // members of a base
  relation,      // by what it is: overrides, implements, overridden, implemented
  relation_item, // one of the methods
  borrowed,      // the text of a base in the place of an own one
  // Pages
  page,
  crumb,
  crumb_here,
  tree,
  tree_item,
  tree_more,
  toc,
  toc_item,
  start_page,
  chapter, // of the start page: a unit with the first of those below it
  contents_page,
  index_page,
  index_link, // to another page of the index or to a letter
  index_letter,
  index_key,
  index_second,
  index_place,
  index_more, // places of a key that aren't listed
  source_page,
  source_line,
  colour,    // by what it is: keyword, comment, string, number, directive
  name_link, // a known name in a declaration
  own_name,  // in a signature: the name of what is declared
  sitemap,
  sitemap_item,
  class_page, // all classes that are derived from each other
  class_item,
  lost_page, // for addresses that aren't there
  part_page, // texts of members that had no room on their page
  similar_page,
  similar_item,
  moved_page,
  skipped_page,
  skipped_item,
  skipped_note,
  // Documents in one file and help projects
  document,
  section /* by style */,
  document_contents,
  contents_item,
  document_index,
  topic /* by style */,
  popup,
  project_line,
  map_line,
  last_rule
};
constexpr std::size_t vlt_rule_count = static_cast<std::size_t>(gVltRule::last_rule);

namespace Vlt {

struct gRuleInfo {
  gVltRule rule;
  std::string_view name;             // in the script, behind "@"
  bool selectable;                   // may be written for one parameter
  std::span<gVltValue const> values; // what its template may show
};

gRuleInfo const & info(gVltRule rule);
std::optional<gVltRule> rule_named(std::string_view name);
std::string_view name_of(gVltValue value);
std::optional<gVltValue> value_named(std::string_view name);

} // namespace Vlt

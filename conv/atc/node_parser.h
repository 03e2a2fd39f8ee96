// Makes the tree of a unit's content.
#pragma once

#include "conv/atc/document.h"
#include "conv/atc/scanner.h"

// Total: what is out of place is reported and passed over, what isn't closed ends with what it
// stands in.
class gNodeParser {
public:
  explicit gNodeParser(gAtcScanner & scanner) : scanner_(scanner) {}

  // The content of a unit, up to its @end, a command that isn't part of a unit, or the end of the
  // stretch.
  gUnitText unit_text();
  // Whether that @end was there, and where it begins.
  bool ended() const { return ended_; }
  std::size_t end_position() const { return end_; }

  // The text of a command whose "{" comes next.
  gNodeList braced_text();

private:
  // What a list of blocks stands in, and so what ends it.
  enum class In { unit, subentry, item, cell, quote };
  // One open list of blocks.
  struct Flow {
    gNodeList & blocks;
    In in;
    gNodeList run = {}; // inline nodes of the paragraph that is being read
  };

  // Inline text
  gNode text_of_token();
  // `part_words`: the blanks around commands are lost there.
  void add_text(gNodeList & run, bool part_words);
  void add_inline(gNodeList & run, bool part_words);
  gNode inline_node();
  gNode reference();
  gNode macro();
  void index_entry(gNodeList & run);
  void braced_into(gNode & node);
  gNodeList braces_for(gAtcCommandInfo const & command, int line);

  // Blocks
  void blocks(gNodeList & out, In in);
  bool block_command(Flow & flow); // false: it ends the blocks, and was given back
  bool unit_part(Flow & flow);
  bool text_part(Flow & flow);
  void flush(Flow & flow);
  void subentry(Flow & flow);
  gNode title_of_subentry();
  void headline(gNodeList & out);
  void verbatim(gNodeList & out);
  void link_line(gNodeList & out);

  // Lists, tables and hierarchies
  void list(gNodeList & out);
  void quote(gNodeList & out);
  void table(gNodeList & out);
  void content_into(gNodeList & out, gNodeKind kind, In in);
  bool next_part();
  void hierarchy(gNodeList & out);
  bool hierarchy_part(gNode & node, std::string & role);
  void step(gNode & node, std::string const & role);
  void step_property(gNode & node);

  gNode node(gNodeKind kind) const;
  bool enter(); // one level deeper; false, after a report, at the limit
  void misplaced();

  static constexpr int deepest = 200;

  gAtcScanner & scanner_;
  gUnitText unit_;
  gNodeList toc_of_headline_;
  int depth_ = 0;
  bool too_deep_ = false;
  bool exact_ = false; // the writer has kept all blanks
  bool ended_ = false;
  std::size_t end_ = 0;
};

// A comment of another documentation system while it is read: what its lines are (foreign_text.cc),
// and what becomes of them (foreign_parts.cc).
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "ana/comments/foreign_tags.h"
#include "ana/comments/foreign_text.h"

class gForeignComment {
public:
  gForeignComment(std::string_view comment, bool behind);
  gForeignText translate();

private:
  struct Line {
    std::string_view text; // without the blanks at both ends
    std::string_view whole;
    std::size_t indent = 0;
  };

  std::vector<Line> split(std::string_view comment) const;
  void strip_openers(bool behind);
  void measure();

  void read_line(std::size_t & i);
  void read_parts(Line const & line);
  void read_part(std::string_view text, std::size_t indent);
  bool read_fence(std::size_t & i);
  bool read_indented(std::size_t & i);
  bool read_tag(std::string_view text, std::size_t indent);
  bool read_item(std::string_view text, std::size_t indent);
  std::string from_xml(std::string_view text) const;

  void take_tag(gForeignTag const & tag, std::string_view rest, std::size_t indent);
  void open_entry(std::string_view entry, std::size_t indent);
  void open_named(std::string_view entry, std::string_view rest, std::size_t indent);
  void take_topic(gForeignTag const & tag, std::string_view rest);
  void take_about(std::string_view rest);
  void take_references(std::string_view rest);
  void put_title(std::string_view title);
  void add(std::string_view text, std::size_t indent);
  void begin_item(std::size_t indent);
  void end_paragraph();
  void flush();
  void put_verbatim(std::vector<Line> const & lines);

  std::vector<Line> lines_;
  std::size_t line_feeds_ = 0; // that the result may have
  bool described_ = false;     // the description has text
  gForeignText result_;
  std::string out_, paragraph_;
  std::string entry_{"@description"};
  std::set<std::string> used_;     // subentries
  std::set<std::string> unclosed_; // ends of blocks that don't come any more
  bool in_item_ = false;
  bool in_references_ = false;
  bool break_pending_ = false; // an empty line came
  bool has_text_ = false;      // the subentry has text in front of what comes next
  std::size_t entry_indent_ = 0;
  std::size_t item_indent_ = 0;
};

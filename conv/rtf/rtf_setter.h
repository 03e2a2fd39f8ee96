// Sets the text of units as RTF.
#pragma once

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "conv/set/kinds.h"
#include "conv/set/setter.h"

struct gTableShape;

// A headline inside a text, for the contents.
struct gRtfHeadline {
  int level = 1;
  std::string bookmark, title; // finished text
};

namespace Rtf {
// Headlines below that look like those at it.
constexpr int deepest_headline = 6;
int number_in(std::string_view text, int fallback);
} // namespace Rtf

// Documents and help topics are set alike; what leads where is theirs to say.
class gRtfSetter : public gSetter {
public:
  // `text_width`: of a page, in twips; `font_size`: of its text, in half points. The last two are
  // for index marks.
  gRtfSetter(gDocument const & document, gVltRules const & rules, gKinds const & kinds,
             int text_width, int font_size, std::string index_separator = {},
             std::string place_holder = {});

  // Texts that follow belong to this unit; -1 for running heads.
  // Headlines in them are that much deeper than they say.
  void begin_unit(int unit, int level = 0);
  // A headline, subject line or running head.
  std::string set_line(gNodeList const & nodes) { return set(nodes); }
  // What stands below a headline, behind the margin notes of that; and the link lines.
  void set_body(gNodeList const & blocks, std::string & text, std::string & links);
  std::vector<gRtfHeadline> take_headlines() { return std::exchange(headlines_, {}); }
  // The finished texts of index marks, levels apart, for the five fields of an entry.
  std::vector<std::string> index_marks(std::string const (&fields)[5]) const;
  using gSetter::escape;
  void escape(std::string_view text, std::string & out) const override;
  using gSetter::macro_text;

protected:
  gLinkEnd link_end(gTarget const & target) override;
  std::string anchor(std::string_view bookmark) override;
  std::string headline_anchor(gNode const & node) override;
  std::string headline_level(gNode const & node) const override;
  void set_verbatim(gNode const & node, bool declaration, std::string & out) override;
  void set_note(gNode const & node, std::string & out) override;
  void set_table(gNode const & node, std::string & out) override;
  void set_index_entry(gNode const & node, std::string & out) override;
  void set_block(gNode const & node, std::string & out) override;
  void set_item(gNode const & item, std::string & text, std::string & below) override;
  std::string indentation() const override;
  std::string step_indentation(int depth) const override;
  std::string measure(gNode const & node) const override;

private:
  std::string take_margin_notes() { return std::exchange(margin_notes_, {}); }
  // Of the current list, in twips. Deep lists and trees stay on the page.
  int indent() const { return fitted(list_level() * list_indent_); }
  int fitted(int space) const { return std::min(space, text_width_ * 2 / 3); }
  std::string cell_text(gNodeList const & nodes);
  std::string row_definition(gTableShape const & shape, std::vector<int> const & ends,
                             std::size_t row, std::string_view style) const;
  void set_own_note(gNode const & node, std::string & out);

  gKinds const & kinds_;
  int text_width_, font_size_;
  int list_indent_, step_indent_;
  std::string index_separator_, place_holder_;
  std::string margin_notes_;
  bool in_note_ = false;
  std::set<std::string> placed_; // bookmarks that stand in the text
  std::vector<gRtfHeadline> headlines_;
  int headlines_done_ = 0, level_above_ = 0;
};

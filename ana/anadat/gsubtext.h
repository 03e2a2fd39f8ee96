// The text of one subentry of a text unit.
#pragma once

#include "vlb/gstrlist.h"

class gSubText : public gStrList {
public:
  using gStrList::gStrList;
  gSubText() = default;
  gSubText(gStrList const & list) : gStrList(list) {}
  gSubText(gStrList && list) noexcept : gStrList(std::move(list)) {}

  // Keeps the paragraph structure: a run of white-space elements becomes one element that holds
  // one blank, and there is none at the start. The pieces of a verbatim block stay untouched.
  void wsp_norm() override;

  // The common indentation of the lines, in columns, with `tab_width` columns for a tab. The first
  // line doesn't count, nor do lines of white space alone, nor verbatim blocks inside the text.
  int common_indent(int tab_width) const;
  // Removes up to `n` columns from each line's head; tabs become `tab_width` blanks everywhere.
  void strip_indent(int n, int tab_width);
  // Puts `n` blanks in front of the text, unless it begins with a line feed, and behind each line
  // feed.
  void add_indent(int n);
};

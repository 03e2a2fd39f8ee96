// The templates of a run: unit, section and table templates by name.
#pragma once

#include "ana/anadat/table_template.h"
#include "store/cmapobj.h"
#include "store/gglobalobj.h"
#include "vlb/gstrlist.h"

// A typed map with the maps "unittpl", "secttpl" and "table" at the top.
class gTemplates : public gGlobalObj, public cMapObj {
public:
  // Fills in the two default templates.
  void init() override;
  // Goes back to the defaults alone.
  void reset() override;

  // Adds a subentry at the end of UTPL_Default, unless it is there. Without a title its text stands
  // alone.
  void add_subentry(std::string_view name, std::string_view title);

  // The value under a path such as {"unittpl", name, "hdline"}; null if it is unset.
  cRef<cObj> get(std::initializer_list<std::string_view> path) const;
  // The same as text or list; empty if it is unset.
  gStrList list(std::initializer_list<std::string_view> path) const;
  gString text(std::initializer_list<std::string_view> path) const;
  bool flag(std::initializer_list<std::string_view> path) const;
  bool has(std::initializer_list<std::string_view> path) const;
  // Those of tables, as values.
  gTableTemplates tables() const;
};

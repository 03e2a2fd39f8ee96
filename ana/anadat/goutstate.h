// What the output commands share while the script runs.
#pragma once

#include <list>
#include <map>
#include <set>
#include <vector>

#include "ana/anadat/gunitlook.h"
#include "vlb/gpathstring.h"

// One half of a filter predicate: the values, and whether the unit's value must be among them.
struct gAttrTest {
  std::set<gString> values;
  bool equal = true;
};

// A filter predicate, by attribute name. An empty one tests nothing.
using gPredicate = std::map<gString, gAttrTest>;

enum class gSortMode { name = 0, ci_name = 1, unit_loc = 2, ce_loc = 3 };

struct gOutState : cShared {
  gPathstring cur_dir;                // base of relative entries of the path filter
  std::list<gPathstring> path_filter; // empty: no test
  std::list<gPathstring> file_filter; // empty: no test
  gPredicate attr_filter;
  gString class_filter; // empty: no test
  bool miss_output = true;
  gSortMode sort_mode = gSortMode::unit_loc;
  std::vector<gString> class_stack; // the open class blocks; $curclass is the last
  gString section_template;

  // How units of this type look in the current section. The templates must be complete.
  cRef<gUnitLook const> unit_look(gString const & unit_type);

private:
  std::map<std::pair<gString, gString>, cRef<gUnitLook const>> looks_; // section template, type
};

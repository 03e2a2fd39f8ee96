// The members of a class or of a source, in the groups and the order in which readers look for
// them.
#pragma once

#include "conv/htm/site.h"

struct gMemberGroup {
  std::string name;       // what rules select by
  std::vector<int> units; // overloads one behind the other
};

namespace Members {

// Those that are shown, of units that stand below one.
std::vector<gMemberGroup> groups_of(gSite const & site, std::span<int const> units);
// What stands above a group of these units; finished text.
std::string title_of(gSite const & site, std::string const & group, int unit);
// A name for the place of the group, of letters that an address can have.
std::string place_of(std::string const & group);
// The scope that most of the units stand in which are meant for users.
std::string_view common_scope(gSite const & site, std::span<int const> units);
// Of overloads: the parameters, as stretches of each one's declaration, whose types the others
// don't all have. Nothing where that is all of them.
std::vector<std::vector<gStretch>> differences(gSite const & site, std::span<int const> overloads);

} // namespace Members

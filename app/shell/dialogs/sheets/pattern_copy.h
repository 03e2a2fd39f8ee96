// The private copy that the pages of the source patterns share.
#pragma once

#include <string>
#include <vector>

#include "app/options/pattern_rules.h"
#include "app/options/unitconfig_rules.h"
#include "store/cmapobj.h"

// A tree with the source patterns, the subentries and the subentries of the unit types, each under
// its path of the options, so that the rules work on it as on the project.
class gPatternCopy {
public:
  // Takes all from the project again.
  void read();
  // Writes one of the three into the project if it differs; answers whether it did.
  bool store_patterns() const;
  bool store_subentries() const;
  bool store_config() const;

  cMapObj & tree() { return tree_; }
  cMapObj & patterns() { return ana("srcpat_unit"); }
  cMapObj & subentries() { return ana("srcpat_subentry"); }
  // The subentries of a unit type; null if it has none.
  cMapObj * config(std::string const & unit_type);

  // The attributes of the project as they are now. Drops what patterns use of those that are gone;
  // true if there was something.
  bool read_attributes();

  // An optional pattern comes and goes with its option.
  void optional_pattern(std::string const & name, bool on);

  // A subentry leaves the unit types, too.
  void remove_subentry(std::string const & name);
  // The new subentries that come without a keyword, because their own is another's already, with
  // its holder.
  struct Taken {
    std::string subentry, holder;
  };
  std::vector<Taken> add_set(Vapp::gSubentrySet set);
  void remove_set(Vapp::gSubentrySet set);

  // Makes a subentry one of a unit type.
  void permit(std::string const & unit_type, std::string const & subentry);
  void forbid(std::string const & unit_type, std::string const & subentry);

private:
  cMapObj & ana(char const * key) { return tree_.submap("ana").submap(key); }
  void forbid_everywhere(std::string const & subentry);

  cMapObj tree_;
};

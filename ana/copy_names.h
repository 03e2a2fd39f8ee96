// Which unit a comment means whose text it wants.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "ana/anadat/gdocunit.h"

class gCopyNames {
public:
  // All units of the run. The tables own them.
  void collect();

  // The unit that `written`, perhaps with parameters, names from where `unit` stands: in its own
  // scope and those around, from the inside out, in bases of each class among them, then among
  // topics and pages. Without a name, what the bases have under the unit's own name, or the base
  // of a class. Never the unit itself; null if there is none.
  gDocUnit * find(gDocUnit const & unit, std::string const & written) const;
  // The whole name of what a plain name means there; empty if nothing has it.
  std::string whole_name(gDocUnit const & unit, std::string_view name) const;
  // Whether it is a class with bases, or stands in one.
  bool has_bases(gDocUnit const & unit) const;

private:
  using Units = std::vector<gDocUnit *>;
  struct Wanted; // a name, taken apart

  void add(gDocUnit & unit);
  gDocUnit * choose(std::string const & name, Wanted const & wanted) const;
  gDocUnit * in_scopes(Wanted const & wanted) const;
  gDocUnit * in_bases(std::string const & scope, Wanted const & wanted) const;
  gDocUnit * of_base(gDocUnit const & unit) const;

  std::unordered_map<std::string, Units> units_; // by language and whole name
  std::unordered_map<std::string, gDocUnit *> topics_;
};

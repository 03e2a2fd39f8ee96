// The classes of a language with their bases, and the walks over them.
#pragma once

#include "ana/anadat/gbaseclause.h"
#include "ana/anadat/gdocunit.h"
#include "store/ghash.h"

struct gDerivedList : cShared {
  std::vector<gBaseEntry> entries; // derived classes in the order of reading
};

// Keeps each edge of the graph twice, by class and by base, under plain names: a class can be a
// base without being known itself. The first clause of a class counts. A walk ends where it comes
// to a class that is on its path, and below 256 levels; a block ends after 10,000 classes, in the
// modern dialect after 1,000, of which those nearest to the class are taken.
class gClassTable : public gGlobalHash<cRef<gBaseClause>> {
public:
  void insert_class(gString const & name, cRef<gBaseClause> const & bases);

  // The height of a class above the top of the part that `limit` levels show.
  int class_level(gString const & name, int limit) const;
  // The block of a unit's class hierarchy in intermediate code; empty if both levels show nothing.
  gStrList hierarchy(gString const & name, gOutline const & from, int up, int down) const;

  void reset() override;

private:
  struct Walk; // the names on the current path, and the referring unit's place
  int class_level(gString const & name, int limit, Walk & walk) const;
  void base_list(gStrList & out, gString const & name, int level, Walk & walk) const;
  gStrList bases_of(gString const & name, int level, Walk & walk) const;
  gStrList derived_of(gString const & name, int limit, int level, Walk & walk) const;
  template <class Find>
  static void make_plan(Walk & walk, gString const & name, int level, int step, int levels,
                        Find const & find);
  void derived_list(gStrList & out, gString const & name, int limit, int level, Walk & walk) const;

  gHash<cRef<gDerivedList>> derived_;
};

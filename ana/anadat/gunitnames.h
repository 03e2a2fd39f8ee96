// All units by name.
#pragma once

#include <vector>

#include "ana/anadat/gdocunit.h"
#include "store/ghash.h"

struct gUnitList : cShared {
  std::vector<cRef<gDocUnit>> units; // in the order of entry
};

// One search at a time: find() begins it, next() goes on with it.
class gUnitNameTable : public gGlobalHash<cRef<gUnitList>> {
public:
  void add(gString const & name, cRef<gDocUnit> const & unit);

  // Looks for `name` and, if `sep` isn't empty, then for ever shorter tails of it behind a `sep`.
  bool find(gString const & name, cRef<gDocUnit> & unit, gString const & sep);
  bool next(cRef<gDocUnit> & unit);
  using gHash::find;

  void reset() override;

private:
  cRef<gUnitList> list_; // null: no search
  std::size_t position_ = 0;
  gString key_, sep_;
};

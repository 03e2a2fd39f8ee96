// The association as a plain search, to compare the real one with.
#pragma once

#include "ana/alloc_options.h"
#include "ana/anadat/tables.h"

// Walks every list from its top for every element, and lets displaced elements search again by
// calling itself: slow, deep, and easy to see through.
class LiteralAssociation {
public:
  explicit LiteralAssociation(gAllocOptions const & options) : options_(options) {}
  void associate(cRef<gCodeElem> const & ce);

private:
  bool try_method(int method, cRef<gCodeElem> const & ce, int rank);
  template <class Table>
  bool near(Table const & table, cRef<gCodeElem> const & ce, bool before, bool comment, int rank);
  bool named(cRef<gCodeElem> const & ce, int first, int end, int rank);
  bool far(cRef<gCodeElem> const & ce, bool folders, int rank);
  template <class Text> bool take(Text & text, cRef<gCodeElem> const & ce, int rank);
  bool should_generate(gCodeElem const & ce) const;

  gAllocOptions options_;
};

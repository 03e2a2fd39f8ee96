// The search for the text of a code element.
#pragma once

#include <memory>
#include <unordered_map>

#include "ana/alloc_options.h"
#include "ana/anadat/tables.h"
#include "ana/unit_index.h"

// Binds code elements to comments and units by the methods of the options. The names of all units
// must stay as they are while it lives.
class gAssociation {
public:
  explicit gAssociation(gAllocOptions const & options) : options_(options) {}

  // Finds a text for an element; one that loses its text by this searches again.
  void associate(cRef<gCodeElem> const & ce);
  // True if an element without a text gets a unit of its own.
  bool should_generate(gCodeElem const & ce) const;

private:
  // What a search came to: whether a text was found, and the element that lost it.
  struct Outcome {
    bool bound = false;
    cRef<gCodeElem> displaced;
  };
  // The whole name of an element, joined when it is asked for.
  struct Name {
    gCodeElem const & element;
    gString text;
    gString const & get();
  };
  template <class Text> static Outcome take(Text & text, cRef<gCodeElem> const & ce, int rank);
  template <class Table>
  Outcome take_near(Table const & table, cRef<gCodeElem> const & ce, bool before, bool comment,
                    int rank) const;
  Outcome take_named(cRef<gCodeElem> const & ce, Name & name, bool before, int rank);
  Outcome take_far(cRef<gCodeElem> const & ce, Name & name, bool folders, int rank);
  Outcome try_method(int method, cRef<gCodeElem> const & ce, Name & name, int rank);
  Outcome search(cRef<gCodeElem> const & ce);
  gFileUnits * units_of(gSrcFile const & file);

  gAllocOptions options_;
  // By the tables' own records, which stay where they are.
  std::unordered_map<void const *, std::unique_ptr<gFileUnits>> file_units_;
  std::unordered_map<void const *, std::unique_ptr<gFarNamesakes>> far_units_;
};

// What of the elements of all sources may be one thing.
#pragma once

#include <compare>
#include <vector>

#include "ana/anadat/gcodeelem.h"

bool has_mark(gCodeElem const & element, std::uint32_t mark);
bool is_unnamed(gCodeElem const & element);
// What kinds of things can be one. 0: nothing else is ever the same thing.
char family_of(gCodeElem const & element);
bool is_c_source(gCodeElem const & element);
// Known to one source alone.
bool is_local(gCodeElem const & element);
// What tells overloads apart; empty for all but functions.
std::string_view signature_of(gCodeElem const & element);

// What may be one thing with others, as numbers: family, language and name with what tells sources
// apart; then what tells overloads apart. Sorted by these, what belongs together stands together,
// at a fraction of the cost of texts as keys. Equal numbers are to be looked at closely.
struct gJoinKey {
  std::size_t name, signature;
  std::size_t item;
  auto operator<=>(gJoinKey const &) const = default;
};
using gJoinKeys = std::vector<gJoinKey>;

// The hash of an element's whole name; `name` is memory that is used again and again, and holds the
// name afterwards.
std::size_t name_hash(gCodeElem const & element, std::string & name);
gJoinKey key_of(gCodeElem const & element, std::size_t name_hash, std::size_t item);
// True if the two agree in what gJoinKey::name stands for.
bool has_same_name(gCodeElem const & a, gCodeElem const & b);

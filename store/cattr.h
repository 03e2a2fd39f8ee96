// A proxy for an entry of a container, for use within an expression.
#pragma once

#include <vector>

#include "store/cattrhash.h"
#include "store/cobj.h"

// Stands for a path of keys below a container; the entry need not exist. Reading creates nothing.
// Writing creates the entry, and the containers on the way as maps.
class cAttr {
public:
  cAttr(cObj & base, cKey key) : base_(&base) { path_.push_back(std::move(key)); }
  cAttr(cAttr const &) = default;

  // Stores the reference itself, not a copy; null is stored as nil.
  cAttr & operator=(cRef<cObj> const & value);
  cAttr & operator=(cAttr const & other);

  cAttr operator[](char const * key) const { return deeper(cKey(std::string_view(key))); }
  cAttr operator[](std::string const & key) const { return deeper(cKey(key)); }
  cAttr operator[](cRef<cObj> const & key) const;
  cAttr operator[](int key) const { return deeper(cKey(key)); }

  // The value; a missing entry is created with a nil value.
  cObj & operator*() const;
  cObj * operator->() const { return &**this; }
  // The value, or null.
  cRef<cObj> getattr() const;
  operator cRef<cObj>() const { return getattr(); }
  // The value; one of another type is replaced by a new object of that type.
  cRef<cObj> force_type(cTypeObj const & type);

  // True if both stand for equal values.
  bool operator==(cAttr const & other) const;

private:
  cAttr deeper(cKey key) const;
  // The container that holds the last key, made where missing.
  cMapObj * make_parent() const;

  cObj * base_;
  std::vector<cKey> path_;
};

namespace cat {
// The key that an object stands for: a number for an int, else its text.
cKey key_of(cRef<cObj> const & key);
} // namespace cat

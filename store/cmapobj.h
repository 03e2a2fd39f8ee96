// Containers of stored values: maps in the order of insertion, and vectors.
#pragma once

#include "store/cattr.h"
#include "store/cattrhash.h"
#include "store/citerobj.h"
#include "store/cobj.h"

// A map from text or number keys to values. Copying the object shares the values: detach() gives
// the copy its own. clone() and assign() copy deeply.
class cMapObj : public cObj {
public:
  cMapObj();
  cMapObj(cMapObj const & other) = default;
  cMapObj & operator=(cMapObj const & other);

  using cObj::map;
  cMapObj * map() override { return this; }

  // The map under a key, created if there is none (or something else).
  cMapObj & submap(std::string const & key);
  cMapObj & submap(cRef<cObj> const & key);
  // Gives this map private copies of values that others hold too; with `deep` at all levels.
  void detach(bool deep);
  // Stores a value under a key; the reference itself, not a copy.
  void set(cKey const & key, cRef<cObj> const & value);
  void set(std::string_view key, cRef<cObj> const & value) { set(cKey(key), value); }
  // The place of a key's value, made with nil where it is missing.
  cRef<cObj> & slot(cKey const & key);
  bool erase(std::string_view key);
  void clear() { entries_.clear(); }
  void sort_by_key() { entries_.sort_by_key(); }

  cAttrHash const & entries() const { return entries_; }
  cAttrHash & entries() { return entries_; }

  cRef<cObj> clone() const override;
  bool assign(cObj const & other) override;
  bool add(cObj const & other) override;
  bool equal(cObj const & other) const override;
  bool less(cObj const & other) const override;
  bool is_void() const override { return entries_.size() == 0; }

protected:
  explicit cMapObj(cTypeObj * type) : cObj(type) {}

private:
  cAttrHash entries_;
};

// A map with the keys 0, 1, 2 and so on.
class cVectorObj : public cMapObj {
public:
  cVectorObj();
  cVectorObj(cVectorObj const & other) = default;
  cVectorObj & operator=(cVectorObj const & other) = default;

  using cMapObj::erase;
  // Removes the elements from `first` up to, not including, `last`.
  void erase(int first, int last);
};

// A position in a container.
#pragma once

#include "store/cattrhash.h"
#include "store/cobj.h"

// The container must outlive the position. Goes through the entries in their order:
//   for (cIterObj it = map->begin(); it.valid(); it++)
class cIterObj : public cObj {
public:
  explicit cIterObj(cMapObj const * container, int position = 0);
  cIterObj(cIterObj const &) = default;
  cIterObj & operator=(cIterObj const & other);

  bool valid() const;
  cRef<cObj> key() const;
  std::string key_as_string() const;
  // The value at the position; null if the position isn't valid.
  cRef<cObj> valref() const;
  // The same without a count; the position must be valid.
  cObj & operator*() const;
  cObj * operator->() const { return &**this; }

  int pos() const { return position_; }
  virtual void setpos(int position) { position_ = position; }
  // Goes to a key; false, and no change, if it isn't there.
  bool setkey(std::string_view key);
  bool setkey(int key);
  cIterObj operator++(int);
  cIterObj & operator++();
  bool operator==(cIterObj const & other) const;

  cRef<cObj> clone() const override { return make_ref<cIterObj>(*this); }
  bool assign(cObj const & other) override;
  bool equal(cObj const & other) const override;
  bool is_void() const override { return !valid(); }

protected:
  cIterObj(cTypeObj * type, cMapObj const * container);
  cMapObj const * container() const { return container_; }

private:
  cMapObj const * container_;
  int position_;
};

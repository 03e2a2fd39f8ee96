// A proxy walks its path anew for each access, so it never points into a container that changed.
#include "store/cmapobj.h"
#include "store/ctypeobj.h"

cAttr & cAttr::operator=(cRef<cObj> const & value) {
  cRef<cObj> const kept = value ? value : cat::make_nil();
  if (cMapObj * parent = make_parent())
    parent->set(path_.back(), kept);
  return *this;
}

cAttr & cAttr::operator=(cAttr const & other) {
  return *this = other.getattr();
}

cAttr cAttr::operator[](cRef<cObj> const & key) const {
  return deeper(cat::key_of(key));
}

cObj & cAttr::operator*() const {
  cMapObj * parent = make_parent();
  if (!parent)
    return *base_;
  return *parent->slot(path_.back());
}

cRef<cObj> cAttr::getattr() const {
  cObj const * at = base_;
  cRef<cObj> value;
  for (cKey const & key : path_) {
    cMapObj const * map = at->map();
    int const position = map ? map->entries().find(key) : -1;
    if (position < 0)
      return nullptr;
    value = map->entries().node(position).value;
    at = value.get();
    if (!at)
      return nullptr;
  }
  return value;
}

cRef<cObj> cAttr::force_type(cTypeObj const & type) {
  cRef<cObj> value = getattr();
  if (!value || &value->type() != &type)
    *this = value = cat::new_of(type);
  return value;
}

bool cAttr::operator==(cAttr const & other) const {
  cRef<cObj> const a = getattr();
  cRef<cObj> const b = other.getattr();
  if (cat::is_nil(a) || cat::is_nil(b))
    return cat::is_nil(a) == cat::is_nil(b);
  return a->equal(*b);
}

cAttr cAttr::deeper(cKey key) const {
  cAttr result(*this);
  result.path_.push_back(std::move(key));
  return result;
}

cMapObj * cAttr::make_parent() const {
  cMapObj * at = base_->map();
  for (std::size_t i = 0; at && i + 1 < path_.size(); ++i) {
    cRef<cObj> & value = at->slot(path_[i]);
    if (!value->map())
      value = make_ref<cMapObj>();
    at = value->map();
  }
  return at;
}

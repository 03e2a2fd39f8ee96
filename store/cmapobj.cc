// Values are never null inside a container: a missing value is nil.
#include "store/cmapobj.h"

#include <algorithm>

cMapObj::cMapObj() : cObj(&cat::type_map()) {}

cMapObj & cMapObj::operator=(cMapObj const & other) {
  if (entries_.is_vector() == other.entries_.is_vector())
    entries_ = other.entries_;
  return *this;
}

cMapObj & cMapObj::submap(std::string const & key) {
  cRef<cObj> value = at(key);
  if (!value || &value->type() != &cat::type_map()) {
    value = make_ref<cMapObj>();
    set(key, value);
  }
  return *value->map();
}

cMapObj & cMapObj::submap(cRef<cObj> const & key) {
  cRef<cObj> value = getattr(key);
  if (!value || &value->type() != &cat::type_map()) {
    value = make_ref<cMapObj>();
    set(cat::key_of(key), value);
  }
  return *value->map();
}

void cMapObj::detach(bool deep) {
  for (int i = 0; i < entries_.size(); ++i) {
    cRef<cObj> & value = entries_.node(i).value;
    if (value->refcount() > 1)
      value = value->clone();
    else if (deep && value->map())
      value->map()->detach(true);
  }
}

void cMapObj::set(cKey const & key, cRef<cObj> const & value) {
  // Kept, because the reference may lie in the container that grows.
  cRef<cObj> kept = value ? value : cat::make_nil();
  slot(key) = std::move(kept);
}

cRef<cObj> & cMapObj::slot(cKey const & key) {
  int const before = entries_.size();
  int const position = entries_.insert(key);
  for (int i = before; i <= position; ++i)
    entries_.node(i).value = cat::make_nil();
  return entries_.node(position).value;
}

bool cMapObj::erase(std::string_view key) {
  int const position = entries_.find(key);
  if (position >= 0)
    entries_.erase(position, position + 1);
  return position >= 0;
}

cRef<cObj> cMapObj::clone() const {
  cRef<cMapObj> copy = entries_.is_vector() ? cRef<cMapObj>(new cVectorObj) : make_ref<cMapObj>();
  copy->assign(*this);
  return copy;
}

bool cMapObj::assign(cObj const & other) {
  cMapObj const * from = other.map();
  if (!from || from->entries_.is_vector() != entries_.is_vector())
    return false;
  // Copied first: the other may be a part of this one.
  cAttrHash copies = from->entries_;
  for (int i = 0; i < copies.size(); ++i)
    copies.node(i).value = copies.node(i).value->clone();
  entries_ = std::move(copies);
  return true;
}

bool cMapObj::add(cObj const & other) {
  cMapObj const * from = other.map();
  if (!from)
    return false;
  cAttrHash const entries = from->entries_;
  for (int i = 0; i < entries.size(); ++i) {
    cRef<cObj> copy = entries.node(i).value->clone();
    if (entries_.is_vector())
      append(copy);
    else
      set(entries.node(i).key(), copy);
  }
  return true;
}

bool cMapObj::equal(cObj const & other) const {
  cMapObj const * from = other.map();
  if (!from || entries_.is_vector() != from->entries_.is_vector() ||
      entries_.size() != from->entries_.size())
    return false;
  for (int i = 0; i < entries_.size(); ++i) {
    cAttrNode const & node = entries_.node(i);
    int const position = from->entries_.find(node.key());
    if (position < 0 || !node.value->equal(*from->entries_.node(position).value))
      return false;
  }
  return true;
}

bool cMapObj::less(cObj const & other) const {
  cMapObj const * from = other.map();
  if (!from)
    return false;
  int const common = std::min(entries_.size(), from->entries_.size());
  for (int i = 0; i < common; ++i) {
    cObj const & a = *entries_.node(i).value;
    cObj const & b = *from->entries_.node(i).value;
    if (!a.equal(b))
      return a.less(b);
  }
  return entries_.size() < from->entries_.size();
}

cVectorObj::cVectorObj() : cMapObj(&cat::type_vector()) {
  entries().set_vector();
}

void cVectorObj::erase(int first, int last) {
  entries().erase(first, last);
}

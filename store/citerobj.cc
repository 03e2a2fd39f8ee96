// A position is a number, so it stays meaningful while the container changes.
#include "store/cmapobj.h"

cIterObj::cIterObj(cMapObj const * container, int position)
    : cObj(&cat::type_nil()),
      container_(container),
      position_(position) {}

cIterObj::cIterObj(cTypeObj * type, cMapObj const * container)
    : cObj(type),
      container_(container),
      position_(0) {}

cIterObj & cIterObj::operator=(cIterObj const & other) {
  container_ = other.container_;
  position_ = other.position_;
  return *this;
}

bool cIterObj::valid() const {
  return container_ && position_ >= 0 && position_ < container_->entries().size();
}

cRef<cObj> cIterObj::key() const {
  if (!valid())
    return nullptr;
  cKey const & key = container_->entries().node(position_).key();
  return key.is_number ? cat::make(key.number) : cat::make(key.text);
}

std::string cIterObj::key_as_string() const {
  return valid() ? container_->entries().node(position_).key().as_string() : std::string();
}

cRef<cObj> cIterObj::valref() const {
  return valid() ? container_->entries().node(position_).value : nullptr;
}

cObj & cIterObj::operator*() const {
  return *container_->entries().node(position_).value;
}

bool cIterObj::setkey(std::string_view key) {
  int const position = container_ ? container_->entries().find(key) : -1;
  if (position >= 0)
    setpos(position);
  return position >= 0;
}

bool cIterObj::setkey(int key) {
  int const position = container_ ? container_->entries().find(key) : -1;
  if (position >= 0)
    setpos(position);
  return position >= 0;
}

cIterObj cIterObj::operator++(int) {
  cIterObj before(*this);
  ++position_;
  return before;
}

cIterObj & cIterObj::operator++() {
  ++position_;
  return *this;
}

bool cIterObj::operator==(cIterObj const & other) const {
  return container_ == other.container_ && position_ == other.position_;
}

bool cIterObj::assign(cObj const & other) {
  auto const * from = dynamic_cast<cIterObj const *>(&other);
  if (from && from->container_ == container_)
    setpos(from->position_);
  return from && from->container_ == container_;
}

bool cIterObj::equal(cObj const & other) const {
  auto const * from = dynamic_cast<cIterObj const *>(&other);
  return from && *this == *from;
}

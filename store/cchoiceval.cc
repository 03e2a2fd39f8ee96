// A choice is a position in the map of labels that belongs to its type.
#include "store/cchoiceval.h"

cChoiceVal::cChoiceVal(cTypeObj * type, bool growing)
    : cIterObj(type, &type->choices()),
      growing_(growing) {}

cChoiceVal::cChoiceVal(cChoiceVal const & other) : cIterObj(other), growing_(other.growing_) {}

cChoiceVal & cChoiceVal::operator=(int position) {
  setpos(position);
  return *this;
}

cChoiceVal & cChoiceVal::operator=(cChoiceVal const & other) {
  if (container() == other.container())
    setpos(other.pos());
  return *this;
}

void cChoiceVal::setpos(int position) {
  int const end = container()->size() + (growing_ ? 1 : 0);
  if (position < 0 || position >= end || position == pos())
    return;
  cIterObj::setpos(position);
  update();
}

void cChoiceVal::update() {
  sig_changed_();
}

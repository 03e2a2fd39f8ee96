// A selection out of the labels of a choice type.
#pragma once

#include "store/csignal.h"
#include "store/ctypeobj.h"

// A position in the choices of its type. A fixed set refuses positions outside of it; a growing
// one also takes the position behind the end.
class cChoiceVal : public cIterObj {
public:
  cChoiceVal(cTypeObj * type, bool growing);
  cChoiceVal(cChoiceVal const & other);

  // Selects by position; a position that isn't in the set is ignored.
  cChoiceVal & operator=(int position);
  cChoiceVal & operator=(cChoiceVal const & other);
  void setpos(int position) override;
  // Called after the selection changed; tells those who are connected.
  virtual void update();
  cSignal const & sig_changed() const { return sig_changed_; }

  cRef<cObj> clone() const override { return make_ref<cChoiceVal>(*this); }

private:
  bool growing_;
  cSignal sig_changed_;
};

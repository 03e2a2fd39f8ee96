// Never destroyed, since slots with static life may go later than any signal here.

#include "app/shell/signals.h"

cSignal & sig_inittemplates() {
  static cSignal & signal = *new cSignal;
  return signal;
}

cSignal & sig_init() {
  static cSignal & signal = *new cSignal;
  return signal;
}

cSignal & sig_idle() {
  static cSignal & signal = *new cSignal;
  return signal;
}

cSignal & sig_onhelpfinder() {
  static cSignal & signal = *new cSignal;
  return signal;
}

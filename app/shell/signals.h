// What the program as a whole tells to whoever listens.
#pragma once

#include "store/csignal.h"

cSignal & sig_inittemplates(); // once, just before sig_init
cSignal & sig_init();          // once, behind the first show of the window and the command line
cSignal & sig_idle();          // at each idle pass of the message loop
cSignal & sig_onhelpfinder();  // the message window asks for the help

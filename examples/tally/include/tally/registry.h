#pragma once

#include <map>

#include "tally/meter.h"

/* @class
   All meters of a program by name.

   @comment The loop over all meters is short:
   @cite<report_loop>
   @hid<registry_of_meters> @hidalias<overflow> */
class Registry {
public:
  /* @method Enters a meter.
     @return False if the name is taken. */
  bool enter(Meter & meter);

  /* @method Writes a line for each meter, sorted by name. */
  void report() const;

  /* @member How many meters there are at most. */
  static int const limit = 4096;

private:
  std::map<std::string, Meter *> meters_;
};

/* @function
   The registry of the whole program.
   @return The same object at every call.
   @description It is made at the first call, and never destroyed. */
Registry & registry();

/* @var True while meters count. */
extern bool enabled;

/* @type The unit of times, in nanoseconds. */
typedef long long Ticks;

#pragma once

#include "tally/meter.h"

/* @class
   Counts events. A counter only ever goes up; see @cref<overflow> for
   what happens at the end of the range.

   @hdline{How to count}{$name}
   @xe<{counter}for events{event}counted> */
class Counter : public Meter {
public:
  using Meter::Meter;

  /* @method
     Counts.
     @parameter
     @enum ´n´ is the number of events; it must not be negative
     @enum without a parameter one event is counted

     @bookmark<overflow>
     @comment At @kbd{LONG_MAX} the counter stays where it is.
     @footnote{No meter of this library wraps around.} */
  void add(long n = 1);

  long read() const;

private:
  long count_ = 0; // events so far
};

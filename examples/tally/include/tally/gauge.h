#pragma once

#include "tally/meter.h"

/* How a gauge treats values out of its limits. */
enum Clamp { clamp_keep, clamp_cut };

/* @class The range of a gauge. */
class Limits {
public:
  long lower = 0;    // the lowest value that a gauge shows
  long upper = 1000; // the highest

  // @method True if the value needs no cutting.
  bool hold(long value) const { return lower <= value && value <= upper; }
};

/* @class @style<Gauge>
   Follows a value that goes up @em{and} down, such as the length of a queue.

   The limits are checked like this:

   @b_table<Plain>
   @row @cell{below the lower limit} @cell{´clamp_cut´ stores the limit}
   @row @cell{above the upper limit} @cell{the same@footnote{Both at once can't be.}}
   @e_table

   @b_verbatim
       Gauge queue("queue", clamp_cut);
       queue.set(12);
   @e_verbatim */
class Gauge : public Meter, protected virtual Limits {
public:
  Gauge(std::string const & name, Clamp clamp);

  /* @method Stores a value.
     @parameter value: cut to the limits, or kept, as the constructor was told. */
  void set(long value);

  long read() const;

protected:
  long value_ = 0;
};

/* @class A gauge that also keeps the highest value. */
class PeakGauge : public Gauge {
public:
  /* @method The highest value since the start or the last @cref<reset>. */
  long peak() const;
};

#pragma once

#include <string>

/* ------------------------------------------------------------------------
   @class
   A named thing that can be measured. All meters share this interface, so
   that a ´´Registry´´ can hold any of them.

   A meter is @dfn{cheap} to update: ´add()´ and its kin touch one word of
   memory. Reading may cost more.

   @comment Write a class of your own when neither @cref<Counter> nor
   @cref<Gauge>{a gauge} fits.@endp
   @crefll<choosing>{How to choose a meter}
   @classhierarchy<down=2>
   ------------------------------------------------------------------------ */
class Meter {
public:
  explicit Meter(std::string const & name);
  virtual ~Meter();

  /* @method
     The current value, rounded to an integer.
     @return @em{Never} negative. */
  virtual long read() const = 0;

  // @method
  // Forgets all that was measured. @set<STATE><draft>
  // This interface is @outattr<STATE>: it may still change.
  virtual void reset();

  /* @method @nobookmark @noxe
     What the meter is called. */
  std::string const & name() const { return name_; }

private:
  std::string name_;
};

// Running numbers as text.
#pragma once

#include <string>

class gCounter {
public:
  // The next number, beginning with 1, in decimal digits.
  std::string get_next_str() { return std::to_string(++value_); }
  void reset() { value_ = 0; }

private:
  int value_ = 0;
};

// Running numbers as numbers and text.
#pragma once

#include <string>

class gCounter {
public:
  // The next number, beginning with 1.
  int next() { return ++value_; }
  // The same in decimal digits.
  std::string get_next_str() { return std::to_string(next()); }
  // Takes `count` numbers at once; answers the first.
  int take(int count) {
    value_ += count;
    return value_ - count + 1;
  }
  void reset() { value_ = 0; }

private:
  int value_ = 0;
};

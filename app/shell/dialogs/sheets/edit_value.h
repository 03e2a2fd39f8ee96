// Couples a line to type in with a number that may be absent.
#pragma once

#include <charconv>
#include <optional>
#include <string>

#include "app/shell/dialogs/field.h"

// Whole numbers above 0; nothing stands for 0.
struct c_Int_Format_0 {
  static std::string show(int number) { return number > 0 ? std::to_string(number) : ""; }
  // Nothing for a text that isn't such a number.
  static std::optional<int> read(std::string const & text) {
    int number = 0;
    char const * const end = text.data() + text.size();
    auto const read = std::from_chars(text.data(), end, number);
    if (text.empty())
      return 0;
    if (read.ec != std::errc() || read.ptr != end || number <= 0)
      return std::nullopt;
    return number;
  }
};

template <class Format> class c_Edit_Value {
public:
  // The field must outlive this object.
  explicit c_Edit_Value(gField & field) : field_(field) {}

  void show(int number) { field_.text = Format::show(number); }
  std::optional<int> read() const { return Format::read(field_.text); }

private:
  gField & field_;
};

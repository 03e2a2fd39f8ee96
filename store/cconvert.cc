// Conversions between the types of values. Each one succeeds or fails as a whole.
#include <charconv>

#include "store/cmapobj.h"

namespace cat {

bool convert_value(cObj const & from, bool & to) {
  if (int const * number = value_of<int>(from)) {
    to = *number != 0;
    return true;
  }
  std::string const * text = value_of<std::string>(from);
  if (!text)
    return false;
  bool const yes = *text == "true" || *text == "1";
  if (!yes && *text != "false" && *text != "0")
    return false;
  to = yes;
  return true;
}

bool convert_value(cObj const & from, int & to) {
  if (bool const * flag = value_of<bool>(from)) {
    to = *flag ? 1 : 0;
    return true;
  }
  std::string const * text = value_of<std::string>(from);
  if (!text)
    return false;
  int number = 0;
  char const * const end = text->data() + text->size();
  auto const result = std::from_chars(text->data(), end, number);
  if (result.ec != std::errc() || result.ptr != end)
    return false;
  to = number;
  return true;
}

bool convert_value(cObj const & from, std::string & to) {
  if (bool const * flag = value_of<bool>(from))
    to = *flag ? "true" : "false";
  else if (int const * number = value_of<int>(from))
    to = std::to_string(*number);
  else
    return false;
  return true;
}

// A vector of texts; a single text is a list of one.
bool convert_value(cObj const & from, gStrList & to) {
  gStrList list;
  if (std::string const * text = value_of<std::string>(from)) {
    list.push_back(gString(*text));
  } else {
    if (&from.type() != &type_vector())
      return false;
    for (cIterObj it = from.begin(); it.valid(); it++) {
      std::string const * element = value_of<std::string>(*it);
      if (!element)
        return false;
      list.push_back(gString(*element));
    }
  }
  to = std::move(list);
  return true;
}

namespace {

template <class T> bool take_field(cObj const & from, char const * key, T & field, int & found) {
  cRef<cObj> const value = from.at(key);
  if (!value)
    return true;
  ++found;
  return read(value, field);
}

} // namespace

// A map of the four fields; a missing one keeps the value of a new macro.
bool convert_value(cObj const & from, gCppMacro & to) {
  if (&from.type() != &type_map())
    return false;
  gCppMacro macro;
  int found = 0;
  bool const good = take_field(from, "name", macro.name, found) &&
                    take_field(from, "parameterized", macro.parameterized, found) &&
                    take_field(from, "action", macro.action, found) &&
                    take_field(from, "interpretation", macro.interpretation, found);
  if (!good || found != from.size())
    return false;
  to = std::move(macro);
  return true;
}

} // namespace cat

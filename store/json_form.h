// JSON for stored values; the base of the text form and of the plain form for the command line.
#pragma once

#include <string>
#include <string_view>

#include "store/cobj.h"

enum class cJsonForm {
  typed, // every value comes back as it was: see text_form.h
  plain  // what a user of JSON expects: a list of text is an array, a macro an object
};

// Deeper nesting is refused on both ways.
constexpr int json_max_depth = 200;
// A text with more values than this is refused: an empty map takes fifty times its text.
constexpr int json_max_values = 1000000;

// False if the value is nested too deeply or has too many values for read_json. With `pretty` one
// entry a line.
bool write_json(cObj const & object, cJsonForm form, bool pretty, std::string & out);

struct cJsonResult {
  cRef<cObj> value; // null on failure
  int line = 0;     // of the failure
  std::string reason;
};
// Integers beyond the range of an int, fractions and repeated keys are failures.
cJsonResult read_json(std::string_view text, cJsonForm form);

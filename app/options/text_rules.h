// The rules for texts that a user types for names, values and keywords. They change nothing; a
// refusal has the words for the user.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/cmapobj.h"

namespace Vapp {

// Which field of a dialog a refusal is about: the numbers of the keyword dialog, 0 elsewhere.
enum gRefusedField { field_none = 0, field_keyword = 1, field_separators = 2, field_both = 3 };

struct gRefusal {
  int field = field_none;
  std::string message; // empty where the field is just kept
};
using gCheck = std::optional<gRefusal>; // nothing: it passes

// Puts the arguments in place of each "%s".
std::string fill_text(std::string_view text, std::initializer_list<std::string_view> arguments);
// With ", " between two.
std::string join(std::vector<std::string> const & names);
// Sends a refusal to whoever listens to error records; the code is the field, or 1.
void publish(gRefusal const & refusal);

// Names of attributes and source patterns. The text has passed cat::wsp_normalize.
gCheck check_identifier(std::string const & text);
// "@" and an identifier.
gCheck check_subentry_name(std::string const & text);
gCheck check_macro_name(std::string const & text);
// `record` is the attribute that gets the value.
gCheck check_attribute_value(std::string const & text, cObj const & record);
gCheck check_keyword(std::string const & keyword, std::string const & separators);
gCheck check_subject_separator(std::string const & text);
// A complex identifier in front of a subject line needs something between the two.
gCheck check_subject_line(int idspec, int slspec, std::string const & slsep);

} // namespace Vapp

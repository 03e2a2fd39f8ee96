// Attributes, their values, and who uses them.
#pragma once

#include <string>
#include <vector>

#include "app/options/text_rules.h"
#include "store/cmapobj.h"

namespace Vapp {

// Makes `val` of each attribute from `valpre` and `valusr`. Throws cException if an attribute has
// something else in their places.
void rebuild_values(cMapObj & options);
// Removes `val` of each attribute: it is never stored.
void drop_values(cMapObj & options);

// The source patterns that use an attribute, or one value of it.
std::vector<std::string> users_of_attribute(cObj const & options, std::string const & name);
std::vector<std::string> users_of_value(cObj const & options, std::string const & name,
                                        std::string const & value);
// Removes from the source patterns what no longer exists among the attributes; true if there was
// something, for which `dropped_attributes` is the text.
bool drop_dangling_attributes(cMapObj & options);
extern char const * const dropped_attributes;

// Whether something may be deleted: the refusal, or the question to the user.
struct gDeletion {
  bool allowed;
  std::string text;
};
gDeletion check_delete_attribute(cObj const & options, std::string const & name);
gDeletion check_delete_value(cObj const & options, std::string const & name,
                             std::string const & value);
gDeletion check_delete_subentry(std::string const & name);
gDeletion check_delete_pattern(std::string const & name);

bool is_predefined_attribute(std::string const & name);
bool is_predefined_subentry(std::string const & name);
gCheck check_change_value(cObj const & options, std::string const & name,
                          std::string const & value);

} // namespace Vapp

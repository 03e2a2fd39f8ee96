// The option trees of a new project and of a new user.
#pragma once

#include "store/cmapobj.h"

namespace Vapp {

// Assigns every key of a new project but `unitconfig` and the source patterns, which only the
// completion makes, so that a project keeps its own.
void build_defaults(cMapObj & options);
// Puts the defaults in the place of values that can't have the type of their key. Attributes are
// left to rebuild_values, which refuses what is damaged.
void restore_wrong_types(cMapObj & options);
// Removes the paths in the program's folder that stand for "use the default", so that a project
// file holds nothing of the machine it was saved on; build_defaults brings them back.
void drop_default_paths(cMapObj & options);
void build_ini_defaults(cMapObj & options_ini);
// The same as restore_wrong_types for the settings; what is missing stays so.
void restore_wrong_settings(cMapObj & options_ini);

// The records that the completion fills in.
cRef<cMapObj> default_unit_config(std::string_view unit_type);
cRef<cMapObj> default_unit_patterns();
cRef<cMapObj> default_subentry_patterns();

// A source pattern without keywords and attributes, a subentry without keywords, and an attribute
// with the one value `undefined`.
cRef<cMapObj> new_unit_pattern();
cRef<cMapObj> new_subentry();
cRef<cMapObj> new_attribute(std::string const & comment);
// A keyword with the characters that may separate it from its text.
cRef<cVectorObj> make_keyword(std::string const & keyword, std::string const & separators);

} // namespace Vapp

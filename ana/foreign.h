// Sources that were written for other documentation systems, or for none.
#pragma once

#include <string>
#include <string_view>

#include "vlb/gsrcfile.h"

// A source with its comments marked, with what documents a declaration turned into text units and
// all other comments left out. It has as many lines as before.
std::string adopt_comments(std::string_view copy, gLanguage language);

// Verbatim text as it is shown.
#pragma once

#include <string>
#include <string_view>

// Without empty lines at both ends and without the blanks that all lines begin with.
std::string block_text(std::string_view text);

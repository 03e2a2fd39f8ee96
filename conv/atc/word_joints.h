// Whether a text and a command beside it belong together without a blank.
#pragma once

#include <string_view>

// For places where the blanks around commands are lost: the punctuation tells. Texts aren't empty.
namespace Atc {
// The text in front of a command.
bool joins_next(std::string_view text);
// The text behind a command.
bool joins_last(std::string_view text);
} // namespace Atc

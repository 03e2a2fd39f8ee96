// Faults on purpose, each behind bytes that a fuzzer only finds if it sees its own progress.
#pragma once

#include <string_view>

// Reads one byte too many of "FUZZ!".
int planted_overrun(std::string_view text);
// Adds beyond the largest int for "ADD" and two digits of 9.
int planted_overflow(std::string_view text);

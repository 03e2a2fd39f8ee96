// Bytes in JSON, which knows UTF-8 only.
#pragma once

#include <string>
#include <string_view>

bool is_utf8(std::string_view text);
// Each byte as the character of that number.
std::string bytes_to_utf8(std::string_view bytes);
// The way back; false if a character is above U+00FF or the text isn't UTF-8.
bool utf8_to_bytes(std::string_view text, std::string & bytes);

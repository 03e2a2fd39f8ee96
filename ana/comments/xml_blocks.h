// Program text and CDATA of XML comments, which may hold whatever commands and Markdown have, and
// go on over lines.
#pragma once

#include <string>
#include <string_view>

#include "ana/comments/tokens.h"

// The same comment with tokens for them. Other elements stay.
std::string without_xml_blocks(std::string_view comment, gTokens & tokens);

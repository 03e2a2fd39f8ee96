// References in comments that begin with the name of what they describe, as C libraries write them.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace Comments {

// The name in "@name: text", at the begin of the line; empty for other lines.
std::string_view name_described_in(std::string_view line);

// "%NULL", "@size", "&struct ring", "&ring->head" as Markdown: types lead to where they are, other
// names stand in backquotes. `is_command` tells which words with a "@" aren't names.
std::string from_name_marks(std::string_view line,
                            std::function<bool(std::string_view)> const & is_command);

} // namespace Comments

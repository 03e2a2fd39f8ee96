// Commands of a project's own: each stands for a text, which may hold other commands.
#pragma once

#include <map>
#include <string>
#include <string_view>

// By "name", or "name{2}" for one with two arguments; "\1" and "\2" in the text are those.
using gAliases = std::map<std::string, std::string, std::less<>>;

// "name=text; name{2}=text \1 \2": "\;" is a semicolon. What has no name is left out; what has no
// text stands for `standard`, or is left out where that is empty.
gAliases aliases_of(std::string_view list, std::string_view standard = {});

// The comment with a text in place of each alias. Aliases may stand in the texts of others; how
// deep, and how much longer a comment becomes, is bounded.
std::string with_aliases(std::string comment, gAliases const & aliases);

// Single options of the project, by path and JSON, for the command line.
#pragma once

#include <string>
#include <string_view>

namespace Vapp {

// Changes one option. `assignment` is KEY=VALUE: keys with "/" between them ("\/" for a slash in a
// key), and JSON, or a text that is no JSON and so a string. `null` removes an entry; one that
// every project has goes back to its default. A new entry of a map gets the type of its siblings.
// False, with the reason, if the key can't exist or the value breaks a rule; nothing is changed
// then. The project isn't marked as modified.
bool set_option(std::string_view assignment, std::string & reason);

// The value under a key, or the whole tree for an empty key, as JSON for a reader. False if there
// is none.
bool get_option_json(std::string_view key, std::string & out);

} // namespace Vapp

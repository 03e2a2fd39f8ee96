// Single options of the project, by path and JSON, for the command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Vapp {

// Which of several assignments is refused, and why.
struct gSetFault {
  std::size_t index = 0;
  std::string reason;
};
using gSetRefusal = std::optional<gSetFault>;

// Changes options, each by KEY=VALUE: keys with "/" between them ("\/" for a slash in a key), and
// JSON, or a text that is no JSON and so a string. `null` removes an entry; one that every project
// has goes back to its default. A new entry of a map gets the type of its siblings. The rules are
// asked for the result of all, so what holds only together can be set together. Refused, with
// nothing changed, if a key can't exist or a rule is broken; the index is that of the assignment
// that brought in the fault. The project isn't marked as modified.
gSetRefusal set_options(std::vector<std::string> const & assignments);

// The value under a key, or the whole tree for an empty key, as JSON for a reader. False if there
// is none.
bool get_option_json(std::string_view key, std::string & out);

} // namespace Vapp

// A refusal names the key and the reason. Values can be of any length, so they aren't repeated.

#include "app/cli/commands.h"
#include "app/options/set_option.h"

namespace {

std::string clipped(std::string const & text, std::size_t length) {
  return text.size() <= length ? text : text.substr(0, length) + "...";
}

} // namespace

bool assign_options(std::vector<std::string> const & assignments, gCommandContext & context) {
  Vapp::gSetRefusal const refusal = Vapp::set_options(assignments);
  if (!refusal)
    return true;
  std::string const & assignment = assignments[refusal->index];
  std::string const key = assignment.substr(0, assignment.find('='));
  context.outside.tell(clipped(key, 80) + ": " + clipped(refusal->reason, 1000));
  return false;
}

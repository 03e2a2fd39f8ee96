// A refusal names the key and the reason. Values can be of any length, so they aren't repeated.

#include "app/cli/commands.h"
#include "app/options/set_option.h"

namespace {

std::string clipped(std::string const & text, std::size_t length) {
  return text.size() <= length ? text : text.substr(0, length) + "...";
}

} // namespace

bool assign_option(std::string const & assignment, gCommandContext & context) {
  std::string reason;
  if (Vapp::set_option(assignment, reason))
    return true;
  std::string const key = assignment.substr(0, assignment.find('='));
  context.outside.tell(clipped(key, 80) + ": " + clipped(reason, 1000));
  return false;
}

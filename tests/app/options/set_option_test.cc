// Changes by path and JSON. A case: assignments, parted by " ; " or line ends, and by " & " where
// they are made together; "?key key" shows values. A refusal shows its reason on one line, behind
// the number of the assignment where there are several, and a check sees that nothing was changed.
#include "app/options/set_option.h"

#include <gtest/gtest.h>
#include <regex>
#include <sstream>

#include "app/options/options.h"
#include "app/options/project.h"
#include "store/json_text.h"
#include "support/case_file.h"

namespace {

std::string show(std::string const & key) {
  std::string json, reason;
  cRef<cObj> value;
  return Vapp::get_option_json(key, json) && from_json(json, nullptr, value, reason)
             ? to_json(*value)
             : "(none)";
}

std::vector<std::string> parts(std::string const & text, char const * between) {
  std::vector<std::string> found;
  std::istringstream in(std::regex_replace(text, std::regex(between), "\n"));
  for (std::string part; std::getline(in, part);)
    found.push_back(part);
  return found;
}

std::string change(std::string const & command) {
  cMapObj before;
  before.assign(Vapp::options);
  std::vector<std::string> const assignments = parts(command, " & ");
  Vapp::gSetRefusal const refusal = Vapp::set_options(assignments);
  if (!refusal)
    return "";
  EXPECT_TRUE(Vapp::options.equal(before)) << command;
  std::string const number = std::to_string(refusal->index + 1) + ": ";
  return (assignments.size() > 1 ? number : "") +
         std::regex_replace(refusal->reason, std::regex("\n"), "/") + "\n";
}

std::string answer(std::string const & command) {
  if (!command.starts_with('?'))
    return change(command);
  std::istringstream keys(command.substr(1));
  std::string shown;
  for (std::string key; keys >> key;)
    shown += (shown.empty() ? "" : "  ") + show(key);
  return shown + "\n";
}

TEST(SetOption, ChangesWhatTheRulesAllow) {
  check_cases(CASE_DIR "/set_option.cases", [](std::string const & input) {
    Vapp::project().load_defaults();
    std::string shown;
    for (std::string const & command : parts(input, " ; "))
      shown += answer(command);
    return shown;
  });
}

} // namespace

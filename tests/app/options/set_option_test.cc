// Changes by path and JSON. A case: assignments, parted by " ; " or line ends; "?key key" shows
// values. A refusal shows its reason on one line, and a check sees that nothing was changed.
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

std::string change(std::string const & assignment) {
  cMapObj before;
  before.assign(Vapp::options);
  std::string reason;
  if (Vapp::set_option(assignment, reason))
    return "";
  EXPECT_TRUE(Vapp::options.equal(before)) << assignment;
  return std::regex_replace(reason, std::regex("\n"), "/") + "\n";
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
    std::istringstream commands(std::regex_replace(input, std::regex(" ; "), "\n"));
    for (std::string command; std::getline(commands, command);)
      shown += answer(command);
    return shown;
  });
}

} // namespace

// Changes by path and JSON. A case: assignments, one a line; "?key" shows a value. A refusal shows
// its reason, and a check behind it sees that nothing was changed.
#include "app/options/set_option.h"

#include <gtest/gtest.h>
#include <sstream>

#include "app/options/options.h"
#include "app/options/project.h"
#include "store/json_text.h"
#include "support/case_file.h"

namespace {

std::string show(std::string const & key) {
  std::string json;
  if (!Vapp::get_option_json(key, json))
    return "(none)\n";
  cRef<cObj> value;
  std::string reason;
  from_json(json, nullptr, value, reason);
  return to_json(*value) + "\n";
}

std::string change(std::string const & assignment) {
  cMapObj before;
  before.assign(Vapp::options);
  std::string reason;
  if (Vapp::set_option(assignment, reason))
    return "";
  EXPECT_TRUE(Vapp::options.equal(before)) << assignment;
  return "refused: " + reason + "\n";
}

TEST(SetOption, ChangesWhatTheRulesAllow) {
  check_cases(CASE_DIR "/set_option.cases", [](std::string const & input) {
    Vapp::project().load_defaults();
    std::string shown;
    std::istringstream lines(input);
    for (std::string line; std::getline(lines, line);)
      shown += line.starts_with('?') ? show(line.substr(1)) : change(line);
    return shown;
  });
}

TEST(SetOption, ShowsTheWholeTreeOneEntryALine) {
  Vapp::project().load_defaults();
  std::string json;
  EXPECT_TRUE(Vapp::get_option_json("", json));
  EXPECT_NE(json.find("\n    \"tab_width\": 4,\n"), std::string::npos);
}

} // namespace

// The language of transformation scripts: what rules give, what their faults cost, and who has to
// know its words.

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "app/options/settings.h"
#include "conv/vlt/rules.h"
#include "support/case_file.h"
#include "support/temp_folder.h"
#include "support/test_outside.h"
#include "vlb/gfilesystem.h"

namespace {

// "fmt<hint>text=a,name=b" is a use of a rule; "?name" asks for a setting.
std::string used(gVltRules const & rules, std::string const & use) {
  if (use.starts_with('?'))
    return "[" + rules.setting(use.substr(1), "unset") + "]";
  std::size_t const open = use.find('<'), close = use.find('>');
  gVltValues values;
  std::map<std::string, std::string> texts;
  std::istringstream words(use.substr(close + 1));
  for (std::string word; std::getline(words, word, ',');)
    texts[word.substr(0, word.find('='))] = word.substr(word.find('=') + 1);
  for (auto const & [name, text] : texts)
    values.set(Vlt::value_named(name).value(), text);
  std::string out = "[";
  rules.apply(Vlt::rule_named(use.substr(0, open)).value(), use.substr(open + 1, close - open - 1),
              values, out);
  return out + "]";
}

// The input: files, each behind a line "%% name", of which main.vlt is loaded; then "%% use" and
// uses of its rules.
std::string answer(std::string const & input) {
  TempFolder const folder;
  Vapp::set_program_dir(folder.path());
  TestOutside outside;
  std::map<std::string, std::string> files;
  std::string name = "main.vlt", out;
  std::istringstream lines(input);
  for (std::string line; std::getline(lines, line);)
    if (line.starts_with("%% "))
      name = line.substr(3);
    else
      files[name] += line + "\n";
  for (auto const & [file, text] : files)
    folder.write(file, text);
  gVltRules rules;
  if (!rules.load(folder.path("main.vlt")))
    out += "not loaded ";
  std::istringstream uses(files["use"]);
  for (std::string use; uses >> use;)
    out += used(rules, use) + " ";
  out += "\n" + outside.report_text();
  for (std::size_t at; (at = out.find(folder.path(""))) != out.npos;)
    out.erase(at, folder.path("").size());
  return out;
}

TEST(Vlt, cases) {
  check_cases(CASE_DIR "/vlt.cases", answer);
}

TEST(Vlt, many_includes_and_open_conditions_cost_no_more_than_their_text) {
  TempFolder const folder;
  TestOutside outside;
  // Each level includes the next one twice: 65536 reads without a bound.
  for (int i = 0; i < 16; ++i) {
    std::string const next = "#include \"" + std::to_string(i + 1) + ".vlt\"\n";
    folder.write(std::to_string(i) + ".vlt", next + next);
  }
  folder.write("16.vlt", "@em = deep\n");
  gVltRules rules;
  EXPECT_TRUE(rules.load(folder.path("0.vlt")));
  EXPECT_LT(outside.reports.size(), 600u);
  std::string script = "@b = ";
  for (int i = 0; i < 200'000; ++i)
    script += "$[text:";
  script += "x";
  for (int i = 0; i < 200'000; ++i)
    script += "$]";
  rules.parse(script + "\n", "many.vlt");
  EXPECT_EQ(used(rules, "em<>") + used(rules, "b<>text=a") + used(rules, "b<>"), "[deep][x][]");
}

TEST(Vlt, the_manual_tells_every_rule_and_value) {
  std::string manual;
  ASSERT_TRUE(gFileSystem::read_file(VELLUMAR_SOURCE_DIR "/doc/transformation.md", manual));
  for (std::size_t i = 0; i < vlt_rule_count; ++i) {
    std::string const name(Vlt::info(static_cast<gVltRule>(i)).name);
    EXPECT_NE(manual.find("`@" + name + "`"), manual.npos) << name;
  }
  for (std::size_t i = 0; i < vlt_value_count; ++i) {
    std::string const name(Vlt::name_of(static_cast<gVltValue>(i)));
    EXPECT_NE(manual.find("`" + name + "`"), manual.npos) << name;
  }
}

TEST(Vlt, the_shipped_scripts_have_no_fault) {
  TestOutside outside;
  for (auto const & entry : std::filesystem::directory_iterator(VELLUMAR_SOURCE_DIR "/ini")) {
    gPathstring const path = gPathstring(entry.path().string());
    EXPECT_TRUE(path.extension() != "vlt" || gVltRules().load(path)) << path;
  }
  EXPECT_EQ(outside.report_text(), "");
}

} // namespace

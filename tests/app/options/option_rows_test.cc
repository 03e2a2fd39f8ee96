// The tables of options in the manual are those of the rows: VELLUMAR_UPDATE=1 writes them anew.
// And what the rows say of an option holds in a new tree.
#include "app/options/option_rows.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>

#include "app/options/defaults.h"
#include "app/options/option_limits.h"
#include "app/options/option_schema.h"
#include "store/ctypeobj.h"
#include "store/json_text.h"

namespace {

using namespace Vapp;

std::string section_of(gOptionRow const & row) {
  if (row.tree == gOptionTree::settings)
    return "settings";
  std::size_t const end = row.path.rfind('/');
  return end == row.path.npos ? "root" : std::string(row.path.substr(0, end));
}

std::string code(std::string_view text) {
  return text.empty() ? "" : "`" + std::string(text) + "`";
}

std::string type_text(gOptionRow const & row) {
  char const * const names[] = {"bool",   "int", "8 int", "string", "list of strings",
                                "string", "map"};
  return names[static_cast<int>(row.type)];
}

std::string default_text(gOptionRow const & row) {
  if (row.origin == gOptionOrigin::run || row.origin == gOptionOrigin::user)
    return row.type == gOptionType::flag ? "absent, false" : "absent";
  if (row.origin == gOptionOrigin::completed)
    return "see below";
  if (row.type == gOptionType::text)
    return code(row.text);
  if (row.type == gOptionType::shipped)
    return code("ini/" + std::string(row.text));
  cRef<cObj> const value = default_of(row);
  std::string const json = to_json(*value);
  if (row.type == gOptionType::map || row.type == gOptionType::texts)
    return row.path == "attr" ? "see below" : "empty";
  return value->map() ? std::regex_replace(json.substr(1, json.size() - 2), std::regex(","), ", ")
                      : json;
}

// The names of numbers, or the texts that are allowed.
std::string limits_text(gOptionRow const & row) {
  std::string text;
  for (gChoice const & choice : row.choices) {
    if (choice.value.empty())
      continue;
    text += text.empty() ? ": " : ", ";
    text += row.type == gOptionType::text
                ? code(choice.value)
                : std::string(choice.value) + " " + std::string(choice.label);
  }
  if (text.empty() && row.limits.high != INT_MAX)
    text = ", " + std::to_string(row.limits.low) + " to " + std::to_string(row.limits.high);
  return text;
}

std::string table_of(std::string const & section) {
  std::string table = "| Key | Type | Default | Meaning |\n|---|---|---|---|\n";
  for (gOptionRow const & row : option_rows())
    if (section_of(row) == section) {
      std::string const line = code(row.path) + " | " + type_text(row) + " | " +
                               std::regex_replace(default_text(row), std::regex("\\|"), "\\|") +
                               " | " + std::string(row.help) + limits_text(row);
      table += "| " + line + " |\n";
    }
  return table;
}

TEST(OptionRows, AreTheTablesOfTheManual) {
  std::string const path = VELLUMAR_SOURCE_DIR "/doc/options.md";
  std::stringstream manual;
  manual << std::ifstream(path).rdbuf();
  std::string const text = manual.str(), open = "<!-- options ", close = "<!-- end -->";
  std::string made;
  std::size_t at = 0, rows = 0;
  for (std::size_t begin; (begin = text.find(open, at)) != text.npos;) {
    std::size_t const name = begin + open.size(), name_end = text.find(' ', name);
    std::string const table = table_of(text.substr(name, name_end - name));
    rows += static_cast<std::size_t>(std::count(table.begin(), table.end(), '\n')) - 2;
    made += text.substr(at, text.find('\n', name) - at) + "\n\n" + table + "\n";
    at = text.find(close, name);
    ASSERT_NE(at, text.npos);
  }
  made += text.substr(at);
  EXPECT_EQ(rows, option_rows().size()) << "a section has no table";
  if (std::getenv("VELLUMAR_UPDATE"))
    std::ofstream(path) << made;
  else
    EXPECT_EQ(text, made);
}

TEST(OptionRows, HoldInEachNewTree) {
  cMapObj project, settings;
  build_defaults(project);
  build_ini_defaults(settings);
  cRef<cMapObj> const schema = option_schema();
  for (gOptionRow const & row : option_rows()) {
    bool const of_project = row.tree == gOptionTree::project;
    cRef<cObj> const entry = entry_of(of_project ? project : settings, row);
    EXPECT_EQ(entry != nullptr, row.origin == gOptionOrigin::standard) << row.path;
    EXPECT_FALSE(check_limits(row, *default_of(row))) << row.path;
    EXPECT_EQ(find_row(row.path), &row) << "two rows";
    if (of_project) {
      cRef<cObj> const example = entry_of(*schema, row);
      ASSERT_TRUE(example) << row.path;
      EXPECT_EQ(&example->type(), &default_of(row)->type()) << row.path;
    }
  }
}

TEST(OptionRows, ValuesOfAnotherTypeCountAsAbsent) {
  cMapObj tree;
  gFlagName const flag = "ana/auto_enum";
  gNumbersName const numbers = "ana/alloc/prio";
  gTextName const text = "ana/dialect";
  tree["ana"]["auto_enum"] = make_ref<cMapObj>();
  EXPECT_TRUE(flag_in(tree, flag.row()));
  tree["ana"] = cat::make("no map at all");
  EXPECT_TRUE(flag_in(tree, flag.row()));
  EXPECT_EQ(numbers_in(tree, numbers.row()), (std::vector{4, 4, 3, 3, 2, 1, 0, 0}));
  EXPECT_EQ(text_in(tree, text.row()), "");
  tree["ana"] = make_ref<cMapObj>();
  tree["ana"]["alloc"]["prio"] = cat::make("of the wrong type");
  EXPECT_EQ(numbers_in(tree, numbers.row()).size(), 8u);
}

TEST(OptionRows, TypedTextIsCleaned) {
  EXPECT_EQ(cleaned(gTextRule::frame_characters, "aab / /\t9*"), "/*");
  EXPECT_EQ(cleaned(gTextRule::extensions, "c; *.h|p"), "c; .hp");
}

} // namespace

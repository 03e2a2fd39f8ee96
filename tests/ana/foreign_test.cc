// Comments in the mark-up of other systems, and which of them document something.

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

#include "ana/comments/foreign_text.h"
#include "ana/foreign.h"
#include "app/options/project.h"
#include "run_project.h"
#include "support/case_file.h"

namespace {

std::string const opened = "@_vlbcom ", closed = "@_vlecom ", comment = opened + "x\n" + closed;

// One line a comment: blanks in a row as one, line feeds of the result as "~".
std::string translated(std::string const & comment) {
  gForeignText const unit = translate_comment(comment);
  char const * const kinds[] = {"nothing", "unit", "about ", "topic "};
  std::string text;
  for (char c : unit.text)
    if (c != ' ' || (!text.empty() && text.back() != ' ') ||
        unit.text.find("@b_verb") < unit.text.size())
      text += c == '\n' ? '~' : c;
  EXPECT_LE(std::count(text.begin(), text.end(), '~'),
            std::count(comment.begin(), comment.end(), '\n'));
  while (text.ends_with(' '))
    text.pop_back();
  return kinds[unit.kind] + unit.name + (text.empty() ? "\n" : "| " + text + "\n");
}

TEST(foreign, comments) {
  check_cases(CASE_DIR "/foreign.cases", translated);
}

// A unit a line: level, type, source line and content.
std::string dense(std::string const & text) {
  std::pair<std::regex, char const *> const folds[] = {
      {std::regex("^[^]*?(?=\n@unit)|\n@(bkmk|xe|hdltoc|macro)<?[^\n]*|\n@[be]_ll|\n\n@e_atc\n$"
                  "|\n@b_secti[^]*?@e_secthead"),
       ""},
      {std::regex("@unit<(.)><main><(\\w+)><pos><(?:SOURCE|FOREIGN)[^>]*><(\\d+)><\\w+>"),
       "$1 $2 $3"},
      {std::regex("@subentry<1> @subtitle\\{\\}"), "|"},
      {std::regex("@subentry<1> @subtitle\\{(.*?)\\}"), "| $1:"},
      {std::regex("VL_A(\\w+?)_\\d+"), "$1"},
      {std::regex("\\n(?!\\n)"), " "},
      {std::regex(" *@end\\b *"), "\n"},
      {std::regex("  +"), " "},
      {std::regex("\n[ \n]+"), "\n"}};
  std::string result = text;
  for (auto const & [pattern, by] : folds)
    result = std::regex_replace(result, pattern, by);
  return result;
}

// Through the shipped project and script. `unknown`: a command that the comments have and nobody
// knows, and its place; empty for none.
void run_quick(RunProject & project, std::string const & folder, std::string const & files,
               std::string const & unknown = {}) {
  ASSERT_TRUE(Vapp::project().load(VELLUMAR_SOURCE_DIR "/ini/quick.vlp", false));
  project.set("out_dir=" + project.path("out"));
  project.set("inputcurdir=" + folder);
  project.set(R"(inputfiles/1={"path": ".", "outgrp": "all", "count": 0, "files": ")" + files +
              "\"}");
  EXPECT_TRUE(project.run());
  std::string const told =
      unknown.empty() ? std::string()
                      : "WARNING 464: Comments have a command that isn't known: " + unknown + "\n";
  EXPECT_EQ(project.reports(),
            told + "quick.vls - 0 error(s), " + (told.empty() ? "0" : "1") + " warning(s)\n");
}

// Every style of comment in both languages.
TEST(foreign, quick_project) {
  std::string const folder = CASE_DIR "/foreign";
  RunProject project;
  run_quick(project, folder, "*.h;*.cpp;*.pas", "\\unknown (" + folder + "/shapes.h:43)");
  std::map<std::string, std::string> files = project.output();
  files.erase("ana.log");
  for (auto & [name, text] : files)
    text = dense(replaced(replaced(text, folder, "FOREIGN"), VELLUMAR_SOURCE_DIR, "SOURCE"));
  compare_golden(CASE_DIR "/golden/foreign", files);
}

std::string times(std::size_t count, std::string const & text) {
  std::string result;
  while (count-- > 0)
    result += text;
  return result;
}

// A token that is longer than a scanner takes would cost the rest of the file.
TEST(foreign, long_words_cost_no_file) {
  RunProject project;
  std::string text;
  for (char const * head : {"", "- ", "@c ", "@em ", "@b ", "@throws ", "@file ", "@par ", "@see ",
                            "`", "**", "<em>", "{@link ", "@code\n"})
    for (char const * letter : {"x", "{", "\xE6\xBC\xA2", "\\@", "`a`", "@e_verbatim"})
      for (std::size_t count : {190, 590, 4000})
        text += "/**\n" + (head + times(count, letter)) +
                "` ** </em> }\n@endcode\n@deprecated */\nvoid f();\n";
  project.write("src/a.h", text);
  run_quick(project, project.path("src"), "*.h");
}

// With time or memory by the square of these the test would not end.
TEST(foreign, long_sources_take_linear_time) {
  std::size_t const many = 200'000;
  for (std::string const & text :
       {opened + std::string(many * 5, '`') + closed + "int a;", "int a;\n" + times(many, comment),
        times(many, "a " + opened + closed),
        times(many, "namespace abcdefghij {") + times(many, "void A::f() {}")})
    EXPECT_FALSE(adopt_comments(text, gLanguage::cpp).empty());
}

// Whatever is cut off or nested, each line of the copy stays where it was.
TEST(foreign, lines_stay_parallel) {
  std::string const whole =
      "int a; // x\n// y\nenum E { p, /*!< q */\n r };\n@_vlbcom @_vlukwd @code\n"
      "x\n@_vlecom void A::f() { \"}'\" { } }\n@_vlbcom  <b>*`{@link [a](b @_vlecom \n";
  std::string const marked = replaced(replaced(whole, "/*", "@_vlbcom "), "*/", "@_vlecom ");
  for (std::size_t size = 0; size <= marked.size(); ++size)
    for (gLanguage language : {gLanguage::cpp, gLanguage::pascal}) {
      std::string const text = marked.substr(0, size);
      std::string const copy = adopt_comments(text, language);
      EXPECT_EQ(std::count(copy.begin(), copy.end(), '\n'),
                std::count(text.begin(), text.end(), '\n'))
          << text;
    }
}

} // namespace

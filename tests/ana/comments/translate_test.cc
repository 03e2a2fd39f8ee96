// What becomes of comments of other systems. Each command has an example, and none is ever shown.

#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <sstream>

#include "ana/comments/commands.h"
#include "ana/comments/condition.h"
#include "ana/comments/translate.h"
#include "support/case_file.h"

namespace {

std::string shown(gRichPieces const & pieces) {
  static constexpr char const * heads[] = {"",       "@cref<", "@guess<", "@copy<",
                                           "@copy<", "@copy<", "@bkmk<"};
  std::string text;
  for (gRichPiece const & one : pieces)
    text += one.kind == gRichPiece::code ? one.text : heads[one.kind] + one.text + ">";
  return text;
}

std::string translated(std::string const & comment, gCommentHints const * hints) {
  static constexpr char const * kinds[] = {"nothing", "unit", "about ", "topic "};
  gTranslated const made = translate(comment, hints, {});
  std::string text = kinds[made.kind] + made.name + "\n";
  for (gCommentGroup const & one : made.groups)
    text += "group " + std::to_string(one.kind) + " " + one.id + " " + one.title + "\n";
  for (gCommentPart const & one : made.parts)
    text += one.entry + "| " + shown(one.text) + "\n";
  for (auto const & [word, count] : made.unknown)
    text += "unknown " + word + " " + std::to_string(count) + "\n";
  std::string dense;
  for (char c : text)
    if (c != '\n' || (!dense.empty() && dense.back() != '\n'))
      dense += c;
  return dense;
}

TEST(translate, commands) {
  check_cases(CASE_DIR "/commands.cases",
              [](std::string const & comment) { return translated(comment, nullptr); });
}

TEST(translate, text) {
  gCommentHints hints;
  hints.parameters = {"x"};
  hints.declared = gCommentHints::routine;
  check_cases(CASE_DIR "/text.cases",
              [&](std::string const & comment) { return translated(comment, &hints); });
}

TEST(translate, brackets) {
  gCommentHints hints;
  hints.pascal = true;
  hints.name = "Grow";
  hints.scope = "TBox";
  hints.parameters = {"Width", "Depth"};
  check_cases(CASE_DIR "/brackets.cases",
              [&](std::string const & comment) { return translated(comment, &hints); });
}

TEST(translate, each_command_has_an_example) {
  std::string text;
  for (char const * name : {"commands", "brackets", "text"}) {
    std::ifstream file(CASE_DIR "/" + std::string(name) + ".cases");
    std::stringstream all;
    all << file.rdbuf();
    text += all.str();
  }
  for (gCommand const & one : Commands::all()) {
    std::string const name = "@" + std::string(one.name);
    bool found = false;
    for (std::size_t at = 0; !found && (at = text.find(name, at)) != text.npos; at += name.size())
      found = !std::isalnum(static_cast<unsigned char>(name.back())) ||
              !std::isalnum(static_cast<unsigned char>(text[at + name.size()]));
    EXPECT_TRUE(found) << name;
  }
}

// Whatever a comment holds: braces of the result pair, and what opens blocks closes them.
void expect_whole(std::string const & text) {
  int braces = 0, blocks = 0;
  bool verbatim = false;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (verbatim ? line == "@e_verbatim" : line.starts_with("@b_verbatim")) {
      verbatim = !verbatim;
      continue;
    }
    blocks += verbatim ? 0 : line.starts_with("@b_") ? 1 : line.starts_with("@e_") ? -1 : 0;
    for (std::size_t i = 0; !verbatim && i < line.size(); ++i)
      if (line[i] == '\\')
        ++i;
      else
        braces += line[i] == '{' ? 1 : line[i] == '}' ? -1 : 0;
  }
  EXPECT_EQ(braces, 0) << text;
  EXPECT_EQ(blocks, 0) << text;
  EXPECT_FALSE(verbatim) << text;
}

TEST(translate, hostile_comments_give_whole_texts) {
  std::vector<std::string> words = {"\n",
                                    "\n\n",
                                    " ",
                                    "    ",
                                    "*",
                                    "**",
                                    "`",
                                    "```\n",
                                    "<b>",
                                    "</b>",
                                    "<ul>",
                                    "<li>",
                                    "</ul>",
                                    "<table>",
                                    "<tr>",
                                    "<td>",
                                    "</td>",
                                    "- ",
                                    "1. ",
                                    "> ",
                                    "# ",
                                    "|",
                                    "\n|-|-|\n",
                                    "{@link ",
                                    "}",
                                    "{",
                                    "@",
                                    "\\",
                                    "[a](",
                                    ")",
                                    "javascript:x",
                                    "https://a.b/",
                                    "\x01"
                                    "3\x02",
                                    "&lt;",
                                    "&#x0;",
                                    "%",
                                    "~~",
                                    "(",
                                    "a::b()",
                                    "<!--",
                                    "-->",
                                    "_"};
  for (gCommand const & one : Commands::all())
    words.push_back("\n@" + std::string(one.name) + (one.where == "p" ? "(" : " "));
  std::mt19937 random(7);
  gCommentHints hints;
  for (int i = 0; i < 3000; ++i) {
    std::string comment;
    for (int n = 0; n < 30; ++n)
      comment += words[random() % words.size()];
    hints.pascal = i % 2 == 1;
    for (gCommentPart const & part : translate(comment, &hints, {}).parts) {
      std::string code;
      for (gRichPiece const & one : part.text)
        code += one.kind == gRichPiece::code ? one.text : "";
      expect_whole(code);
    }
    ASSERT_FALSE(HasFailure()) << comment;
  }
}

// By the square of these the test would not end.
TEST(translate, long_comments_take_linear_time) {
  std::size_t const many = 100'000;
  for (char const * part : {"*a ",
                            "`",
                            "<b>",
                            "</b>",
                            "[",
                            "](",
                            "{@link ",
                            "@code ",
                            "@f$ ",
                            "<ul>",
                            "- a\n",
                            "> ",
                            "@param x y\n",
                            "@cond\n",
                            "&lt;",
                            "<a href=",
                            "@(",
                            "(",
                            "a::b ",
                            "@section x y\n",
                            "|a\n",
                            "@if a\n",
                            "<td>",
                            "<!--",
                            "f() ",
                            "<![CDATA[",
                            "<code>\n",
                            "@internal x ",
                            "\\if a ",
                            "@item "}) {
    std::string comment;
    for (std::size_t i = 0; i < many; ++i)
      comment += part;
    gCommentHints hints;
    hints.pascal = true;
    EXPECT_NO_FATAL_FAILURE(translate(comment, &hints, {})) << part;
  }
}

TEST(translate, own_commands_stand_for_texts_that_stay_bounded) {
  gAliases const aliases = aliases_of("p=@par A\\; b; two{2}=<\\2,\\1>; two=none; bare; "
                                      "loop=@loop @loop @loop; big{1}=\\1\\1@big{\\1}");
  std::string const text = "@p \\two{a\\,b,{c,d}} @two. @twos \\\\p x@p @two{";
  EXPECT_EQ(with_aliases(text, aliases), "@par A; b <{c,d},a,b> none. @twos \\\\p x@p none{");
  EXPECT_LT(with_aliases("@loop", aliases).size(), 200'000u);
  EXPECT_LT(with_aliases("@big{" + std::string(3000, 'x') + "}", aliases).size(), 200'000u);
}

TEST(translate, conditions_hold_by_what_is_set) {
  for (auto const & [condition, holds] : std::map<std::string, bool>{{"A", true},
                                                                     {"C", false},
                                                                     {"", false},
                                                                     {"!C", true},
                                                                     {"C || A && B", true},
                                                                     {"(C || A) && !B", false},
                                                                     {"!(C && A) && B", true},
                                                                     {"A &&", false},
                                                                     {"((((A", true}})
    EXPECT_EQ(condition_holds(condition, {"A", "B"}), holds) << condition;
  EXPECT_NO_FATAL_FAILURE(condition_holds(std::string(1'000'000, '('), {}));
}

} // namespace

// Everything that small scripts and one-line expectations can show.
#include <gtest/gtest.h>

#include "support/case_file.h"
#include "unit_script.h"

TEST(Cases, UnitsAndDocuments) {
  UnitScript script;
  for (std::string const file : {"model", "emission", "document", "hierarchy"})
    check_cases(CASE_DIR "/" + file + ".cases", [&](auto const & in) { return script.run(in); });
}

// Pieces of a text are parted by "|".
TEST(Cases, Subtext) {
  struct {
    char const * operation;
    int n;
    std::string text, expected;
  } const rows[] = {
      {"norm", 0, " |\\n||a|||\\n|b| |", "a| |b| "},
      {"norm", 0, " |\\n|", ""},
      // A verbatim block keeps its pieces, and white space around it is still reduced; a cited
      // block is one too.
      {"norm", 0, "a|| |@b_verbatim\\n|  |  x\\n||\\n@e_verbatim\\n|| |b",
       "a| |@b_verbatim\\n|  |  x\\n||\\n@e_verbatim\\n| |b"},
      {"norm", 0, "@endp\\n@b_verbatim\\n||\\n@e_verbatim\\n@endp\\n||c",
       "@endp\\n@b_verbatim\\n||\\n@e_verbatim\\n@endp\\n| |c"},
      // The first line doesn't count, nor do lines of white space or a verbatim block; tabs count
      // by the width, across pieces.
      {"indent", 4, "x\\n    a\\n  b\\n \\n      c", "2"},
      {"indent", 8, "\\n\\t|a\\n     |    b", "8"},
      {"indent", 4, "    a", "0"},
      {"indent", 4, "\\n    a\\n|@b_verbatim\\n|x\\ny|\\n@e_verbatim\\n|    b", "4"},
      // Each line loses its share and no more than it has; a piece in the middle begins no line.
      {"strip", 2, "    a\\n b\\n   c   d", "  a\\nb\\n c   d"},
      {"strip", 2, "\\ta\\tb\\n\\t\\tc", "  a    b\\n      c"},
      {"strip", 2, "    a|  b|\\n  |  c", "  a|  b|\\n|  c"},
      // Empty lines are indented too; a width without sense costs no memory.
      {"add", 2, "a\\n\\nb|\\nc", "  a\\n  \\n  b|\\n  c"},
      {"add", 2, "\\na", "\\n  a"},
      {"add", 1000000000, "\\n", "\\n" + std::string(256, ' ')}};
  for (auto const & [operation, n, text, expected] : rows) {
    gSubText pieces(pieces_of(text));
    gSubText const before = pieces;
    if (operation == std::string("norm"))
      pieces.wsp_norm();
    else if (operation == std::string("strip"))
      pieces.strip_indent(n, 4);
    else if (operation == std::string("add"))
      pieces.add_indent(n);
    std::string const got = operation == std::string("indent")
                                ? std::to_string(pieces.common_indent(n))
                                : shown(pieces);
    EXPECT_EQ(got, expected) << operation << " " << text;
    EXPECT_EQ(shown(before), text) << "a list that shares the pieces has changed";
  }
}

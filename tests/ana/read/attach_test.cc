// Which comment goes to which declaration, told by lines.
#include "ana/read/attach.h"

#include <gtest/gtest.h>

#include "ana/decl/readers.h"
#include "ana/run_project.h"
#include "support/case_file.h"

namespace {

constexpr char const * rules[] = {"before",       "behind",       "inside",     "plain before",
                                  "plain behind", "plain inside", "plain below"};

std::string target(std::string_view text, Decl::gFileDeclarations const & file,
                   gAttachment const & one) {
  Decl::gDeclaration const & found = file.items[static_cast<std::size_t>(one.declaration)];
  std::string shown = std::to_string(found.line) + " " + std::string(found.name.of(text));
  if (one.param >= 0) {
    auto const at = found.first_param + static_cast<std::uint32_t>(one.param);
    shown += "(" + std::string(file.parameters[at].name.of(text)) + ")";
  }
  return shown;
}

std::string lines_of(Decl::gFileDeclarations const & file, gAttachment const & one) {
  auto const line = [&](std::int32_t i) {
    return std::to_string(file.items[static_cast<std::size_t>(i)].line);
  };
  return line(one.first_headed) + " to " + line(one.last_headed);
}

// "LINE -> LINE name, rule" for each comment; "-" for one that is left out,
// "heads LINE to LINE" for one above several declarations. A first line "pascal"
// tells the language.
std::string attached(std::string const & input) {
  bool const pascal = input.starts_with("pascal\n");
  std::string const text = pascal ? input.substr(input.find('\n') + 1) : input;
  Decl::gFileDeclarations const file =
      pascal ? Decl::read_pascal(text) : Decl::read_cpp(text, Decl::gMacroTable());
  std::vector<gCommentBlock> const blocks = comment_blocks(text, file.comments, pascal);
  std::vector<gAttachment> const found = attach(text, file, blocks, pascal);
  std::string out;
  for (std::size_t i = 0; i < blocks.size(); ++i)
    out += std::to_string(blocks[i].line) + " -> " +
           (found[i].first_headed >= 0 ? "heads " + lines_of(file, found[i])
            : found[i].declaration < 0 ? "-"
                                       : target(text, file, found[i]) + ", " +
                                             rules[static_cast<std::size_t>(found[i].rule)]) +
           "\n";
  return out;
}

std::string words(std::string const & input) {
  Decl::gFileDeclarations const file = Decl::read_cpp(input, Decl::gMacroTable());
  std::string out;
  for (gCommentBlock const & block : comment_blocks(input, file.comments, false))
    out += "[" + comment_text(input, block, file.comments, false) + "]\n";
  return out;
}

TEST(attach, cases) {
  check_cases(CASE_DIR "/attach.cases", attached);
}
// Blanks at line ends, an unknown word in the heads of classes, and a branch around everything
// leave each comment where it was.
TEST(attach, layout_does_not_matter) {
  for (Case const & one : read_cases(CASE_DIR "/attach.cases")) {
    if (one.input.find('\\') != std::string::npos)
      continue;
    SCOPED_TRACE(one.name);
    std::string const language = one.input.starts_with("pascal\n") ? "pascal\n" : "";
    EXPECT_EQ(attached(language + replaced(one.input.substr(language.size()), "\n", " \t\n")),
              one.expected);
    if (!language.empty())
      continue;
    EXPECT_EQ(attached(replaced(one.input, "class ", "class MADE_UP_WORD ")), one.expected);
    bool const branched = one.input.find("#if") != std::string::npos;
    std::string const more = "\n#ifdef X\nint x;\n#else\nint y;\n#endif\n";
    EXPECT_EQ(attached(one.input + (branched ? "" : more)), one.expected);
  }
}

TEST(comment_text, cases) {
  check_cases(CASE_DIR "/comment_text.cases", words);
}

} // namespace

// The reader of C and C++: a case a line, "source => declarations", "\n" for a line end. Groups are
// headed by "# name"; VELLUMAR_UPDATE=1 rewrites what is behind "=>".
#include "decl_text.h"

#include <gtest/gtest.h>

namespace Decl {

namespace {

std::string read(std::string const & source) {
  gMacroTable macros;
  macros.collect(source);
  return shown(source, read_cpp(source, macros));
}

TEST(CppReader, OneLineCases) {
  check_lines("cpp.cases", read);
}

// Each comment as "text: place, scope, declaration; code before | code behind".
std::string comments_of(std::string const & text) {
  static constexpr char const * places[] = {"between", "within", "parameters",
                                            "body",    "values", "outside"};
  gFileDeclarations const file = read_cpp(text, {});
  auto const name = [&](std::int32_t at) {
    return at < 0 ? "-" : shown_name(text, file, file.items[static_cast<std::size_t>(at)]);
  };
  auto const last_word = [&](std::uint32_t end) {
    std::size_t const begin = text.find_last_of(" \n", end == 0 ? 0 : end - 1);
    return text.substr(begin == text.npos ? 0 : begin + 1, end - begin - 1);
  };
  std::string all;
  for (gComment const & one : file.comments) {
    std::string const own(one.whole.of(text));
    all += own.substr(2, 1) + ": " + places[one.place] + ", " + name(one.scope) + ", " +
           name(one.declaration) + "; " + (one.code_before ? last_word(one.code_before) : "") +
           " | " + text.substr(one.code_behind, 3) + (one.line_start ? " ^" : "") + "\n";
  }
  return all;
}

TEST(CppReader, CommentsKnowWhatStandsAroundThem) {
  EXPECT_EQ(comments_of("//a\n"
                        "#define M 1 //b\n"
                        "namespace n { //c\n"
                        "struct A { /*d*/\n"
                        "  int x; //e\n"
                        "  void f(int a /*f*/, int b) const /*g*/ { /*h*/ }\n"
                        "  enum E { P, //i\n"
                        "           Q /*j*/ = 1 };\n"
                        "};\n"
                        "}\n"
                        "#if 0\n"
                        "/*k*/\n"
                        "#endif\n"
                        "#ifdef X\n"
                        "/*l*/\n"
                        "int y;\n"
                        "#endif\n"
                        "//m"),
            "a: between, -, -;  | #de ^\n"
            "b: between, -, -; 1 | nam\n"
            "c: between, n, -; { | str\n"
            "d: between, A, -; { | int\n"
            "e: between, A, -; x; | voi\n"
            "f: parameters, A, f; a | , i\n"
            "g: within, A, f; const | { /\n"
            "h: body, A, f; { | }\n \n"
            "i: values, E, -; P, | Q /\n"
            "j: within, E, Q; Q | = 1\n"
            "k: outside, -, -; } | int ^\n"
            "l: between, -, -; } | int ^\n"
            "m: between, -, -; y; |  ^\n");
}

std::string replaced(std::string text, std::string_view what, std::string_view with) {
  for (std::size_t at = text.find(what); at != text.npos; at = text.find(what, at + with.size()))
    text.replace(at, what.size(), with);
  return text;
}

// White space, comments and line ends of a source change nothing.
TEST(CppReader, LayoutDoesNotMatter) {
  int count = 0;
  for (std::string const & source : case_sources("cpp.cases")) {
    if (source.starts_with("class API")) // from here on lines matter
      break;
    if (source.starts_with("#") || source.find("\"(") != source.npos)
      continue;
    ++count;
    std::string const expected = read(source);
    EXPECT_EQ(read(replaced(source, " ", " /* ; { ( */ ")), expected) << source;
    EXPECT_EQ(read(replaced(source, " ", "   ")), expected) << source;
    EXPECT_EQ(read(replaced(source, "; ", ";\r\n\t// }\r\n")), expected) << source;
    EXPECT_EQ(read("#ifndef G\n#define G_\n#endif\n" + source + "\n"), "macro G_ | " + expected)
        << source;
  }
  EXPECT_GT(count, 30);
}

// Deep, long and broken sources end, and in the time of their length.
TEST(CppReader, HostileSourcesEnd) {
  auto const many = [](std::string_view part, int count) {
    std::string text;
    for (int at = 0; at < count; ++at)
      text += part;
    return text;
  };
  std::string const deep = many("namespace a { ", 60000) + "int x;" + many("}", 60000);
  gFileDeclarations const file = read_cpp(deep, {});
  ASSERT_EQ(file.items.size(), 60001u);
  EXPECT_EQ(file.items.back().scope, 59999);
  for (char const * part :
       {"{", "}", "(", "(*", "[{(", "f(", "a<", "template<", "#if A\n", "A(x)\n", "\"\\", "R\"a(",
        "/*\n*\n", "struct{} a ", "operator ", "enum{", "'", "@interface "})
    EXPECT_LT(read_cpp(many(part, 20000), {}).skipped.size(), 1100u) << part;
}

TEST(CppReader, ConditionsAreKept) {
  gFileDeclarations const file =
      read_cpp("#ifdef A\n#if B > 1\nint a;\n#elif C\nint b;\n#else\nint c;\n#endif\n#else\nint "
               "d;\n#endif\nint e;",
               {});
  std::vector<std::string> conditions;
  for (gDeclaration const & one : file.items)
    conditions.push_back(
        one.condition < 0 ? "" : file.conditions[static_cast<std::size_t>(one.condition)].text);
  EXPECT_EQ(conditions, (std::vector<std::string>{"B > 1", "!(B > 1) && C", "!(B > 1) && !(C)",
                                                  "!defined(A)", ""}));
}

TEST(CppMacros, SensesComeFromDefinitions) {
  gMacroTable table;
  table.collect("#define N\n#define A __attribute__((x))\n#  define S static inline\n#define T "
                "unsigned int *\n"
                "#define D(x) int x;\n#define O namespace a {\n#define C }\n#define V (1 + 2)\n"
                "#define B A S N\n#define X N\n#define R(t) A t\n#define M 1\n");
  gMacroTable more;
  more.collect("#define N __declspec(y)\n#define M int\n#define STR(x) #x\n");
  table.merge(more);
  auto const senses = [&](std::initializer_list<char const *> names) {
    std::vector<int> all;
    for (char const * name : names)
      all.push_back(static_cast<int>(table.sense(name)));
    return all;
  };
  using enum gMacroSense;
  auto const numbers = [](std::initializer_list<gMacroSense> list) {
    std::vector<int> all;
    for (gMacroSense one : list)
      all.push_back(static_cast<int>(one));
    return all;
  };
  EXPECT_EQ(senses({"N", "A", "S", "T", "D", "O", "C", "V", "B", "X", "R", "M", "STR", "?"}),
            numbers({attribute, attribute, attribute, type, declaration, opens, closes, value,
                     attribute, attribute, type, mixed, value, unknown}));
}

} // namespace

} // namespace Decl

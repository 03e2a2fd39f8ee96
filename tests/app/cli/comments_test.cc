// What "quick" makes of comments that reach beyond one declaration.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>

#include "program.h"

namespace {

// The text between the first place of `begin` and what ends it.
std::string between(std::string const & page, std::string const & begin, std::string const & end) {
  std::size_t const from = page.find(begin);
  return from == page.npos ? "" : page.substr(from, page.find(end, from) - from);
}

constexpr char const * shapes = R"(/** \defgroup shapes Shapes
 * All that has an area.
 * @{
 */
/** A circle. */
class Circle {
public:
  Circle();
  /** @name Measures
   *  What can be told.
   *  @{ */
  double area() const; ///< The area.
  double radius() const;
  /** @} */
  void draw();
};
/** \defgroup round Round shapes
 *  \ingroup geometry */
int edges(int x); ///< Edges.
/** @} */
int outside;
//@{
int also_outside;
//@}
/** Squares it. \ingroup shapes nowhere */
int square(int x);
/// @cond INTERNAL
int secret(int);
/** Hidden text. */
struct Hidden { int a; };
/// @endcond
int open(int);
)";

TEST(comments, topics_have_pages_with_their_members) {
  Sandbox box;
  box.write("tree/a.h", shapes);
  box.write("tree/b.h", "/** \\addtogroup shapes\n *  More words.\n *  @{ */\n"
                        "struct Triangle { int corner; };\n"
                        "namespace deep {\n/** Within. */\nvoid inside();\n}\n/** @} */\n"
                        "/** \\defgroup geometry Geometry\n * The whole. */\n"
                        "/** \\addtogroup geometry\n *  @{ */\n"
                        "/** \\addtogroup shapes */\n/** @} */\n");
  Answer const answer = box.run("quick tree -o doc");
  EXPECT_EQ(answer.status, 0) << answer.err;
  std::string const log = box.read("doc/ana.log");
  EXPECT_NE(log.find("WARNING 463: No comment defines this topic: NOWHERE ("), log.npos) << log;

  std::string const page = box.read("doc/htm/Shapes.htm");
  for (char const * text :
       {"All that has an area.", "More words.", "href=\"Circle.htm\"", "href=\"Triangle.htm\"",
        "#edges\"", "#square\"", "#deep.inside\"", "href=\"Round-shapes.htm\""})
    EXPECT_NE(page.find(text), page.npos) << text;
  std::string const list = between(page, "<main", "</main>");
  for (char const * text : {"#area", "#corner", "outside", "deep.htm", "#include", "#open"})
    EXPECT_EQ(list.find(text), list.npos) << text;
  std::string const way = between(page, "class=\"crumbs\"", "</nav>");
  EXPECT_NE(way.find("Geometry.htm"), way.npos) << "a topic stands below the one that it is in";
  EXPECT_NE(box.read("doc/htm/Geometry.htm").find("Round-shapes.htm"), page.npos);
  EXPECT_NE(box.read("doc/htm/index.htm").find("href=\"Geometry.htm\""), page.npos);

  std::string const circle = box.read("doc/htm/Circle.htm");
  EXPECT_NE(circle.find("Topic: <a href=\"Shapes.htm\">Shapes</a>"), circle.npos);
  std::string const measures = between(circle, ">Measures</h2>", "</div>");
  EXPECT_NE(measures.find("#area"), circle.npos) << circle;
  EXPECT_NE(measures.find("#radius"), circle.npos);
  EXPECT_EQ(measures.find("#draw"), circle.npos);
  EXPECT_EQ(circle.find("@{"), circle.npos);
  EXPECT_NE(box.read("doc/htm/deep.htm").find(">inside<"), std::string::npos);
}

TEST(comments, private_stretches_are_not_published) {
  Sandbox box;
  box.write("tree/a.h", shapes);
  EXPECT_EQ(box.run("quick tree -o doc").status, 0);
  std::string const code = box.read("doc/quick.atc");
  EXPECT_NE(code.find("int open(int)"), code.npos);
  EXPECT_EQ(code.find("secret"), code.npos);
  EXPECT_EQ(code.find("Hidden"), code.npos);
}

TEST(comments, the_main_page_begins_the_manual_and_pages_stand_below_each_other) {
  Sandbox box;
  box.write("tree/README.md", "# Read me\n\nWords of the file.\n");
  box.write("tree/a.h", "/** \\mainpage The library\n * Welcome. See \\subpage install. */\n"
                        "/** \\page install Installing\n * Unpack it. \\subpage deep */\n"
                        "/** \\page deep Deep matters\n * Words. \\subpage install */\nint x;\n");
  EXPECT_EQ(box.run("quick tree -o doc").status, 0);
  std::string const start = box.read("doc/htm/index.htm");
  EXPECT_NE(start.find("<p>Welcome. See <a href=\"Installing.htm#b-install\">Installing</a>"),
            start.npos)
      << start;
  EXPECT_EQ(start.find("Words of the file."), start.npos);
  std::string const way =
      between(box.read("doc/htm/Deep-matters.htm"), "class=\"crumbs\"", "</nav>");
  EXPECT_NE(way.find("The-library.htm"), way.npos) << way;
  EXPECT_NE(way.find("Installing.htm"), way.npos) << way;
}

// What isn't understood stands there in TeX, and is told once.
TEST(comments, formulas_are_shown_without_a_script) {
  Sandbox box;
  box.write("tree/a.h",
            "/** Of \\f$ x_1 < \\frac{a}{b} \\f$ and \\f$ \\magic x \\f$, \\f$ \\magic y \\f$.\n"
            " * \\f{align*}{ a &= b \\\\ c &= d \\f} */\nint f();\n");
  EXPECT_EQ(box.run("quick tree -o doc").status, 0);
  std::string const page = box.read("doc/htm/a.h.htm");
  EXPECT_NE(
      page.find("<math alttext=\" x_1 &lt; \\frac{a}{b} \"><mrow><msub><mi>x</mi><mn>1</mn></msub>"
                "<mo>&lt;</mo><mfrac><mi>a</mi><mi>b</mi></mfrac></mrow></math>"),
      page.npos)
      << page;
  EXPECT_NE(page.find("<code class=\"formula\"> \\magic x </code>"), page.npos) << page;
  EXPECT_NE(page.find("<math display=\"block\""), page.npos);
  EXPECT_EQ(page.find("\\f{"), page.npos);
  std::string const log = box.read("doc/htm.log");
  std::size_t const told = log.find("535");
  EXPECT_NE(told, log.npos) << log;
  EXPECT_EQ(log.find("535", told + 1), log.npos) << log;
}

TEST(comments, unknown_commands_are_shown_and_told_once) {
  Sandbox box;
  box.write("tree/a.h",
            "/** Says \\wrongword here and \\wrongword there. \\brief known */\nint f();\n");
  box.write("tree/b.h", "/** \\page x Text\n * Or \\wrongword, C:\\new and \\other. */\n");
  EXPECT_EQ(box.run("quick tree -o doc").status, 0);
  std::string const log = box.read("doc/ana.log");
  EXPECT_NE(log.find("a command that isn't known: \\wrongword, 3 times ("), log.npos) << log;
  EXPECT_NE(log.find("a.h:1)"), log.npos) << log;
  EXPECT_NE(log.find("known: \\other ("), log.npos) << log;
  EXPECT_EQ(log.find("new", log.find("WARNING")), log.npos) << log;
  EXPECT_NE(box.read("doc/htm/a.h.htm").find("Says \\wrongword here"), log.npos);
}

// What comments show of files lies in folders that the project names.
TEST(comments, files_are_shown_from_the_named_folders_alone) {
  Sandbox box;
  box.write("tree/a.h",
            "/** Makes one.\n * \\snippet make.cpp body\n * \\include ../secret.cpp\n"
            " * \\include link.cpp\n * \\htmlinclude text.html\n"
            " * \\dontinclude make.cpp\n * \\skip main\n * \\until }\n */\nint make();\n"
            "/** Shows \\include missing.cpp\n * \\include missing.cpp */\nint show();\n"
            "//! [here]\nint own_part;\n//! [here]\n"
            "/** \\snippet this here */\nint self();\n");
  box.write("parts/make.cpp", "//! [body]\n    int in_body;\n    //! [inner]\n//! [body]\n"
                              "int main() {\n  return 1;\n}\nint behind;\n");
  box.write("parts/text.html", "<b>Bold</b><script>alert(1)</script>\n");
  box.write("secret.cpp", "int secret_word;\n");
  std::filesystem::create_symlink("../secret.cpp", box.path("parts/link.cpp").c_str());
  EXPECT_EQ(box.run("quick tree -o doc --set ana/example_path=" + box.path("parts")).status, 0);
  std::string const page = box.read("doc/quick.atc");
  EXPECT_NE(page.find("@b_verbatim<cpp>\nint in_body;\n@e_verbatim"), page.npos) << page;
  EXPECT_NE(page.find("int main() {\n  return 1;\n}\n@e_verbatim"), page.npos) << page;
  EXPECT_NE(page.find("@b{Bold} "), page.npos) << page;
  EXPECT_NE(page.find("int own_part;\n@e_verbatim"), page.npos) << page;
  for (char const * text : {"secret_word", "\n@script", "behind", "[inner]"})
    EXPECT_EQ(page.find(text), page.npos) << text;
  std::string const log = box.read("doc/ana.log");
  EXPECT_NE(log.find("isn't there: missing.cpp ("), log.npos) << log;
  EXPECT_NE(log.find("isn't there: ../secret.cpp ("), log.npos) << log;
  EXPECT_NE(log.find("isn't there: link.cpp ("), log.npos) << log;

  box.write("parts/make.cpp", "//! [body]\nint other_body;\n//! [body]\n");
  EXPECT_EQ(box.run("quick tree -o doc --set ana/example_path=" + box.path("parts")).status, 0);
  EXPECT_NE(box.read("doc/quick.atc").find("int other_body;"), page.npos) << "an old result";
}

TEST(comments, pictures_come_from_the_named_folders_alone) {
  Sandbox box;
  box.write("tree/a.h",
            "/** Shows one.\n * @image html wheel.png \"A wheel\" width=10cm\n"
            " * @image latex wheel.eps \"never\"\n"
            " * @image html wheel.png \"Again\" width=1;color:red\n"
            " * Words ![mark](sub/mark.svg) and @image{inline} html wheel.png \"small\" behind.\n"
            " * @image html ../secret.png \"No secret\"\n * @image html link.png\n"
            " * ![no](file:///etc/x.png) @image html gone.png @image html gone.png */\nint f();\n");
  box.write("pics/wheel.png", "PNG");
  box.write("pics/sub/mark.svg", "<svg/>");
  box.write("secret.png", "SECRET");
  std::filesystem::create_symlink("../secret.png", box.path("pics/link.png").c_str());
  EXPECT_EQ(box.run("quick tree -o doc --set ana/image_path=" + box.path("pics")).status, 0);
  std::string const page = box.read("doc/htm/a.h.htm");
  for (char const * text : {"<span class=\"caption\">A wheel</span>", "style=\"width: 10cm\"",
                            "alt=\"mark\"", "alt=\"small\"", "behind.", "No secret"})
    EXPECT_NE(page.find(text), page.npos) << text << page;
  for (char const * text : {"never", "color:red", "etc/x", "src=\"http", "secret.png"})
    EXPECT_EQ(page.find(text), page.npos) << text;
  std::multiset<std::string> copied;
  for (auto const & one : std::filesystem::directory_iterator(box.path("doc/htm/_images").c_str()))
    copied.insert(one.path().extension().string());
  EXPECT_EQ(copied, (std::multiset<std::string>{".png", ".svg"}));
  std::string const log = box.read("doc/ana.log");
  EXPECT_NE(log.find("isn't there: gone.png, 2 times ("), log.npos) << log;
  EXPECT_NE(log.find("isn't there: ../secret.png ("), log.npos) << log;
}

TEST(comments, a_doxyfile_says_what_counts_and_how) {
  Sandbox box;
  box.write("lib/Doxyfile",
            "# Settings\nPROJECT_NAME = \"The Library\" # with a blank\n"
            "PROJECT_NUMBER=2.5\nINPUT = src \\\n  more README.md\nRECURSIVE = YES\n"
            "EXCLUDE = src/left\nEXCLUDE_PATTERNS = */detail/* *_p.h\n"
            "FILE_PATTERNS = *.h\n@INCLUDE = common.cfg\n"
            "ALIASES += \"pair{2}=\\1 and; \\2\"\nENABLED_SECTIONS = EXTRA\n"
            "GENERATE_LATEX = NO\nOUTPUT_DIRECTORY = out\n");
  box.write("lib/common.cfg", "ALIASES = \"effect=\\par Effects:^^\" nest=\\pair{a,b}\n"
                              "PREDEFINED = \"LIB_API=\" LIB_N=3\nINTERNAL_DOCS = YES\n");
  box.write(
      "lib/src/a.h",
      "/** One. \\nest\n * \\effect Few.\n * \\if (EXTRA && !OTHER)\n"
      " * Extra.\n * \\endif\n * \\if OTHER\n * Never.\n * \\endif\n * \\internal\n * Inside. "
      "*/\nLIB_API int one(int);\n");
  for (char const * name : {"src/a.cpp", "src/left/b.h", "src/detail/c.h", "src/d_p.h"})
    box.write("lib/" + std::string(name), "/** Left. */\nint left_out_thing();\n");
  box.write("lib/more/deep/e.h", "/** Deep. */\nint deep_thing();\n");
  box.write("lib/README.md", "# Lib\n\nRead this first.\n");
  Answer const answer = box.run("quick --doxyfile lib/Doxyfile -v");
  EXPECT_EQ(answer.status, 0) << answer.err;
  EXPECT_NE(answer.err.find("Not taken over from the Doxyfile: GENERATE_LATEX"), answer.err.npos);
  std::string const code = box.read("lib/out/site/quick.atc");
  for (char const * text :
       {"One. a and; b", "Effects:", "Extra.", "Inside.", "int one(int)", "deep_thing"})
    EXPECT_NE(code.find(text), code.npos) << text << "\n" << code;
  EXPECT_EQ(code.find("left_out_thing"), code.npos);
  EXPECT_EQ(code.find("Never."), code.npos);
  for (char const * text : {"The Library", "Read this first."})
    EXPECT_NE(box.read("lib/out/site/htm/index.htm").find(text), code.npos) << text;

  for (auto const & [text, told] : std::map<std::string, std::string>{
           {"INPUT = .\n@INCLUDE = ../other\n", "Doxyfile:2: '../other' doesn't lie in"},
           {"@INCLUDE = Doxyfile\n", "include each other without end"},
           {"INPUT = x\n\nno assignment\n", "Doxyfile:3: 'no assignment' is no assignment"},
           {std::string("INPUT = \0x", 10), "is no Doxyfile"}}) {
    box.write("bad/Doxyfile", text);
    Answer const refused = box.run("quick --doxyfile bad/Doxyfile -o doc");
    EXPECT_EQ(refused.status, 2) << text;
    EXPECT_NE(refused.err.find(told), refused.err.npos) << refused.err;
  }
}

} // namespace

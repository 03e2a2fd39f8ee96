// What "quick" makes of comments that reach beyond one declaration.

#include <gtest/gtest.h>

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
  EXPECT_NE(start.find("<p>Welcome. See <a href=\"Installing.htm"), start.npos) << start;
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

} // namespace

// Plan and parts of a site, from documents that are made here or read from a text.

#include <regex>

#include <gtest/gtest.h>

#include "app/options/options.h"
#include "conv/atc/reader.h"
#include "conv/conversion.h"
#include "conv/htm/declaration_text.h"
#include "conv/htm/index_page.h"
#include "conv/htm/search_words.h"
#include "conv/htm/slug.h"
#include "conv/set/declaration.h"
#include "conv/set/enumerators.h"
#include "conv/set/signature.h"
#include "support/case_file.h"
#include "support/temp_folder.h"
#include "support/test_outside.h"

namespace {

std::vector<std::string> split(std::string const & text, char separator) {
  std::vector<std::string> parts(1);
  for (char const c : text)
    if (c == separator)
      parts.emplace_back();
    else
      parts.back() += c;
  return parts;
}

std::vector<std::string> lines_of(std::string const & text) {
  std::vector<std::string> lines = split(text, '\n');
  if (lines.back().empty())
    lines.pop_back();
  return lines;
}

// Lines "level|name|declaration", sections parted by an empty line; the parents go by the levels.
gDocument outline(std::string const & text) {
  gDocument document;
  std::vector<int> open; // the last unit of each level
  for (std::string const & line : lines_of(text)) {
    if (line.empty()) {
      open.clear();
      continue;
    }
    if (open.empty())
      document.sections.emplace_back();
    std::vector<std::string> fields = split(line, '|');
    fields.resize(3);
    gUnitRecord unit;
    unit.level = std::stoi(fields[0]);
    unit.name = unit.title = fields[1];
    unit.declaration = fields[2];
    unit.path = "/src/a.h";
    unit.section = static_cast<int>(document.sections.size()) - 1;
    auto const level = static_cast<std::size_t>(unit.level);
    open.resize(level + 1, -1);
    for (std::size_t above = level; above > 0 && unit.parent < 0; --above)
      unit.parent = open[above - 1];
    open[level] = static_cast<int>(document.units.size());
    document.units.push_back(unit);
  }
  return document;
}

std::string addresses(std::string const & text) {
  gDocument const document = outline(text);
  gSite const site(document, gVltRules(), "", 2);
  std::string out;
  for (int unit = 0; unit < static_cast<int>(document.units.size()); ++unit) {
    out += site.addresses.href(unit);
    if (!site.addresses.alias(unit).empty())
      (out += " #") += site.addresses.alias(unit);
    out += '\n';
  }
  for (gSimilarPages const & similar : site.addresses.similar())
    out += "similar: " + similar.name + '\n';
  return out;
}

// Where links can lead: units by their addresses and by their other anchors.
std::set<std::string> places_of(std::string const & all) {
  std::set<std::string> places;
  for (std::string const & line : lines_of(all)) {
    std::string const address = line.substr(0, line.find(' '));
    places.insert(address);
    if (address.size() < line.size())
      places.insert(address.substr(0, address.find('#')) + line.substr(address.size() + 1));
  }
  return places;
}

// With "?" for each hash, after a check that all are different.
std::string masked_addresses(std::string const & text) {
  std::string const all = addresses(text);
  std::set<std::string> different;
  for (std::string const & line : lines_of(all))
    EXPECT_TRUE(different.insert(line).second) << line;
  return std::regex_replace(all, std::regex("-[0-9a-f]{6}"), "-?");
}

// Input: a declaration of one line, the names that are known.
std::string declaration(std::string const & input) {
  gVltRules rules;
  rules.parse("@set<keywords_cpp> = class const public template typename virtual void\n"
              "@colour = $text\n",
              "test.vlt");
  gColours const colours(rules);
  std::vector<std::string> const lines = lines_of(input);
  std::vector<std::string> const known = split(lines[1], ' ');
  gKnownFacts facts; // of what has its contents in its declaration
  facts.size = lines[0].size();
  facts.kind = lines[0].substr(0, lines[0].find(' '));
  std::string out;
  DeclarationText::set(
      Declaration::broken(lines[0], facts), gLanguage::cpp, colours,
      [&known](std::string_view name, std::string & link) {
        bool const found = std::ranges::find(known, name) != known.end();
        if (found)
          ((link += '[') += name) += ']';
        return found;
      },
      out);
  return out + '\n';
}

// Lines of program text; "pas" as first line for Pascal.
std::string colours(std::string const & input) {
  gVltRules rules;
  rules.parse("@set<keywords_cpp> = int return\n@set<keywords_pas> = begin end\n"
              "@colour = <$name:$text>\n",
              "test.vlt");
  gColours const scanner(rules);
  bool const pascal = input.starts_with("pas\n");
  std::string out;
  scanner.set(pascal ? gLanguage::pascal : gLanguage::cpp, input.substr(pascal ? 4 : 0), out);
  return out;
}

// The files of a site by their names.
class HtmSite : public ::testing::Test {
protected:
  // Converts intermediate code, with the rules in ini/.
  void convert(std::string const & units, std::string const & rules = {}) {
    std::string const source = std::string(VELLUMAR_SOURCE_DIR) + "/ini/";
    folder_.write("out/m.atc",
                  "@verinfo<VL_10>\n@outfile<m>\n\n@b_section<>\n@b_secthead\n@e_secthead\n" +
                      units + "\n@e_atc\n");
    std::string const script =
        folder_.write("m.vlt", "#include \"" + source + "htm.vlt\"\n" + rules);
    Vapp::options["target"] = cat::make("htm");
    Vapp::options["out_dir"] = cat::make(gString(folder_.path("out")));
    Vapp::options["atc_file"] = cat::make(gString(folder_.path("out/m.atc")));
    cMapObj & htm = Vapp::options.submap("htm");
    htm["out_dir"] = cat::make(gString(folder_.path("out/htm")));
    htm["cur_vlt"] = cat::make(gString(script));
    htm["cur_helpers_dir"] = cat::make(gString(source + "htm_helpers"));
    for (char const * key : {"start_text", "site_url", "version"})
      htm[key] = cat::make(gString(htm_[key]));
    Htm::make_manual(Vapp::conversion_input("htm"));
  }
  std::string file(std::string const & name) const { return folder_.read("out/htm/" + name); }
  std::string unit(int level, std::string const & name, std::string const & path, int line,
                   std::string const & content) const {
    std::string const label = "L" + std::to_string(line);
    return "\n@unit<" + std::to_string(level) + "><main><class><pos><" + path + "><" +
           std::to_string(line) + "><" + label + ">\n@bkmk<" + label + ">\n@xe<" + label + "><><" +
           name + "><><><>\n@hdline{" + name + "}\n@text\n" + content + "\n@end\n";
  }
  static std::string protect(std::string const & text) {
    return std::regex_replace(text, std::regex("[>,]"), "\\$&");
  }
  // The same with what its reader knew; `more` are further lines of that and, behind "\n\n", text.
  std::string known(int level, std::string const & kind, std::string const & name,
                    std::string const & last, std::string const & marks,
                    std::string const & declaration, std::string const & more = {}) {
    auto const range = [](std::size_t begin, std::size_t end) {
      return std::to_string(begin) + "-" + std::to_string(end);
    };
    std::size_t const at = declaration.find(last), colon = declaration.find(" : ");
    std::size_t const head = declaration.starts_with("template") ? declaration.find('>') + 1 : 0;
    std::size_t const open = at + last.size(), close = declaration.find(')', open);
    bool const routine = open < declaration.size() && declaration[open] == '(';
    std::size_t const cut = std::min(more.find("\n\n"), more.size());
    std::string text = unit(level, name, path_, ++line_,
                            "@subentry<1> @b_verbatim\n" + declaration + "\n@e_verbatim\n" +
                                (cut < more.size() ? more.substr(cut + 2) : ""));
    return text.insert(text.find("@bkmk"),
                       "@_facts<" + kind + "><" + protect(name) + "><" + protect(last) +
                           "><public><" + marks + "><" + condition_ + "><1><9><" +
                           std::to_string(declaration.size()) + "><" + range(at, at + last.size()) +
                           "," + range(0, head) + "," + (routine ? range(open, close + 1) : "") +
                           "," +
                           (colon == declaration.npos ? "" : range(colon + 3, declaration.size())) +
                           ",>\n" + more.substr(0, cut) + (cut > 0 ? "\n" : ""));
  }
  static std::string link(std::string const & path, int line) {
    return "@b_ll\n@macro<srclink><" + path + "><" + std::to_string(line) + ">{Source}\n@e_ll\n";
  }

  TempFolder folder_;
  TestOutside outside_;
  std::string path_ = "/x/a.h", condition_; // of the units that are known
  int line_ = 0;
  std::map<std::string, std::string> htm_; // options of the target
};

void expect_in_order(std::string const & page, std::vector<std::string> const & parts) {
  std::size_t at = 0;
  for (std::string const & part : parts) {
    at = page.find(part, at);
    ASSERT_NE(at, std::string::npos) << part << "\n" << page;
  }
}

} // namespace

TEST(Htm, Addresses) {
  check_cases(CASE_DIR "/addresses.cases", masked_addresses);
}
TEST(Htm, Declarations) {
  check_cases(CASE_DIR "/declarations.cases", declaration);
}
TEST(Htm, Colours) {
  check_cases(CASE_DIR "/colours.cases", colours);
}

// A name that moves when something unlike it arrives would break links from outside.
TEST(Htm, AddressesStayWhenUnitsArrive) {
  std::string const before =
      addresses("1|Guide\n2|a::f|void f(int)\n2|a::f|void f(long)\n2|A|class A\n"
                "3|A::g|void g()\n");
  std::string const after =
      addresses("1|News\n2|b|class b\n1|Guide\n2|a::f|void f()\n2|a::f|void f(int)\n"
                "2|a::f|void f(long)\n2|A|class A\n3|A::e|void e()\n3|A::g|void g()\n");
  std::set<std::string> const places = places_of(after);
  for (std::string const & place : places_of(before))
    EXPECT_TRUE(places.contains(place)) << place;
}

// Half a result may not take the place of a whole one.
TEST_F(HtmSite, FilesThatVanishMeanwhileAreNoticed) {
  convert(unit(1, "a", "/x/a.h", 1, "Text."));
  std::string const before = file("index.htm");
  gConversionInput const input = Vapp::conversion_input("htm");
  gConversion conversion(input);
  ASSERT_TRUE(conversion.start());
  conversion.write("index.htm", "new");
  conversion.write("sub/other.htm", "new");
  std::filesystem::remove(conversion.written("sub/other.htm").c_str());
  EXPECT_FALSE(conversion.finish("index.htm"));
  EXPECT_EQ(file("index.htm"), before);
}

// Thirty constructors as thirty equal rows hide everything else; a chapter without anything in it
// is a way to nowhere.
TEST_F(HtmSite, OverloadsAreOneRowAndEmptyHeadingsNone) {
  std::string const heading = "\n@unit<1><main><text><pos></x/m.vls><1><H1>\n@bkmk<H1>\n@hdline{";
  std::string const code = "@subentry<1> @b_verbatim\nvoid f";
  convert(heading + "Nothing}\n@end\n" + heading + "Things}\n@end\n" +
          unit(2, "f", "/x/a.h", 2, code + "(int)\n@e_verbatim\n") +
          unit(2, "f", "/x/a.h", 3, "What f does.\n" + code + "(long)\n@e_verbatim\n") +
          unit(2, "g", "/x/a.h", 4, "Text.") + unit(3, "g::h", "/x/a.h", 5, "A.") +
          unit(3, "g::h", "/x/a.h", 6, "B.") + unit(3, "g::i", "/x/a.h", 7, "C."));
  EXPECT_EQ(file("index.htm").find("Nothing"), std::string::npos);
  std::regex const row("f <small[^<]*×2</small>.*What f does");
  EXPECT_TRUE(std::regex_search(file("index.htm"), row)) << file("index.htm");
  EXPECT_NE(file("index.htm").find("3 classes with 3 members"), std::string::npos);
  EXPECT_NE(file("g.htm").find("href=\"#h-"), std::string::npos);
  EXPECT_EQ(file("g.htm").find("<h3"), std::string::npos);
}

// Signs that touch a name, such as those of operators and destructors, must neither be lost nor cut
// the link; a class of another namespace must not appear in this one.
TEST_F(HtmSite, MembersShowSignaturesAndNamespacesWhatTheyHold) {
  convert(known(2, "namespace", "n", "n", "", "namespace n") +
          known(2, "namespace", "m", "m", "", "namespace m") +
          known(2, "class", "m::Q", "Q", "", "class Q") +
          known(2, "class", "n::C", "C", "", "class C") +
          known(3, "method", "n::C::all", "all", "static", "static int all();") +
          known(3, "operator", "n::C::operator=", "operator=", "", "C& operator=(C const&);") +
          known(3, "destructor", "n::C::~C", "~C", "", "virtual ~C();") +
          known(3, "method", "n::C::to", "to", "", "Q to(m::Q x);") +
          known(3, "constructor", "n::C::C", "C", "", "C(int);"));
  std::string const page = file("n.C.htm");
  std::size_t at = 0;
  for (char const * part :
       {"Constructors and destructor", "<b>virtual</b> <a class=\"own\" href=\"#~C\">~C</a>()",
        ">C</a>(<b>int</b>)", "Methods", ">to</a>(<a href=\"m.Q.htm\">m::Q</a> x)",
        "Static methods", ">all</a>()", "Operators", ">operator=</a>(C <b>const</b>&amp;)"}) {
    at = page.find(part, at);
    ASSERT_NE(at, std::string::npos) << part << "\n" << page;
  }
  EXPECT_NE(file("n.htm").find("href=\"n.C.htm\""), std::string::npos) << file("n.htm");
  std::string const main = file("n.htm").substr(file("n.htm").find("<main"));
  EXPECT_EQ(main.substr(0, main.find("</main")).find("m.Q.htm"), std::string::npos) << main;
}

// A list of members is read for what it tells at one glance, so what others say already must not be
// said again; but no address may get lost with it.
TEST_F(HtmSite, RowsOfMembersSayWhatDetailsNeedNot) {
  std::string units = known(2, "class", "n::C", "C", "", "class C");
  units += known(3, "method", "n::C::bare", "bare", "", "auto bare(int x) -> long;");
  units += known(3, "method", "n::C::put", "put", "", "void put(int a);", "\n\nPuts @em{it}.\n");
  units += known(3, "method", "n::C::put", "put", "", "void put(int a, char* b);",
                 "\n\nA.\n@subentry<1> @subtitle{See also}\nB.\n");
  units += known(3, "method", "n::C::all", "all", "", "template <class T> void all(T t);");
  units += known(3, "enum", "n::C::E", "E", "", "enum E { one, two };", "@_value<one><><0>");
  units +=
      known(3, "member", "n::C::data", "data", "", "int data[] = {" + std::string(200, '1') + "};");
  units += known(3, "method", "n::C::in::make", "make", "", "void in::make(D d);");
  convert(units);
  std::string const page = file("n.C.htm");
  EXPECT_NE(page.find("</b> in::<a class=\"own\""), std::string::npos) << page;
  expect_in_order(page, {"On this page", "#g-method", "#bare", "#g-enum", "#E"});
  expect_in_order(page, {"id=\"g-method\">Methods", "<li id=\"bare\"", "class=\"arrow\">-&gt;<",
                         ", <span class=\"differs\"><b>char</b>* b</span>)",
                         "class=\"template\"><b>template</b> &lt;<b>class</b> T&gt;<", ">all</a>(T",
                         "<a class=\"own\" href=\"#data\">data</a>[]</code>",
                         "<a class=\"own\" href=\"#E\">E</a></code>", "id=\"g-details\"",
                         "<h3 class=\"code-name\">n::C::put", "See also", "<p>B.</p>"});
  EXPECT_EQ(page.find("<h3 class=\"code-name\">n::C::bare"), std::string::npos);
  std::size_t const words = page.find("Puts <em>it</em>.</span>");
  EXPECT_NE(words, std::string::npos) << page;
  EXPECT_EQ(page.find("Puts <em>it</em>", words + 1), std::string::npos);
  EXPECT_EQ(page.find("id=\"bare\""), page.rfind("id=\"bare\""));
  EXPECT_NE(file("_search/n-0.js").find("bare"), std::string::npos);
}

// In a library of thousands of classes the way and the neighbours are what stands together, not
// what happens to have the next name.
TEST_F(HtmSite, WaysFollowScopes) {
  std::string units =
      "\n@unit<1><main><text><pos></x/m.vls><1><H1>\n@bkmk<H1>\n@hdline{All}\n@end\n" +
      known(2, "namespace", "n", "n", "", "namespace n") +
      known(2, "namespace", "n::in", "in", "", "namespace n::in");
  for (char const * name : {"Alone", "n::A", "n::A<int>", "n::B", "n::B::Nested", "n::in::Deep"}) {
    std::string const whole = name, last = whole.substr(whole.rfind(':') + 1);
    bool const special = last.ends_with('>');
    units += known(2, "class", whole, last, special ? "specialisation" : "",
                   (special ? "template<> class " : "class ") + last);
  }
  convert(units);
  auto const part = [this](std::string const & page, std::string const & begin) {
    std::string const text = file(page);
    std::size_t const at = text.find(begin);
    return text.substr(at, text.find("</nav>", at) - at);
  };
  expect_in_order(part("n.B.Nested.htm", "class=\"crumbs\""),
                  {"index.htm", ">n</a>", "<a href=\"n.B.htm\">B</a>", "page\">Nested<"});
  EXPECT_EQ(part("n.B.Nested.htm", "class=\"crumbs\"").find(">All<"), std::string::npos);
  EXPECT_NE(part("Alone.htm", "class=\"crumbs\"").find(">All<"), std::string::npos);
  std::string const tree = part("n.B.htm", "<nav id=\"contents\"");
  expect_in_order(
      tree, {">All<", ">n<", "n.in.htm", "n.A.htm", "n.B.htm\" aria-current", "n.B.Nested.htm"});
  for (char const * none : {"Alone.htm", "n.A-int.htm", "n.in.Deep.htm"})
    EXPECT_EQ(tree.find(none), std::string::npos) << none;
  EXPECT_NE(part("n.A-int.htm", "<nav id=\"contents\"").find("n.A-int.htm\" aria-current"),
            std::string::npos);
}

// Who opens an override without a text wants the text of its base, and to know that it is one; what
// a class inherits must be found on its page, but a hidden member must not.
TEST_F(HtmSite, ClassesTellWhatTheyHaveFromEachOther) {
  std::string const steps = "@b_hierarchy\n@b_base\n@cref<main><L1><><0>{Base} "
                            "@hieraprop<0><private><>{private}\n@e_base\n@thisclass\n"
                            "@cref<main><L4><><1>{n::D}\n@e_hierarchy\n";
  std::string units = known(2, "struct", "Base", "Base", "", "struct Base");
  units += known(3, "method", "Base::run", "run", "virtual", "virtual void run(int);",
                 "@_signature<(int)>\n\n@subentry<1> @subtitle{}\nRuns <fast>.\n");
  units += known(3, "method", "Base::stop", "stop", "", "void stop();", "@_signature<()>");
  units += known(2, "struct", "n::D", "D", "", "struct D : Base", "\n\n" + steps);
  units += known(3, "method", "n::D::run", "run", "override", "void run(int) override;",
                 "@_signature<(int)>");
  convert(units);
  std::string const derived = file("n.D.htm"), base = file("Base.htm");
  expect_in_order(derived,
                  {"<svg", "class=\"private\"", "<a href=\"Base.htm\" aria-label=\"Base\"><g",
                   "Base</text>", "class=\"this\"", "Inherited from <code>Base</code>",
                   "href=\"Base.htm#stop\"", "id=\"run\"", "Runs &lt;fast&gt;.",
                   "Text of <a href=\"Base.htm#run\">", "Overrides <a href=\"Base.htm#run\">"});
  EXPECT_EQ(derived.find("href=\"Base.htm#run\"><span"), std::string::npos) << "hidden";
  expect_in_order(base, {"Runs &lt;fast&gt;", "Overridden in <a href=\"n.D.htm#run\">"});
}

// Values without a comment count, too; each can be linked to.
TEST_F(HtmSite, EnumerationsAreTables) {
  std::string const values = "@_value<red><><0>\n@_value<mask><red \\> 1><0>\n@_value<odd><f()><>";
  convert(known(2, "enum class", "E", "E", "", "enum class E",
                values + "\n\n@subentry<1> @subtitle{Values}\n@b_enum<>\n@enum @tt{red} Like "
                         "blood.\n@e_enum\n") +
          known(2, "enum", "F", "F", "", "enum F", "@_value<one><><1>"));
  expect_in_order(file("E.htm"), {"<th scope=\"col\">Value", ">Number", ">Meaning", "id=\"b-red\"",
                                  "red</code>", "<td>0", "Like blood.", "id=\"b-mask\"",
                                  "red &gt; 1", "(0)", "id=\"b-odd\"", "f()"});
  expect_in_order(file("F.htm"), {"Values", "id=\"b-one\"", "<td>1"});
  EXPECT_EQ(file("F.htm").find("Meaning"), std::string::npos);
}

// Whom a class lets in is found by scope, and never taken for a template's own parameter.
TEST_F(HtmSite, ClassesTellTheirFriends) {
  std::string const friends = "@_friend<class R>\n@_friend<n::in::G<int\\>>\n@_friend<T>\n"
                              "@_friend<class x::Elsewhere>\n";
  convert(known(2, "class", "n::C", "C", "", "template <class T> class C", friends) +
          known(2, "class", "n::R", "R", "", "class R") +
          known(2, "class", "R", "R", "", "class R") +
          known(2, "struct", "n::in::G", "G", "", "struct G") +
          known(2, "class", "n::T", "T", "", "class T"));
  std::string const page = file("n.C.htm");
  expect_in_order(page, {">Friends<", "href=\"n.R.htm\"", "href=\"n.in.G.htm\"",
                         "\"signature\">T</code>", "\"signature\">class x::Elsewhere</code>"});
  std::string const list = page.substr(page.find(">Friends<"));
  EXPECT_EQ(list.substr(0, list.find("</ul>")).find("n.T.htm"), std::string::npos) << list;
}

// A switch has two values, and a reader must see both.
TEST_F(HtmSite, MacrosTellAllTheirDefinitions) {
  std::string const both = "@_variant<defined(W)><#define M 1>\n@_variant<><#define M <2\\>>\n";
  convert(known(2, "macro", "M", "M", "", "#define M 1",
                both + "\n@subentry<1> @subtitle{}\n"
                       "@b_verbatim\n#define M 1\n"
                       "@e_verbatim\n\nSays so.\n"));
  expect_in_order(file("M.htm"),
                  {">#define</span> M", ">Where<", "#define M 1</code>", "defined(W)</code>",
                   "#define M &lt;2&gt;</code>", "anywhere", "Says so."});
}

// Scopes, headers and warnings on the first screen; what isn't meant for users behind the rest.
TEST_F(HtmSite, HeadsAndListsSayWhatCanBeReliedOn) {
  path_ = "/x/include/lib/a.h";
  condition_ = "!defined(M)";
  std::string const macro = known(2, "macro", "M", "M", "", "#define M 1");
  condition_ = "defined(A\\>B)";
  std::string units = known(2, "namespace", "n", "n", "", "namespace n") +
                      known(2, "class", "n::T", "T", "deprecated", "class T",
                            "\n\n@subentry<1> @subtitle{Since}\n2.1\n");
  condition_.clear();
  units += known(2, "class", "n::T<int>", "T<int>", "specialisation", "template<> class T<int>") +
           known(2, "class", "n::detail::X", "X", "", "class X");
  path_ = "/x/include/test/b.h";
  units += known(2, "class", "n::Y", "Y", "", "class Y") + macro;
  convert(units);
  EXPECT_EQ(file("M.htm").find("Only where"), std::string::npos);
  expect_in_order(file("n.T.htm"),
                  {"<a href=\"n.htm\">n</a>::T</h1>", "deprecated</span>", "since 2.1</span>",
                   "#include &lt;lib/a.h&gt;", "<code>defined(A&gt;B)</code>", "Specialisations",
                   "href=\"n.T-int.htm\""});
  std::string const start = file("index.htm");
  expect_in_order(
      start, {"n.T.htm", "Not meant for users", "n.detail.X.htm", "Tests, examples", "n.Y.htm"});
}

// Who copies such a line must get what compiles, and never a path of another machine.
TEST_F(HtmSite, SourcesTellHowTheyAreTakenIn) {
  path_ = folder_.write("w/deep/lib/a.h", "// nothing");
  std::string units = known(2, "class", "A", "A", "", "class A");
  path_ = folder_.write("w/other/b.h", "#include <lib/a.h>\n#include <c.h>\n"
                                       "#include \"sub/c.h\"\n#include \"sub/c.h\"\n");
  units += known(2, "class", "B", "B", "", "class B");
  path_ = "/x/include/lib-2.0/sub/c.h";
  units += known(2, "class", "C", "C", "", "class C");
  path_ = folder_.write("w/u.pas",
                        "unit u;\ninterface { uses no }\nuses V in 'x;.pas', {w,} Outer.Sys;");
  units += known(2, "unit", "u", "u", "", "unit u");
  path_ = folder_.write("w/v.pas", "unit V; // uses u\nimplementation uses u, U; end.");
  units += known(2, "unit", "V", "V", "", "unit V");
  convert(units);
  expect_in_order(file("A.htm"), {"<code>#include &lt;lib/a.h&gt;</code>"});
  expect_in_order(file("C.htm"), {"<code>#include &lt;sub/c.h&gt;</code>"});
  expect_in_order(file("u.htm"),
                  {"Uses <a href=\"V.htm\"><code>V</code></a> <code>Outer.Sys</code>",
                   "Used by <a href=\"V.htm\">"});
  for (char const * none : {">no<", ">x<", ">w<"})
    EXPECT_EQ(file("u.htm").find(none), std::string::npos) << none;
}

// A table of numbers as large as a source would make pages of megabytes; types that a class has
// from its bases are the same as its own for readers.
TEST_F(HtmSite, DeclarationsAreLinkedThroughBasesAndCut) {
  std::string const numbers = "int const data[] = {" + std::string(9000, '1') + "};";
  convert(known(2, "class", "Base", "Base", "", "class Base") +
          known(3, "class", "Base::Part", "Part", "", "class Part") +
          known(2, "class", "Mid", "Mid", "", "class Mid : Base") +
          known(2, "class", "D", "D", "", "class D : Mid") +
          known(3, "method", "D::get", "get", "", "Part get(Other o);") +
          known(2, "variable", "data", "data", "", numbers));
  expect_in_order(file("D.htm"), {"<a href=\"Base.htm#Part\">Part</a> get(Other"});
  std::string const page = file("data.htm");
  EXPECT_LT(page.size(), 8000U);
  EXPECT_NE(page.find("… 6,02"), std::string::npos) << page;
}

// What belongs to the sources is shown, but nothing of it may become a tag or a script of the page.
TEST_F(HtmSite, StartPageShowsTheTextAndServersGetTheirFiles) {
  htm_["start_text"] = folder_.write(
      "README.md",
      "# Title\n\nA *good* `lib<T>` &amp; <script>bad()</script> [link](javascript:x)\n\n"
      "[up](../secret) [use](#use) [no](#none) [web](https://a.b/?c&d) [beside](a.h)\n\n"
      "![badge](x.svg)\n\n## Use\n\n- one\n  - two\n\n```\nint "
      "a;\n```\n\n|a|b|\n|---|---|\n|1|2|\n");
  htm_["site_url"] = "https://example.org/a\"b";
  htm_["version"] = "<7>";
  convert(unit(2, "A", folder_.write("a.h", ""), 1, "About \"it\"."));
  std::string const start = file("index.htm");
  expect_in_order(start, {"&lt;7&gt;", "A <em>good</em>", "lib&lt;T&gt;", " &amp; ", "link",
                          "up <a", "href=\"#s-use\">use</a> no <a",
                          "href=\"https://a.b/?c&amp;d\">web</a> <a", "A.htm\">beside</a>", "<h2",
                          "Use", "<li><p>one</p>", "<li>two", "a;", "<th", "<td>1"});
  for (char const * none : {"bad()<", "javascript:", "badge", "<7>", "Title"})
    EXPECT_EQ(start.find(none), std::string::npos) << none;
  expect_in_order(file("A.htm"), {"content=\"About &quot;it&quot;.\"", "canonical",
                                  "https://example.org/a&quot;b/A.htm"});
  EXPECT_NE(file("sitemap.xml").find("a&quot;b/A.htm</loc>"), std::string::npos);
  EXPECT_NE(file("404.html").find("a&quot;b/_files/style.css"), std::string::npos);
}

// A list of functions without end must not become one page; where it was one, its anchors stay.
TEST(Htm, LongListsAreSplit) {
  std::string units = "2|Functions\n";
  for (int i = 0; i < gPages::most_units; ++i)
    units += "3|f" + std::to_string(i) + "|void f()\n";
  gDocument const document = outline(units + "2|C|class C\n3|C::g|void g()\n");
  gSite const site(document, gVltRules(), "", 2);
  EXPECT_EQ(site.pages.size(), gPages::most_units + 2);
  EXPECT_EQ(site.addresses.href(7), "f6.htm");
  EXPECT_EQ(site.addresses.former_anchor(7), "f6");
  EXPECT_EQ(site.addresses.href(gPages::most_units + 2), "C.htm#g");
}

// Any list must be found again in the contents, whatever its size.
TEST(Htm, ContentsReachEveryPage) {
  std::string units;
  for (int part = 0; part < 3; ++part) {
    units += "1|Part" + std::to_string(part) + '\n';
    for (int i = 0; i < 300 * part + 5; ++i)
      units += "2|p" + std::to_string(part) + "_" + std::to_string(i) + '\n';
  }
  gDocument const document = outline(units);
  gVltRules rules;
  rules.parse("@tree_item = ($href)$items\n@tree_more = [$href]\n@tree = $items\n", "t.vlt");
  gSite const site(document, rules, "", 2);
  gContents const contents(site);
  std::string all;
  for (gContentsPage const & page : contents.pages()) {
    std::string const list = contents.list(page);
    EXPECT_LT(std::ranges::count(list, '('), 500);
    all += "{" + page.file + "}" + list;
  }
  for (int page = 0; page < site.pages.size(); ++page)
    ASSERT_NE(all.find("(" + site.addresses.file(page) + ")"), std::string::npos) << page;
  std::smatch found;
  for (std::string rest = all; std::regex_search(rest, found, std::regex("\\[([^\\]]*)\\]"));
       rest = found.suffix())
    EXPECT_NE(all.find("{" + found[1].str() + "}"), std::string::npos) << found[1];
}

TEST(Htm, WordsOfNames) {
  std::vector<std::string_view> words;
  SearchWords::split_name("readHTMLFile2_all", words);
  EXPECT_EQ(words, (std::vector<std::string_view>{"read", "HTML", "File2", "all"}));
  SearchWords::split_name("plain", words);
  EXPECT_TRUE(words.empty());
  SearchWords::split("a bc  \xc3\x84rger_2::x+yz", words);
  EXPECT_EQ(words, (std::vector<std::string_view>{"bc", "\xc3\x84rger_2", "yz"}));
  std::string lower;
  SearchWords::lower("\xc3\x84RGER \xd0\x96", lower);
  EXPECT_EQ(lower, "\xc3\xa4rger \xd0\xb6");
}

TEST_F(HtmSite, SearchHasNamesAndWordsOfTexts) {
  convert(unit(1, "net::FileReader", "/x/a.h", 1, "Takes \"`bytes`\" off ${a} tape.") +
          unit(1, "other", "/x/a.h", 2, "Knows no FileReader."));
  EXPECT_NE(file("_search/n-0.js").find("(0,0,`FileReader\nother`,\n`net::\n`,\n\"0,1\""),
            std::string::npos);
  std::string const block = file("_search/b-0.js");
  EXPECT_NE(block.find("`\t0:1\tTakes \"\\`bytes\\`\" off \\${a} tape.\n"), std::string::npos)
      << block;
  EXPECT_NE(file("_search/w-0.js").find("\"filereader\",\"21\""), std::string::npos);
}

// Whoever looks a word up goes by the first words alone, so a word in a wrong file is lost.
TEST_F(HtmSite, WordsOfTextsAreCutIntoFilesBySize) {
  std::string text = "\xc3\xa4rger";
  for (int i = 0; i < 3000; ++i)
    text += " word" + std::to_string(i);
  convert(unit(1, "all", "/x/a.h", 1, text));
  std::string const index = file("_search/index.js");
  std::vector<std::string> words, firsts;
  for (std::size_t number = 0, end = 0; end < 3001; ++number) {
    std::string const content = file("_search/w-" + std::to_string(number) + ".js");
    ASSERT_FALSE(content.empty()) << number;
    EXPECT_LT(content.size(), 30000);
    std::vector<std::string> const lines = lines_of(content);
    for (std::size_t i = 1; i + 1 < lines.size(); ++i)
      words.push_back(lines[i].substr(0, lines[i].find(',')));
    firsts.push_back(words[std::exchange(end, words.size())]);
  }
  EXPECT_EQ(std::ranges::adjacent_find(words, std::ranges::greater_equal()), words.end());
  std::string list;
  for (std::string const & word : firsts)
    list += (list.empty() ? "" : ",") + word;
  EXPECT_NE(index.find("\"shards\":[" + list + "]"), std::string::npos) << index;
  EXPECT_GT(firsts.size(), 1);
}

gUnitRecord declared(std::string kind, std::string text, std::string_view list,
                     std::string_view result) {
  gUnitRecord unit;
  auto const stretch = [&text](std::string_view part) {
    auto const at = static_cast<std::uint32_t>(part.empty() ? 0 : text.find(part));
    return gStretch{at, at + static_cast<std::uint32_t>(part.size())};
  };
  unit.facts.kind = std::move(kind);
  unit.facts.parameters = stretch(list);
  unit.facts.result = stretch(result);
  unit.facts.size = static_cast<std::uint32_t>(text.size());
  unit.declaration = std::move(text);
  return unit;
}

std::string signature(std::string text, std::string_view list, std::string_view result) {
  gSignature const types =
      Declaration::signature_of(declared("function", std::move(text), list, result));
  std::string out;
  for (std::string const & type : types.parameters)
    (out += type) += "; ";
  return out + "-> " + types.result;
}

TEST(Htm, SignaturesAreTypesWithoutNames) {
  std::string list =
      "(int a, char const * b = \"x,(\", std::map<int, T> const & v, unsigned, Box const, "
      "struct tm * t, ns::Box, int const * n[4])";
  EXPECT_EQ(signature("static inline int f" + list + ";", list, "static inline int"),
            "int; char const*; std::map<int,T>const&; unsigned; Box const; struct tm*; ns::Box; "
            "int const*[4]; -> int");
  EXPECT_EQ(signature("auto f(void) const -> Box;", "(void)", "auto"), "-> Box");
  list = "(const A: string; var X, Y: Integer = 0; Z)";
  EXPECT_EQ(signature("function F" + list + ": Boolean;", list, "Boolean"),
            "string; Integer; Integer; ; -> Boolean");
  EXPECT_EQ(signature("f(;", "(;", ""), "-> "); // half a list
}

TEST(Htm, EnumerationsHaveValues) {
  auto const values = [](std::string kind, std::string text) {
    std::string out;
    for (gEnumerator const & one :
         Declaration::enumerators_of(declared(std::move(kind), std::move(text), "", "")))
      out += one.name + '=' + one.value + ' ';
    return out;
  };
  EXPECT_EQ(
      values("enum class", "enum class E : int { a = f(1, 2), b [[x]] , c = ',', d = 1'000, };"),
      "a=f(1, 2) b= c=',' d=1'000 ");
  EXPECT_EQ(values("enumeration", "TPhase = (phNew, phOld := 3);"), "phNew= phOld=3 ");
  EXPECT_EQ(values("enum", "enum E { a"), "");
  EXPECT_EQ(values("class", "class A { b };"), "");
}

// A link to a source that isn't what the analysis has seen leads astray.
TEST_F(HtmSite, SourceLinksLeadToExistingLinesOnly) {
  std::string const good = folder_.write("good.h", "int a;\n/* x\n y */ int b < c;\n");
  std::string const changed = folder_.write("changed.h", "int a;\n");
  std::string const gone = folder_.path("gone.h");
  folder_.write("out/m.atc");
  std::filesystem::last_write_time(changed, std::filesystem::file_time_type::clock::now() +
                                                std::chrono::hours(1));
  convert(unit(1, "A", good, 3, link(good, 3)) + unit(1, "B", good, 1, link(good, 4)) +
          unit(1, "A::b", good, 2, "") + unit(1, "C", gone, 8, link(gone, 8)) +
          unit(1, "D", gone, 9, link(gone, 9)) + unit(1, "E", changed, 1, link(changed, 1)));
  EXPECT_NE(file("A.htm").find("\"_source/good.h.htm#L3\""), std::string::npos);
  for (char const * page : {"B.htm", "C.htm", "D.htm", "E.htm"})
    EXPECT_EQ(file(page).find("_source/"), std::string::npos) << page;
  std::string const source = file("_source/good.h.htm");
  EXPECT_NE(source.find("id=\"L3\""), std::string::npos);
  EXPECT_NE(source.find("../A.htm"), std::string::npos);
  expect_in_order(source, {"On this page", "href=\"#L1\">B<", "href=\"#L2\"", "href=\"#L3\">A<"});
  EXPECT_NE(source.find("b &lt; c"), std::string::npos);
  std::string const reports = outside_.report_text();
  std::regex const warning("WARNING 53[01]");
  EXPECT_EQ(std::distance(std::sregex_iterator(reports.begin(), reports.end(), warning), {}), 2)
      << reports;
}

// Bytes of a page that are no text of its own.
std::size_t markup_of(std::string const & page) {
  return page.size() - std::regex_replace(page, std::regex("<[^>]*>"), "").size();
}

// A table of numbers in a generated source is the page that freezes a browser.
TEST_F(HtmSite, LongSourcesBecomeLightPages) {
  std::string text;
  for (int line = 0; line < 2500; ++line)
    text += "  0x12, 0x34, 1.5, 7, 8, 9, 10, 11, 12, 13, 14, \"text\", 'x', if, // end\n";
  std::string const path = folder_.write("table.h", text);
  folder_.write("out/m.atc");
  convert(unit(1, "A", path, 2400, link(path, 2400)));
  EXPECT_NE(file("A.htm").find("\"_source/table.h-3.htm#L2400\""), std::string::npos);
  for (char const * page : {"table.h.htm", "table.h-2.htm", "table.h-3.htm"})
    EXPECT_LT(markup_of(file(std::string("_source/") + page)), 100000u) << page;
  EXPECT_NE(file("_source/table.h-3.htm").find("id=\"L2400\""), std::string::npos);
}

// Where each of many classes derives from all before it, the ways to them are without number.
TEST_F(HtmSite, LargeHierarchiesAreFoldedAndBounded) {
  std::string steps = "@b_hierarchy\n@b_base\n";
  for (int i = 0; i < 3000; ++i)
    steps += "@cref<void><><><" + std::to_string(i / 300) + ">{B" + std::to_string(i) +
             "} @hieraprop<0><public><>{public}\n";
  steps += "@cref<main><L2><><9>{Near} @hieraprop<9><public><>{public}\n@e_base\n@thisclass\n"
           "@cref<main><L1><><10>{A}\n@e_hierarchy\n";
  convert(unit(1, "A", "/x/a.h", 1, steps) + unit(1, "Near", "/x/a.h", 2, ""));
  std::string const page = file("A.htm"), whole = file("_hierarchy/A.htm");
  EXPECT_LT(markup_of(page), 20000u);
  EXPECT_NE(page.find("B2700"), std::string::npos);
  EXPECT_EQ(page.find("B2699"), std::string::npos);
  EXPECT_NE(page.find("href=\"_hierarchy/A.htm\""), std::string::npos);
  EXPECT_NE(whole.find("B2700"), std::string::npos);
  EXPECT_NE(whole.find("href=\"../Near.htm\""), std::string::npos);
  EXPECT_LT(markup_of(whole), 60000u);
}

// All classes that are derived from each other: each has one home, also in a circle or far below.
TEST_F(HtmSite, ClassesStandInOneTree) {
  std::string units = known(2, "namespace", "n", "n", "", "namespace n");
  units += known(2, "class", "Base", "Base", "", "class Base",
                 "\n\n@b_hierarchy\n@thisclass\n@cref<main><L2><><0>{Base}\n@cref<main><L3><><1>{n:"
                 ":D}\n@e_hierarchy\n");
  units += known(2, "class", "n::D", "D", "", "class D : Base, std::mutex");
  units += known(2, "class", "n::E", "E", "", "class E : n::D, Lone");
  units += known(2, "class", "Alone", "Alone", "", "class Alone");
  units += known(2, "class", "P", "P", "", "template<class B> class P : B");
  units += known(2, "class", "X", "X", "", "class X : Y") +
           known(2, "class", "Y", "Y", "", "class Y : X");
  for (int i = 0; i < 600; ++i) {
    std::string const name = "C" + std::to_string(i);
    units += known(2, "class", name, name, "", "class " + name + " : C" + std::to_string(i - 1));
  }
  convert(units);
  EXPECT_EQ(outside_.report_text().find("532:"), std::string::npos) << outside_.report_text();
  std::string const tree = file("_hierarchy/_classes.htm");
  expect_in_order(tree,
                  {"id=\"c-Base\"><a href=\"../Base.htm\">Base</a><ul>",
                   "<a class=\"scope\" href=\"../n.htm\">n::</a><a href=\"../n.D.htm\">D</a><ul>",
                   "id=\"c-n.E\"><a href=\"../n.E.htm\">E</a></li>", "id=\"c-C\">C<ul>",
                   "600 more</a>", "id=\"c-Lone\">Lone<ul>", "std::</span>mutex<ul>",
                   "<small>more below Base</small>", "../Y.htm", "../X.htm", "../Y.htm"});
  for (char const * none : {"../Alone.htm", "../P.htm"})
    EXPECT_EQ(tree.find(none), std::string::npos) << none;
  expect_in_order(file("Base.htm"),
                  {"_hierarchy/_classes.htm\">Hierarchy", "_hierarchy/_classes.htm#c-Base"});
  EXPECT_NE(file("index.htm").find("the <a href=\"_hierarchy/_classes.htm\""), std::string::npos);
  std::size_t pages = 0;
  for (auto const & one : std::filesystem::directory_iterator(folder_.path("out/htm/_hierarchy"))) {
    ++pages;
    EXPECT_LT(markup_of(folder_.read("out/htm/_hierarchy/" + one.path().filename().string())),
              102400U);
  }
  EXPECT_GT(pages, 20U);
}

// Every link of a site with all sorts of places leads to a file and an anchor that are there.
TEST_F(HtmSite, DeadLinksAreTold) {
  convert(unit(1, "one", "/x/a.h", 1, "@b{x}"),
          "@b = <a id=\"here\" href=\"#here\">$text</a><a href=\"idx.htm?x#main\"></a>"
          "<a href=\"./one.htm\"></a><a href=\"#away\"></a><a href='gone.htm'></a>"
          "<a href=\"mailto:a\"></a><img src=\"_files/style.css\">"
          "<p id='a&amp;b' class=x title=\"a>b\"></p><a hidden href=\"%6fne.htm#a%26b\"></a>\n");
  std::string const reports = outside_.report_text();
  std::vector<std::string> told;
  for (std::string const & line : lines_of(reports))
    if (line.find("532") != std::string::npos)
      told.push_back(line.substr(line.find(": ") + 2));
  ASSERT_EQ(told.size(), 2U) << reports;
  EXPECT_NE(told[0].find("#away"), std::string::npos) << reports;
  EXPECT_NE(told[1].find("gone.htm"), std::string::npos) << reports;
  EXPECT_NE(told[1].find("htm/one.htm"), std::string::npos) << reports;
}

// What is much too long for one page is read on several, and no link from elsewhere may notice.
TEST_F(HtmSite, HeavyPagesAreSetInParts) {
  std::string units = known(2, "class", "C", "C", "", "class C");
  for (int i = 0; i < 500; ++i) {
    std::string const name = "f" + std::to_string(i),
                      to = std::to_string(i > 0 ? line_ : line_ + 2);
    std::string const text =
        "\n\nSays @bkmk<MARK" + name + "> much. @cref<main><L" + to + ">{near}\n";
    units += known(3, i < 30 ? "member" : "method", "C::" + name, name, "",
                   i < 30 ? "int " + name + ";" : "int " + name + "(C, C*);", text);
  }
  convert(units + known(2, "class", "D", "D", "", "class D", "\n\n@cref<main><MARKf200>{f200}\n"));
  EXPECT_EQ(outside_.report_text().find("532"), std::string::npos) << outside_.report_text();
  std::string const page = file("C.htm"), second = file("C--method-2.htm");
  expect_in_order(page, {"href=\"C--method.htm#f30\"", "id=\"f0\"", "href=\"C--method-"});
  expect_in_order(file("C--method.htm"),
                  {"<h1>Methods of <a href=\"C.htm\"", "page 1 of", "id=\"f30\"", "Says"});
  expect_in_order(second, {"id=\"b-markf", "href=\"#f", "</html>"});
  expect_in_order(file("D.htm"), {"href=\"C.htm#b-markf200\""});
  EXPECT_EQ(page.find("Says <span"), std::string::npos);
  for (std::string const & one : {page, second})
    EXPECT_LT(markup_of(one), 102400U);
}

// Where even the rows are too many they get shorter, and lists of what stands elsewhere end.
TEST_F(HtmSite, RowsNeverMakeAPageHeavy) {
  std::string const room(85, 'x');
  std::string units = known(2, "namespace", "n", "n", "", "namespace n");
  for (int i = 0; i < 690; ++i) {
    std::string const name = "C" + std::to_string(i) + room;
    units += known(2, "class", "n::" + name, name, "", "class " + name);
  }
  units += known(2, "class", "E", "E", "", "class E");
  for (int i = 0; i < 850; ++i) {
    std::string const name = "get_it" + std::to_string(i);
    units += known(3, "method", "E::" + name, name, "", "int " + name + "(int, long);",
                   "\n\nSays @bkmk<M" + name + "> much.\n");
  }
  convert(units);
  EXPECT_EQ(outside_.report_text().find("532:"), std::string::npos) << outside_.report_text();
  std::string const members = file("E.htm"), listed = file("n.htm");
  expect_in_order(members,
                  {"<li id=\"get_it0\">", "<a href=\"E--method.htm#get_it0\">E::get_it0</a>",
                   "<li id=\"get_it849\">", "<a href=\"E--method-"});
  expect_in_order(listed, {"n.C0x", "n.C300x", "more are found"});
  EXPECT_LT(markup_of(members), 102400U);
  EXPECT_LT(markup_of(listed), 102400U);
}

// A class template with a member: bytes of facts are those of the declarations.
TEST_F(HtmSite, OnlySureNamesAreLinks) {
  auto const told = [](int level, std::string const & name, std::string const & last, int line,
                       std::string const & facts, std::string const & text) {
    std::string const label = "L" + std::to_string(line), number = std::to_string(line);
    return "\n@unit<" + std::to_string(level) + "><main><class><pos></x/a.h><" + number + "><" +
           label + ">\n@_facts<" + facts.substr(0, facts.find(' ')) + "><" + name + "><" + last +
           "><public><><><1><1><" + facts.substr(facts.find(' ') + 1) + ">\n@bkmk<" + label +
           ">\n@xe<" + label + "><><" + name + "><><><>\n@hdline{" + name +
           "}\n@subentry<1> @subtitle{} @b_verbatim\n" + text + "\n@e_verbatim\n@end\n";
  };
  folder_.write("list", "<tagfile><compound kind=\"class\"><name>std::list</name>"
                        "<filename>l.html</filename></compound></tagfile>");
  Vapp::options.submap("htm")["external"] =
      cat::make(gString("https://std.org/, " + folder_.path("list")));
  Vapp::options.submap("htm")["tagfile"] = cat::make(gString("tags.xml"));
  Vapp::options.submap("htm")["inventory"] = cat::make(true);
  convert(told(1, "T", "T", 1, "struct 9><7-8,,,,", "struct T;") +
          told(1, "Near", "Near", 2, "struct 12><7-11,,,,", "struct Near;") +
          told(1, "far::Row", "Row", 3, "struct 11><7-10,,,,", "struct Row;") +
          told(1, "Box", "Box", 4, "class 28><24-27,0-17,,,", "template\\<class T\\> class Box;") +
          told(2, "Box::get", "get", 5, "method 37><2-5,,5-36,,0-1",
               "T get(Near a\\, Row b\\, std::list\\<T\\> c);"));
  std::string const page = file("Box.get.htm");
  std::string const text = page.substr(std::min(page.find("<main"), page.size()));
  EXPECT_NE(text.find("<a href=\"Near.htm\">Near</a>"), std::string::npos) << text;
  EXPECT_NE(text.find("<a href=\"https://std.org/l.html\">std::list</a>"), std::string::npos)
      << text;
  EXPECT_EQ(text.find("<a href=\"far.Row.htm\">Row"), std::string::npos) << "may be another Row";
  EXPECT_EQ(text.find("<a href=\"T.htm\">T</a>"), std::string::npos) << "bound by the template";

  gExternals own("");
  ASSERT_TRUE(Externals::read_tags(file("tags.xml"), "https://o/", own));
  EXPECT_EQ(own.href("far::Row", true), "https://o/far.Row.htm");
  EXPECT_EQ(own.href("Box::get", false), "https://o/Box.get.htm");
  gExternals listed("");
  ASSERT_TRUE(Externals::read_inventory(file("objects.inv"), "https://o/", listed));
  EXPECT_EQ(listed.href("Box::get", false), "https://o/Box.get.htm");
}

// What was renamed or has moved leaves a page that leads on, also two runs later.
TEST_F(HtmSite, FormerAddressesLeadOn) {
  Vapp::options.submap("htm")["addresses"] = cat::make(gString(folder_.path("map.txt")));
  auto const unit_of = [this](std::string const & name, std::string const & text) {
    return unit(1, name, "/x/a.h", static_cast<int>(text.size()), text);
  };
  std::string const both = unit_of("Other", "Something else entirely.");
  convert(unit_of("old::Box", "Keeps things in order.") + both);
  convert(unit_of("fresh::Crate", "Keeps things in order.") + both);
  EXPECT_NE(file("old.Box.htm").find("url=fresh.Crate.htm\""), std::string::npos);
  EXPECT_NE(file("old.Box.htm").find("rel=\"canonical\" href=\"fresh.Crate.htm\""),
            std::string::npos);
  std::string const map = folder_.read("map.txt");
  convert(unit_of("fresh::Crate", "Keeps things in better order.") + both);
  EXPECT_NE(file("old.Box.htm").find("url=fresh.Crate.htm\""), std::string::npos);
  EXPECT_EQ(folder_.read("map.txt").substr(0, 60), map.substr(0, 60));

  // A map from somewhere else makes no pages but those of units, and other files stay what they
  // are.
  folder_.write("map.txt", map.substr(0, map.find('\n') + 1) +
                               "../up.htm\tOther\t-\nindex.htm\tOther\t-\n_files/x.htm\tOther\t-\n"
                               "a\"b.htm\tOther\t-\nfar.htm#x\tOther\t-\nbroken\n");
  convert(both);
  EXPECT_NE(file("far.htm").find("url=Other.htm\""), std::string::npos);
  EXPECT_EQ(file("index.htm").find("url="), std::string::npos);
  EXPECT_EQ(folder_.read("out/up.htm") + file("_files/x.htm") + file("a\"b.htm"),
            "(missing)(missing)(missing)");
  folder_.write("map.txt", "precious\n");
  convert(both);
  EXPECT_EQ(folder_.read("map.txt"), "precious\n");
}

TEST_F(HtmSite, LinksHoldTogether) {
  std::string const twice = "@bkmk<MARK> @bkmk<K1> @xe<K1><old ><entry>< of ~><><> ";
  convert(unit(1, "Reg", "/x/a.h", 1, twice + "See @cref<main><MARK>{mark} @footnote{Note.}") +
          unit(3, "Reg::run", "/x/a.h", 2, "@sub<1>{Head} @text\n@sub<1>{Head} @text\nx") +
          unit(3, "Reg::run", "/x/a.h", 3,
               "@cref<main><L2>{first} @bkmk<K2> "
               "@xe<K2><><entry><><second><> ") +
          unit(1, "reg", "/x/a.h", 4, "@cref<main><L3>{other} and @cref<main><L1>{class}"));
  std::regex const id("\\sid=\"([^\"]*)\""), href("\\shref=\"([^\"]*)\"");
  std::map<std::string, std::set<std::string>> anchors;
  std::map<std::string, std::string> pages;
  for (auto const & entry : std::filesystem::directory_iterator(folder_.path("out/htm")))
    if (entry.path().extension() == ".htm")
      pages[entry.path().filename()] = file(entry.path().filename());
  for (auto const & [name, text] : pages)
    for (std::sregex_iterator at(text.begin(), text.end(), id), end; at != end; ++at)
      EXPECT_TRUE(anchors[name].insert((*at)[1]).second) << name << " " << (*at)[1];
  int links = 0;
  for (auto const & [name, text] : pages)
    for (std::sregex_iterator at(text.begin(), text.end(), href), end; at != end; ++at) {
      std::vector<std::string> const parts = split((*at)[1], '#');
      std::string const to = parts[0].empty() ? name : parts[0];
      EXPECT_NE(file(to), "(missing)") << name << ": " << to;
      bool const found = parts.size() < 2 || anchors[to].contains(parts[1]);
      EXPECT_TRUE(found) << name << ": " << (*at)[1];
      ++links;
    }
  EXPECT_GT(links, 50);
  EXPECT_NE(pages["idx.htm"].find("old ~ of ~"), std::string::npos);
  EXPECT_TRUE(pages.contains("Reg.htm"));
  EXPECT_NE(pages["Reg.htm"].find("reg-"), std::string::npos) << "the page of similar names";
}

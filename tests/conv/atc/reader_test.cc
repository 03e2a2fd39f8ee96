// The reader of the intermediate code: what a text becomes, and what damage costs.
#include <gtest/gtest.h>

#include "conv/atc/encoding.h"
#include "conv/atc/qualified_name.h"
#include "conv/atc/reader.h"
#include "support/case_file.h"
#include "support/test_outside.h"

namespace {

constexpr char const * kinds[] = {
    "",          "em",          "kbd",         "bold",      "italic",    "tt",
    "plain",     "dfn",         "code",        "underline", "font_size", "format",
    "left_tab",  "centre_tab",  "right_tab",   "reference", "name_ref",  "web_link",
    "image",     "picture",     "formula",     "bookmark",  "hid_alias", "index_entry",
    "macro",     "source_link", "margin_note", "footnote",  "endnote",   "line_break",
    "paragraph", "headline",    "subentry",    "title",     "subtitle",  "link_line",
    "verbatim",  "enumeration", "numbering",   "quote",     "rule",      "item",
    "table",     "row",         "cell",        "hierarchy", "step"};

// One node: name, <parameters>, "text", and its children in braces if they are inline.
std::string shown(gNode const & node) {
  std::string line = kinds[static_cast<int>(node.kind)];
  for (std::string const & param : node.params)
    line += "<" + param + ">";
  if (!node.text.empty())
    line += '"' + node.text + '"';
  return line;
}

void dump(gNodeList const & nodes, std::string const & indent, bool in_line, std::string & out) {
  for (gNode const & node : nodes) {
    bool lines = false;
    for (gNode const & child : node.children)
      lines = lines || child.kind >= gNodeKind::paragraph;
    std::string inner;
    dump(node.children, lines ? indent + "  " : " ", !lines, inner);
    out += indent + shown(node);
    if (!node.children.empty() && !lines)
      out += "{" + inner.substr(1) + "}";
    out += in_line ? "" : "\n";
    out += lines ? inner : "";
  }
}

// Files are parted by lines "%% name"; the first one has no such line.
struct Files {
  std::vector<std::pair<std::string, std::string>> list;

  explicit Files(std::string_view text) {
    std::string name;
    while (true) {
      std::size_t const next = text.find("%% ");
      list.emplace_back(name, text.substr(0, next));
      if (next == text.npos)
        return;
      std::size_t const line_end = std::min(text.find('\n', next), text.size() - 1);
      name = text.substr(next + 3, line_end - next - 3);
      text.remove_prefix(line_end + 1);
    }
  }
  static bool open(void * files, std::string const & name, std::string & text) {
    for (auto const & [known, content] : static_cast<Files *>(files)->list)
      if (known == name)
        return text = content, true;
    return false;
  }
};

// A unit's content stands for a file with that unit alone.
std::string completed(std::string const & input) {
  if (input.starts_with("@verinfo"))
    return input;
  std::string const unit = input.starts_with("@unit") ? "" : "@unit<1><main><s><pos><a.h><7><L>\n";
  return "@verinfo<VL_10>\n@b_section<>\n@e_secthead\n" + unit + input + "@e_atc\n";
}

bool read(Files & files, gDocument & document) {
  return gAtcReader().read(files.list[0].second, "m.atc", Files::open, &files, document);
}

std::string record(gUnitRecord const & unit) {
  std::string line = "unit " + std::to_string(unit.level) + " below " + std::to_string(unit.parent);
  for (std::string const * text :
       {&unit.name, &unit.title, &unit.toc, &unit.summary, &unit.declaration})
    line += " | " + *text;
  return line + "\n";
}

std::string tree_of(std::string const & input) {
  TestOutside outside;
  Files files(completed(input));
  gDocument document;
  read(files, document);
  std::string out;
  for (std::size_t i = 0; i < document.units.size(); ++i) {
    gUnitText const text = document.text_of(static_cast<int>(i));
    if (document.units.size() > 1 || !text.title.empty())
      out += record(document.units[i]);
    dump(text.body, "", false, out);
  }
  for (gIndexEntry const & entry : document.index_entries) {
    out += "index " + std::to_string(entry.unit) + " " + entry.label;
    for (std::string const & field : entry.fields)
      out += "|" + field;
    out += "\n";
  }
  for (auto const & report : outside.reports)
    out += report + "\n";
  return out;
}

TEST(Reader, MakesATreeOfEachUnit) {
  check_cases(CASE_DIR "/reader.cases", tree_of);
}

TEST(Reader, ReadsWhatIsLeftOfDamagedFiles) {
  check_cases(CASE_DIR "/damage.cases", tree_of);
}

// Every stretch of a good set is a damaged one.
TEST(Reader, SurvivesEveryCut) {
  TestOutside outside;
  for (Case const & one : read_cases(CASE_DIR "/reader.cases")) {
    std::string const whole = completed(one.input);
    for (std::size_t size = 0; size + 1 < whole.size(); ++size) {
      Files files(std::string_view(whole).substr(0, size));
      gDocument document;
      outside.reports.clear();
      read(files, document);
      ASSERT_FALSE(outside.reports.empty()) << whole.substr(0, size);
      for (std::size_t i = 0; i < document.units.size(); ++i)
        document.text_of(static_cast<int>(i));
    }
  }
}

TEST(Reader, TakesTimeAndStackOfTheInputsLengthOnly) {
  TestOutside outside;
  for (std::string const piece :
       {"@b{", "@b_enum<>\n@enum ", "@b_table<><*><><>\n@row @cell ", "@cref<main>x",
        "@footnote{@b_enum<>", "@", "\\", "}", "@xe<", "@subentry<1> @subtitle{"}) {
    std::string text;
    while (text.size() < 1000000)
      text += piece;
    Files files(completed(text + "\n"));
    gDocument document;
    EXPECT_TRUE(read(files, document)) << piece;
    EXPECT_LT(outside.reports.size(), 40u) << piece;
    outside.reports.clear();
  }
}

TEST(Encoding, IsThatOfEachUnitAndNamedOnceForASource) {
  TestOutside outside;
  std::string const unit = "\n@unit<1><main><s><pos><a.h><7><L>\n";
  Files files(completed(unit.substr(1) + "caf\xC3\xA9 \xE2\x82\xAC@end\n" + unit +
                        "caf\xE9 \x80 \x81\r\n@end\n" + unit + "\xE9@end\n" + unit +
                        "a\x01\fb\xC2\x85@end\n"));
  gDocument document;
  read(files, document);
  std::string texts;
  for (gUnitRecord const & one : document.units)
    texts += one.summary + "|";
  EXPECT_EQ(texts, "caf\u00E9 \u20AC|caf\u00E9 \u20AC \uFFFD|\u00E9|a\uFFFD b\uFFFD|");
  EXPECT_EQ(outside.report_text(), "\nSTATUS: Not UTF-8, read as Windows-1252: a.h\n");
  for (char const * invalid :
       {"\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\xFF"}) {
    std::string out;
    EXPECT_FALSE(Atc::append_utf8(invalid, out)) << out;
    EXPECT_TRUE(Atc::is_clean(out));
  }
}

// Two sections; in each a class with a member, and a free function of the member's name between.
struct Links : testing::Test {
  Links() {
    std::string text = "@verinfo<VL_10>\n";
    for (char const * space : {"one", "two"})
      text += std::string("@b_section<>\n@e_secthead\n") + unit(1, space, "Box", "class Box") +
              unit(2, std::string(space) + "::Box", "open", "void open(Box & Rim);") +
              unit(2, std::string(space) + "::Box", "open", "void open(int);") +
              unit(1, space, "open", "int open();") + unit(2, space, "Rim", "class Rim;");
    files.list[0].second = text + unit(1, "far", "Lid", "template <class T> struct Lid") +
                           "@bkmk<OPEN_ALL> @end\n@e_atc\n";
    read(files, document);
  }
  static std::string unit(int level, std::string const & scope, std::string const & name,
                          std::string const & declaration) {
    static constexpr char const * middle = "><main><s><pos><a.h><7><L>\n@bkmk<L>\n@xe<L><><";
    return "\n@unit<" + std::to_string(level) + middle + scope + "::" + name +
           "><><><>\n@subentry<1> @subtitle{} @b_verbatim\n" + escaped(declaration) +
           "\n@e_verbatim\n" + (name == "Lid" ? "" : "@end\n");
  }
  static std::string escaped(std::string_view text) { return Vlb::escape_atc(text); }
  int name(int from, char const * text) { return document.find_name(from, text).unit; }
  int word(int from, char const * text) { return document.find_word(from, text); }

  TestOutside outside;
  Files files{""};
  gDocument document;
};

TEST_F(Links, ANameLeadsToTheNearestUnit) {
  EXPECT_EQ(outside.report_text(), "");
  EXPECT_EQ(name(0, "open"), 1) << "below the unit itself";
  EXPECT_EQ(name(4, "open"), 3) << "its parent";
  EXPECT_EQ(name(7, "open"), 6) << "the first of those beside it, whatever stands behind";
  EXPECT_EQ(name(9, "Box"), 5) << "the own section";
  EXPECT_EQ(name(9, "one::Box"), 0);
  EXPECT_EQ(name(5, "Box :: open()"), 6) << "as code writes it";
  EXPECT_EQ(name(-1, "open"), 1) << "running heads stand nowhere";
  EXPECT_EQ(name(0, "pen"), -1);
  EXPECT_EQ(name(0, ""), -1);
  gTarget const bookmark = document.find_name(0, "open_all");
  EXPECT_EQ(std::to_string(bookmark.unit) + bookmark.bookmark, "10OPEN_ALL");
  EXPECT_EQ(document.children_of(-1), (std::vector<int>{0, 3, 5, 8, 10}));
  EXPECT_EQ(document.children_of(5), (std::vector<int>{6, 7}));
}

TEST_F(Links, AWordOfADeclarationLeadsToTypesOnly) {
  EXPECT_EQ(word(6, "Box"), 5) << "the one in the unit's own scope";
  EXPECT_EQ(word(1, "Box"), 0);
  EXPECT_EQ(word(1, "open"), -1) << "no type";
  EXPECT_EQ(word(1, "Rim"), -1) << "announced only";
  EXPECT_EQ(word(1, "Lid"), 10) << "there is one alone";
  EXPECT_EQ(word(10, "Box"), -1) << "two, and none of them near";
  EXPECT_EQ(word(0, "Box"), -1) << "the unit itself";
}

std::string escaped(std::string_view text) {
  std::string out;
  for (char const c : text) {
    if (std::string_view(",>}@\\").find(c) != std::string_view::npos)
      out += '\\';
    out += c;
  }
  return out;
}

// One unit with the line of facts, whose parameters are found in the declaration.
gUnitRecord unit_with_facts(std::string const & declaration, std::string const & parameters) {
  std::size_t const begin = declaration.find(parameters);
  std::string const range = std::to_string(begin) + "-" + std::to_string(begin + parameters.size());
  std::string const text = "@verinfo<VL_10>\n@b_section<>\n@e_secthead\n"
                           "@unit<1><main><class><pos><a.h><7><VL_AF_3>\n"
                           "@_facts<enum class><" +
                           escaped("A<b::c>::f") + "><f><public><static,forward><" +
                           escaped("X > 1") + "><3><9><" + std::to_string(declaration.size()) +
                           "><,," + range +
                           ",,>\n@_later<x><y>\n@bkmk<VL_AF_3>\n@hdline{other f}\n"
                           "@subentry<1> @subtitle{D}\n@b_verbatim\n" +
                           escaped(declaration) + "\n@e_verbatim\n@end\n@e_atc\n";
  gDocument document;
  gAtcReader().read(text, "m.atc", nullptr, nullptr, document);
  return document.units.at(0);
}

// Ranges that are off by the backslashes, or by what another encoding needs, cut words in two.
TEST(Facts, RangesHoldInWhatIsRead) {
  TestOutside outside;
  std::pair<char const *, char const *> const cases[] = {
      {"void f(char const * a = \"\\\\,}>@\", int b) const",
       "(char const * a = \"\\\\,}>@\", int b)"},
      {"std::map<int, A> f(x<y, z> && c)", "(x<y, z> && c)"},
      {"int f(char c = '\xc3\xa4', int d)", "(char c = '\xc3\xa4', int d)"},
      {"int \xe4 f(char c = '\xe4')", "(char c = '\xe4')"},
  };
  for (auto const & [declaration, parameters] : cases) {
    gUnitRecord const unit = unit_with_facts(declaration, parameters);
    std::string wanted;
    Atc::append_utf8(parameters, wanted);
    EXPECT_EQ(unit.facts.parameters.of(unit.declaration), wanted) << declaration;
    EXPECT_EQ(unit.name, "A<b::c>::f");
    EXPECT_EQ(Atc::scope_of(unit), "A<b::c>");
    EXPECT_EQ(unit.facts.condition, "X > 1");
    EXPECT_TRUE(unit.facts.has_mark("forward") && !unit.facts.has_mark("for"));
  }
  for (std::string const & report : outside.reports)
    EXPECT_NE(report.find("Windows-1252"), std::string::npos) << report;
}

// Many damaged units, some of them behind the end of a section's file: the same records, the same
// reports in the same order.
TEST(reader, threads_make_no_difference) {
  std::string text = "@verinfo<VL_10>\n@b_section<>\n@e_secthead\n";
  for (int i = 0; i < 700; ++i) {
    std::string const number = std::to_string(i);
    text += "@unit<" + std::to_string(1 + i % 3) + "><main><s><pos><a.h><7><L" + number +
            ">\n@bkmk<L" + number + ">\n@xe<L" + number + "><><n" + number + "><><><>\n@hdline{h" +
            number + (i % 7 == 0 ? "" : "}") + "\n@subentry<1> @subtitle{T} @bkmk<B" + number +
            "> a\n\n" + (i % 11 == 0 ? "@nothing<x>" : "b") + "\n@end\n" +
            (i % 13 == 0 ? "left over\n" : "") + (i == 400 ? "@e_atc\n" : "");
  }
  std::vector<std::string> seen;
  for (unsigned const threads : {1U, 4U}) {
    TestOutside outside;
    gDocument document;
    gAtcReader(threads).read(text, "m.atc", nullptr, nullptr, document);
    std::string all;
    for (gUnitRecord const & unit : document.units)
      all += record(unit);
    for (gIndexEntry const & entry : document.index_entries)
      all += std::to_string(entry.unit) + entry.fields[1] + "\n";
    for (std::string const & report : outside.reports)
      all += report + "\n";
    all += std::to_string(document.find_label("b699").unit);
    seen.push_back(all);
  }
  EXPECT_GT(std::ranges::count(seen[0], '\n'), 1400);
  EXPECT_EQ(seen[0], seen[1]);
}

// What says two things is reported, and ranges outside of the text are none.
TEST(Facts, DamageIsReported) {
  TestOutside outside;
  gKnownFacts facts;
  EXPECT_FALSE(
      Atc::read_facts({"k", "A::f", "g", "", "", "", "x", "", "9", "4-99,3,5-2,-,"}, facts));
  EXPECT_TRUE(facts.name.empty() && facts.template_head.empty() && facts.parameters.empty());
  EXPECT_FALSE(Atc::fit_to("12345678", facts));
}

} // namespace

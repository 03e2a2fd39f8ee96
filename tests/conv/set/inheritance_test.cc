// What classes have from each other. A case has a line for each unit: "level|kind|name|marks|
// signature|bases|text"; Pascal names have dots.

#include <gtest/gtest.h>

#include <sstream>

#include "conv/atc/reader.h"
#include "conv/set/base_list.h"
#include "conv/set/hierarchy_graph.h"
#include "conv/set/inheritance.h"
#include "conv/set/macro_variants.h"
#include "conv/set/relation_text.h"
#include "support/case_file.h"
#include "support/test_outside.h"

namespace {

std::vector<std::string> fields_of(std::string const & line) {
  std::vector<std::string> fields;
  std::istringstream in(line);
  for (std::string field; std::getline(in, field, '|');)
    fields.push_back(field);
  fields.resize(7);
  return fields;
}

std::string escaped(std::string const & text) {
  std::string out;
  for (char const c : text)
    out += (c == '>' || c == ',' ? "\\" : "") + std::string(1, c);
  return out;
}

// As a run writes it, so that reading is tested, too.
std::string document_of(std::string const & input) {
  std::string text = "@verinfo<VL_10>\n@outfile<m>\n\n@b_section<>\n@b_secthead\n@e_secthead\n";
  std::istringstream lines(input);
  int number = 0;
  for (std::string line; std::getline(lines, line);) {
    std::vector<std::string> const field = fields_of(line);
    std::string const label = "L" + std::to_string(++number);
    bool const pascal = field[2].find('.') != std::string::npos;
    std::string const last = field[2].substr(field[2].find_last_of(":.") + 1);
    std::string access = "public", marks = field[3];
    if (std::size_t const at = marks.find('/'); at != marks.npos) {
      access = marks.substr(0, at);
      marks = marks.substr(at + 1);
    }
    std::string const head = "type " + last + " : ", declaration = head + field[5];
    std::string const range =
        std::to_string(head.size()) + "-" + std::to_string(declaration.size());
    text += "\n@unit<" + field[0] + "><main><x><pos><a." + (pascal ? "pas" : "h") + "><1><" +
            label + ">\n@_facts<" + field[1] + "><" + field[2] + "><" + last + "><" + access +
            "><" + marks + "><><1><1><" + std::to_string(declaration.size()) + "><5-" +
            std::to_string(5 + last.size()) + ",,," + range + ",>\n@_later<x>\n@_signature<" +
            escaped(field[4]) + ">\n@bkmk<" + label + ">\n@hdline{" + field[2] +
            "}\n@subentry<1> @subtitle{} @b_verbatim\n" + declaration + "\n@e_verbatim\n" +
            (field[6].empty() ? "" : "@subentry<1> @subtitle{}\n" + field[6] + "\n") + "@end\n";
  }
  return text + "\n@e_atc\n";
}

std::string relations(std::string const & input) {
  TestOutside outside;
  gDocument document;
  gAtcReader().read(document_of(input), "m.atc", nullptr, nullptr, document);
  gInheritance const all(document);
  auto const name = [&](int unit) {
    gUnitRecord const & record = document.units[static_cast<std::size_t>(unit)];
    return record.name + record.facts.signature;
  };
  std::string out;
  auto const list = [&](std::string const & title, std::span<int const> units) {
    if (units.empty())
      return;
    out += title;
    for (int const unit : units)
      out += ' ' + name(unit);
    out += '\n';
  };
  for (int i = 0; i < static_cast<int>(document.units.size()); ++i) {
    list(name(i) + " derives from", all.bases(i));
    list(name(i) + " replaces", all.overridden(i));
    list(name(i) + " is replaced by", all.overriders(i));
    if (int const text = all.explained_by(i); text >= 0)
      out += name(i) + " is explained by " + name(text) + '\n';
    for (gInherited const & part : all.inherited(i))
      list(name(i) + " has from " + name(part.from), part.members);
  }
  return out + outside.report_text();
}

TEST(Inheritance, Relations) {
  check_cases(CASE_DIR "/inheritance.cases", relations);
}

TEST(Inheritance, BaseLists) {
  auto const shown = [](std::string_view text) {
    std::string out;
    for (gBaseName const & base : split_bases(text))
      ((((out += base.access) += ':') += base.name)) += ' ';
    return out;
  };
  EXPECT_EQ(shown("public A, virtual protected ns::B<int, C<D>>, private ::E"),
            "public:A protected:ns::B private:E ");
  EXPECT_EQ(shown("(TObject, IFoo<string>)"), ":TObject :IFoo ");
  EXPECT_EQ(shown("typename A<T>::type, Ts..., publicity"), ": : :publicity ");
  EXPECT_EQ(shown(" , <,"), ": ");
}

// A ring of classes, or hundreds in a row, must neither hang nor be forgotten.
TEST(Inheritance, OddShapesEnd) {
  std::string const ring = relations("1|class|A||()|public B|\n1|class|B||()|public A|\n"
                                     "2|method|B::f|virtual|()||\n");
  EXPECT_NE(ring.find("A() derives from B()"), std::string::npos) << ring;
  std::string chain;
  for (int i = 0; i < 500; ++i) {
    std::string const name = "C" + std::to_string(i);
    chain += "1|struct|" + name + "|||" + (i > 0 ? "C" + std::to_string(i - 1) : "") + "|\n" +
             "2|method|" + name + "::f|virtual|()||\n";
  }
  std::string const all = relations(chain);
  EXPECT_NE(all.find("C499::f() replaces C498::f()\n"), std::string::npos);
}

// What is appended to the text of each unit, as "title: text".
std::string book_of(std::string const & text) {
  TestOutside outside;
  gDocument document;
  gAtcReader().read(text, "m.atc", nullptr, nullptr, document);
  gBookRelations const relations(document);
  std::string out;
  for (int i = 0; i < static_cast<int>(document.units.size()); ++i) {
    gNodeList body;
    RelationText::set_into(document, relations, gVltRules(), i, body);
    MacroVariants::set_into(document.units[static_cast<std::size_t>(i)], gVltRules(), body);
    for (gNode const & part : body)
      out += std::to_string(i) + " " + plain_text(std::span(&part.children[0], 1)) + ": " +
             plain_text(std::span(part.children).subspan(1)) + '\n';
  }
  return out + outside.report_text();
}

// A printed book has no lists that a page would show beside it.
TEST(RelationText, TellsWhatBelongsTogether) {
  std::string text = document_of("1|topic|||||\n"
                                 "1|namespace|n|||||\n"
                                 "1|class|n::A|||||\n"
                                 "2|method|n::A::f||()|||\n"
                                 "1|class|n::B|||||\n"
                                 "1|function|n::g||()|||\n"
                                 "1|function|n::g||(int)|||\n"
                                 "1|macro|M|||||\n");
  auto const add = [&](std::string const & label, std::string const & line) {
    text.insert(text.find("@bkmk<" + label + ">"), line + "\n");
  };
  text.replace(text.find("@hdline{}"), 9, "@hdline{Things}");
  add("L3", "@_topic<L1>\n@_friend<class B>\n@_friend<x::C>");
  add("L8", "@_variant<W><#define M 1>\n@_variant<><#define M 2>");
  EXPECT_EQ(book_of(text), "0 Contents: A\n"
                           "1 Contents: A, B, g\n"
                           "2 Friends: B, x::C\n"
                           "2 Topic: Things\n"
                           "7 Definitions: Definition Where #define M 1 W #define M 2 anywhere\n");
}

// Steps "role level name"; edges as "above>below", layers behind the names.
TEST(Inheritance, GraphsHaveEachClassOnce) {
  auto const graph_of = [](std::string const & text) {
    gNodeList steps;
    std::istringstream lines(text);
    for (std::string role, level, name; lines >> role >> level >> name;) {
      gNode word;
      word.text = name;
      steps.push_back(gNode{gNodeKind::step, 0, {}, {role, "", level}, {word}});
    }
    gHierarchyGraph const graph = Hierarchy::graph(steps);
    std::string out;
    auto const name = [&](std::size_t i) { return plain_text(graph.nodes[i].step->children); };
    for (std::size_t i = 0; i < graph.nodes.size(); ++i)
      out += name(i) + std::to_string(graph.nodes[i].layer) + ' ';
    for (gHierarchyEdge const & edge : graph.edges)
      out += name(edge.above) + '>' + name(edge.below) + ' ';
    return out;
  };
  EXPECT_EQ(graph_of("base 0 R base 1 A base 0 R base 1 B this 2 X child 3 Y child 4 Z child 3 Z"),
            "R-2 A-1 B-1 X0 Y1 Z2 R>A R>B A>X B>X X>Y Y>Z X>Z ");
  EXPECT_EQ(graph_of("base 0 A base 1 B"), "");
  EXPECT_EQ(graph_of("base 1 X this 1 X child 2 X"), "X0 ");
}

} // namespace

// The text of units, set by a script that shows which rule got which values.

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "conv/atc/reader.h"
#include "conv/set/hierarchy.h"
#include "conv/set/setter.h"
#include "support/case_file.h"
#include "support/test_outside.h"

namespace {

constexpr char script[] = R"(
@em = <em>$text</em>
@ul = <u $style>$text</u>
@ul<wave> = <wave>$text</wave>
@fontsize = <size $width>$text</size>
@fmt = <$name>$text</$name>
@ltab = <tab $width>
@cref = <a $href$[target: , $target$]$[kind: , $kind$]>$text</a>
@cref<popup> = <pop $href>$text</pop>
@noref = <no>$text</no>
@bkmk = <at $id>
@hidalias = <alias $id>
@xe = <xe $id|$before|$key|$between|$second_key|$after>
@macro = <$name $text>
@srclink = <src $href|$editor|$path|$line>$text</src>
@marnote = <note $number>$text</note>
@footnote = <foot $number>$text</foot>
@endl = <br>
@p = <p>$text</p>$/
@sub<2> = <h2 $id|$title|$level>$text</h2>$/
@subentry = <entry $kind_class><h>$title</h>$text</entry>$/
@subentry<See also> = <also>$text</also>$/
@subtitle = <h>$title</h>
@linkline = <links>$items</links>$/
@link = ($text)
@verbatim = <pre>$text</pre>$/
@declaration = <decl>$text</decl>
@enum = <ul $style $level>$items</ul>$/
@item = <li>$text</li>
@numbering = <ol $level>$items</ol>$/
@step_item = <li $number>$text</li>
@table = <table $style $columns $count>$items</table>$/
@row = $/<row $number$[mark:  mark$]>$items</row>
@row<head> = $/<head>$items</head>
@cell = <td$[width:  $width$]$[mark:  mark$]>$text</td>
@cell<head> = <th $number/$count>$text</th>
@hierarchy = <hierarchy>$items$/</hierarchy>$/
@step = $/<$level$[href:  $href$]$[access:  $access$]$[virtual:  virtual$]$[label:  $label$]>$text$items</>
@step<this> = $/<this$[access:  $access$]$[virtual:  virtual$]$[label:  $label$]>$text$items</this>
)";

class TestSetter : public gSetter {
public:
  using gSetter::gSetter;
  using gSetter::set_unit;

  void escape(std::string_view text, std::string & out) const override {
    for (char const c : text)
      out += c == '<' ? std::string("&lt;") : std::string(1, c);
  }

protected:
  gLinkEnd link_end(gTarget const & target) override {
    gUnitRecord const & unit = document().units[static_cast<std::size_t>(target.unit)];
    return {unit.label + (target.bookmark.empty() ? "" : "#" + target.bookmark), unit.name,
            unit.style, ""};
  }
  std::string anchor(std::string_view bookmark) override { return std::string(bookmark); }
  std::string headline_anchor(gNode const & node) override { return "s" + node.param(1); }
  std::string source_href(std::string_view path, std::string_view line) override {
    return std::string(path) + "#" + std::string(line);
  }
};

// The document: the unit whose content the case gives, and one that references can lead to.
std::string document_with(std::string const & content) {
  return "@verinfo<VL_10>\n@outfile<manual>\n\n@b_section<>\n@b_secthead\n@e_secthead\n"
         "\n@unit<1><main><text><pos><src/a.h><17><VL_A_1>\n@bkmk<VL_A_1>\n" +
         content +
         "@end\n\n@unit<1><main><class><pos><src/b.h><3><VL_B_2>\n@bkmk<VL_B_2>\n"
         "@xe<VL_B_2><><ns::B><><><>\n@text\nText @bkmk<MARK> here.@end\n\n@e_atc\n";
}

std::string answer(std::string const & input) {
  setenv("SOURCE_DATE_EPOCH", "86400", 1);
  TestOutside outside;
  gDocument document;
  gAtcReader().read(document_with(input), "manual.atc", nullptr, nullptr, document);
  gVltRules rules;
  rules.parse(script, "test.vlt");
  TestSetter setter(document, rules);
  setter.set_unit(0);
  gUnitText const text = document.text_of(0);
  std::string out = setter.set(text.body);
  setter.set(text.body); // a text that is set twice is reported once
  return out + (out.ends_with('\n') ? "" : "\n") + outside.report_text();
}

// Lines "role level name".
std::string hierarchy(std::string const & input) {
  gNodeList steps;
  std::istringstream lines(input);
  for (std::string role, level, name; lines >> role >> level >> name;)
    steps.push_back(gNode{gNodeKind::step, 0, name, {role, "", level}, {}});
  std::string out;
  Hierarchy::set(
      steps,
      [](gHierarchyItem const & item, std::string & to) {
        to += item.step->text;
        if (item.edge)
          to += "<" + item.edge->text;
        to += "(" + std::string(item.items) + ")";
      },
      out);
  return out + '\n';
}

TEST(Setter, Hierarchies) {
  check_cases(CASE_DIR "/hierarchies.cases", hierarchy);
}
TEST(Setter, cases) {
  check_cases(CASE_DIR "/setter.cases", answer);
}

} // namespace

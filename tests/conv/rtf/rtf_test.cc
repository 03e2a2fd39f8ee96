// Documents, read back as a word processor would.

#include <algorithm>
#include <map>
#include <set>

#include <gtest/gtest.h>

#include "app/options/options.h"
#include "conv/conversion.h"
#include "conv/rtf/rtf_columns.h"
#include "conv/rtf/rtf_template.h"
#include "conv/rtf/rtf_words.h"
#include "conv/set/index_lines.h"
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

// "LEFT RIGHT WIDTHS" to the ends of the columns.
std::string column_ends(std::string const & input) {
  std::vector<std::string> const parts = split(input.substr(0, input.find('\n')), ' ');
  gNode table;
  table.params = {"", parts.at(2), "", ""};
  std::string out;
  for (int const end : Rtf::column_ends(gTableShape(table), stoi(parts[0]), stoi(parts[1])))
    out += std::to_string(end) + ' ';
  return out + '\n';
}

// Lines "UNIT before|key|between|second key|after" to the index that they make.
std::string index_of(std::string const & input) {
  gDocument document;
  for (std::string const & line : split(input.substr(0, input.size() - 1), '\n')) {
    gIndexEntry entry;
    entry.unit = line.at(0) - '0';
    std::vector<std::string> fields = split(line.substr(2) + "||||", '|');
    std::move(fields.begin(), fields.begin() + 5, entry.fields);
    document.index_entries.push_back(entry);
  }
  std::string out;
  auto const add = [&](std::string const & text, std::vector<gIndexPlace> const & places) {
    out += text;
    for (gIndexPlace const & place : places)
      out += ' ' + std::to_string(place.unit);
    out += '\n';
  };
  for (gIndexKey const & key : Index::keys_of(document, "~")) {
    add(key.letter + ": " + key.text, key.places);
    for (gIndexPhrase const & phrase : key.phrases)
      add("   " + phrase.text, phrase.places);
  }
  return out;
}

// A template, and behind a line of "..." a text with styles.
std::string styled(std::string const & input) {
  TestOutside outside;
  std::size_t const end = input.find("...\n");
  gRtfTemplate style;
  style.parse(std::string_view(input).substr(0, end));
  std::string out = style.resolve_styles(std::string_view(input).substr(end + 4));
  return style.head() + "\n" + std::to_string(style.text_width()) + " " +
         std::to_string(style.font_size()) + "\n" + out + outside.report_text();
}

constexpr char units[] = R"(
@unit<1><main><class><pos><src/a.h><17><VL_AMETER_1>
@bkmk<VL_AMETER_1>
@xe<VL_AMETER_1><><ns::Meter><><><>
@hdline{Meter {x\} @footnote{In a \\ head.} }
@text
Café 😀 \{ a\\b @cref<main><OVERFLOW>{over} @cref<main><VL_BTEXT_2>{text} @endnote{Late.}
@bkmk<VL_X_7> @xe<VL_X_7><><counter><for events><event><counted>
@marnote{Aside.}
@endp
@b_verbatim
  int main() {
  }
@e_verbatim
@bkmk<OVERFLOW>
@b_enum<>
@enum One.@endp
More.@endp
@enum Two
@b_numbering<>
@numbering Deep
@e_numbering
@e_enum
@b_table<><20%,*,3cm><first><1>
@row @cell A@cell B
@row @cell C@cell D@cell E
@e_table
@b_hierarchy
@b_base
@cref<void><><><0>{Base} @hieraprop<0><public><virtual>{public virtual}
@e_base
@thisclass
@cref<main><VL_AMETER_1>{Meter}
@e_hierarchy
@end

@unit<1><main><text><pos><src/b.txt><1><VL_BTEXT_2>
@bkmk<VL_BTEXT_2>
@text
@subtoc<1>{Short}
@sub<1>{A longer head}
Plain text.@end
)";

// What a damaged or hostile set can hold, in places where it hurts.
std::string hostile() {
  std::string text = R"(
@unit<1><main><class><pos><src/\}\\.h><17><VL_1>
@bkmk<VL_1>
@xe<VL_1><{><}\\><\style{Note}><:><;>
@hdline{T @marnote{m} @footnote{a @endnote{b @marnote{c} } } \\par @bkmk<ONE> @bkmk<one> }
@text
}}} {{ \\style{x\} \u1234 )"
                     "\x01\x7F\xED\xA0\x80\xF4\x90\x80\x80"
                     R"(
@fontsize<999999999%>{x} @fontsize<nan>{y} @ltab<nan> @ltab<-3cm> @ltab<1e99in>
@bkmk<1 ST> @bkmk<A_VERY_LONG_NAME_OF_A_BOOKMARK_THAT_IS_CUT_1> @bkmk<A_VERY_LONG_NAME_OF_A_BOOKMARK_THAT_IS_CUT_2>
@cref<main><A_VERY_LONG_NAME_OF_A_BOOKMARK_THAT_IS_CUT_2>{z}
@b_table<><><><>
@row @row
@e_table
@b_table<><nan%,1e9%,-1,99999cm><99999999999999999999><0,-1>
@row )";
  for (int cell = 0; cell < 70; ++cell)
    text += "@cell c" + std::to_string(cell) + (cell == 3 ? "@footnote{in} @marnote{n} " : " ");
  text += "\n@e_table\n";
  for (int level = 0; level < 150; ++level)
    text += "@b_enum<>\n@enum L@endp\nM\n";
  text += "@b_table<><1cm,*><><>\n@row @cell a @cell b\n@e_table\n";
  for (int level = 0; level < 150; ++level)
    text += "@e_enum\n";
  return text + std::string(1 << 20, '\\') + "@end\n";
}

class Document : public ::testing::Test {
protected:
  std::string convert(std::string const & rules = {}, std::string const & content = units) {
    std::string const ini = std::string(VELLUMAR_SOURCE_DIR) + "/ini/";
    folder_.write(
        "m.atc", std::string("@verinfo<VL_10>\n@outfile<m>\n\n@b_section<>\n@b_secthead\n"
                             "@headprint<left>{L}\n@headprint<right>{R@bkmk<HEAD> @footnote{hn} }\n"
                             "@footprint<left>{@macro<cur_page>{} }\n"
                             "@footprint<right>{}\n@e_secthead\n") +
                     content + "\n@e_atc\n");
    Vapp::options["target"] = cat::make("rtf");
    Vapp::options["out_dir"] = cat::make(gString(folder_.path()));
    Vapp::options["atc_title"] = cat::make("");
    Vapp::options["atc_file"] = cat::make(gString(folder_.path("m.atc")));
    cMapObj & rtf = Vapp::options.submap("rtf");
    rtf["out_dir"] = cat::make(gString(folder_.path("rtf")));
    rtf["cur_vlt"] =
        cat::make(gString(folder_.write("m.vlt", "#include \"" + ini + "rtf.vlt\"\n" + rules)));
    rtf["cur_style"] = cat::make(gString(ini + "rtfstyle.rtf"));
    result = RTF::make_manual(Vapp::conversion_input("rtf"));
    return folder_.read("rtf/m.rtf");
  }

  TempFolder folder_;
  TestOutside outside_;
  gConversionResult result;
};

// What a reader of the document meets, in its order.
struct ReadBack {
  explicit ReadBack(std::string const & rtf) {
    for (Rtf::gWordReader reader(rtf); reader.next();) {
      left_open = reader.depth();
      outside += left_open == 0;
      std::string const token(reader.token()), word(reader.word());
      ++words[word];
      if (reader.kind() == Rtf::gWordReader::open_group && reader.depth() == 2 &&
          Rtf::destination(std::string_view(rtf).substr(
              static_cast<std::size_t>(reader.token().data() - rtf.data()))) == "stylesheet") {
        for (Rtf::gWordReader sheet(reader.skip_group()); sheet.next();)
          if (sheet.word() == "s" || sheet.word() == "cs")
            known_styles.insert(std::string(sheet.token()));
      } else if (word == "s" || word == "cs") {
        used_styles.insert(token);
      } else if (word == "bkmkstart" || word == "bkmkend") {
        reader.next();
        (word == "bkmkstart" ? places : ends).insert(std::string(reader.token()));
      } else if (word == "fldinst") {
        reader.next();
        add_field(std::string(reader.token()));
      } else if (word == "cellx") {
        cells.back().push_back(reader.number(0));
      } else if (word == "trowd") {
        cells.emplace_back();
      }
    }
  }
  void add_field(std::string const & field) {
    if (field.starts_with("PAGEREF "))
      targets.insert(field.substr(8, field.find(' ', 8) - 8));
  }

  int left_open = 0;
  int outside = 0; // tokens behind the document's group, its own end counted
  std::map<std::string, int> words;
  std::set<std::string> known_styles, used_styles, targets;
  std::multiset<std::string> places, ends;
  std::vector<std::vector<int>> cells;
};

std::size_t count(std::string const & text, std::string const & part) {
  std::size_t found = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != text.npos; at += part.size())
    ++found;
  return found;
}

} // namespace

TEST(Rtf, Columns) {
  check_cases(CASE_DIR "/columns.cases", column_ends);
}
TEST(Rtf, Index) {
  check_cases(CASE_DIR "/index.cases", index_of);
}
TEST(Rtf, Templates) {
  check_cases(CASE_DIR "/templates.cases", styled);
}

// Whatever is wrong here, a word processor shows as garbage, or not at all.
TEST_F(Document, IsWellFormedAndItsFieldsLeadSomewhere) {
  std::string const rtf = convert();
  EXPECT_TRUE(result.success);
  EXPECT_EQ(outside_.report_text(), "\nSTATUS: Writing documentation: RTF\n");
  ASSERT_TRUE(rtf.starts_with("{\\rtf1") && rtf.ends_with("}\n"));
  ReadBack const read(rtf);
  EXPECT_EQ(read.left_open, 0);
  EXPECT_EQ(std::ranges::count_if(rtf, [](char c) { return c < ' ' && c != '\n'; }), 0);
  EXPECT_EQ(rtf.find("\\style"), rtf.find("\\stylesheet"));
  EXPECT_TRUE(std::ranges::includes(read.known_styles, read.used_styles));
  EXPECT_EQ(read.places, read.ends);
  std::set<std::string> const once(read.places.begin(), read.places.end());
  EXPECT_EQ(once.size(), read.places.size());
  EXPECT_EQ(once.count("OVERFLOW") + once.count("VL_BTEXT_2") + once.count("VL_AMETER_1"), 3u);
  EXPECT_TRUE(std::ranges::includes(once, read.targets));
  for (std::string const place : {"OVERFLOW", "VL_BTEXT_2"})
    EXPECT_EQ(count(rtf, "HYPERLINK \\\\l \"" + place + "\""), 1u);
}

TEST_F(Document, StaysWellFormedWhateverItHolds) {
  Vapp::options["atc_title"] = cat::make(gString("T\x01}\n{\\"));
  std::string const rtf = convert("@set<list_indent> = 2000000000", hostile());
  ReadBack read(rtf);
  EXPECT_EQ(read.left_open, 0);
  EXPECT_EQ(read.outside, 1) << "the document's group ends too early";
  EXPECT_EQ(std::ranges::count_if(rtf, [](char c) { return c < ' ' && c != '\n'; }), 0);
  EXPECT_EQ(read.places, read.ends);
  EXPECT_EQ(std::set(read.places.begin(), read.places.end()).size(), read.places.size());
  EXPECT_EQ(read.places.size(), 5u) << "VL_1, ONE, 1 ST and two that are longer than 40";
  EXPECT_EQ(read.words["footnote"], 2) << "a note in a note or a running head";
  EXPECT_NE(rtf.find("c69"), rtf.npos) << "the text of the last cells is lost";
  EXPECT_EQ(count(rtf, "{\\*\\bkmkstart VL_1}{\\*\\bkmkend VL_1}"), 1u)
      << "lost with the note beside it";
  ASSERT_EQ(read.cells.size(), 2u) << "a row without cells";
  for (std::vector<int> const & row : read.cells) {
    EXPECT_TRUE(std::ranges::is_sorted(row));
    EXPECT_LE(row.back(), 8504 + 63);
  }
  Vapp::options["target"] = cat::make("hlp");
  cMapObj & hlp = Vapp::options.submap("hlp");
  hlp["out_dir"] = cat::make(gString(folder_.path("hlp")));
  for (std::string const key : {"vlt", "style", "hpj"})
    hlp["cur_" + key] = cat::make(gString(VELLUMAR_SOURCE_DIR "/ini/hlp" +
                                          std::string(key == "style" ? "style.rtf" : "." + key)));
  result = RTF::make_manual(Vapp::conversion_input("hlp"));
  ReadBack const topics(folder_.read("hlp/m.rtf"));
  EXPECT_EQ(topics.outside, 1);
  EXPECT_EQ(topics.left_open, 0);
}

TEST_F(Document, KeepsWhatStandsInTheText) {
  std::string const rtf = convert();
  ReadBack read(rtf);
  EXPECT_NE(rtf.find("Caf\\u233\\'e9 \\u-10179?\\u-8704? \\{ a\\\\b "), rtf.npos);
  EXPECT_NE(rtf.find(" int main() \\{\\line\n\\}\\par"), rtf.npos)
      << "verbatim text lost its lines";
  EXPECT_EQ(read.words["footnote"], 2);
  EXPECT_EQ(read.words["ftnalt"], 1);
  EXPECT_LT(rtf.find("Aside.\\par"), rtf.find("Caf\\u233")) << "a margin note splits its paragraph";
  // A bookmark between two blocks would make the second one look like the first.
  EXPECT_NE(rtf.find("{\\*\\bkmkend OVERFLOW}One."), rtf.npos);
  EXPECT_NE(rtf.find("{\\xe{\\v counter\\:~ for events event counted}}"), rtf.npos);
  EXPECT_NE(rtf.find("{\\xe{\\v event\\:counter for events ~ counted}}"), rtf.npos);
  EXPECT_EQ(count(rtf, "HYPERLINK \\\\l \"VLS_1\""), 1u) << "a headline isn't in the contents";
  EXPECT_EQ(read.words["facingp"], 1);
}

TEST_F(Document, SetsTablesAndListsOnThePage) {
  std::string const rtf = convert("@set<mark_cell> = \\clcbpat3");
  ReadBack read(rtf);
  ASSERT_EQ(read.cells.size(), 2u);
  EXPECT_EQ(read.cells[0], (std::vector<int>{1700, 6803, 8504}));
  EXPECT_EQ(read.words["cell"], 6);
  EXPECT_EQ(read.words["trhdr"], 1);
  EXPECT_NE(rtf.find("\\trleft0\\clcbpat3\\cellx1700"), rtf.npos) << "a marked column looks plain";
  EXPECT_NE(rtf.find("\\li680\\tx680 1.\\tab Deep"), rtf.npos) << "lists don't nest";
  EXPECT_NE(rtf.find("\\li340 More.\\par"), rtf.npos) << "an item's second paragraph stands out";
}

TEST_F(Document, TellsOfAnUnknownStyleOnceAndUsesTheUsualOne) {
  std::string const rtf = convert("@p = \\pard\\plain\\style{No \"such\"} $text\\par");
  EXPECT_EQ(count(outside_.report_text(), "541"), 1u) << outside_.report_text();
  EXPECT_TRUE(result.success);
  EXPECT_NE(rtf.find("\\lang2057 Plain text.\\par"), rtf.npos);
}

// What a user's script has done to links must not be found by a reader first.
TEST_F(Document, TellsWhichLinksLeadNowhere) {
  convert("@cref = {\\field{\\*\\fldinst HYPERLINK \\\\l \"NO_$href\"}{\\fldrslt $text}}");
  std::string const reports = outside_.report_text();
  EXPECT_NE(reports.find("532: A link leads nowhere: NO_"), reports.npos) << reports;
  EXPECT_NE(reports.find(".rtf:"), reports.npos) << reports;
}

// Help sources are read back: whatever is named in them has to be there.

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <sstream>

#include "app/options/options.h"
#include "conv/conversion.h"
#include "conv/rtf/help_map.h"
#include "conv/rtf/help_reader.h"
#include "support/temp_folder.h"
#include "support/test_outside.h"

namespace {

std::string unit(int level, std::string const & wintype, std::string const & label,
                 std::string const & name, std::string const & content) {
  std::string const head = "\n@unit<" + std::to_string(level) + "><" + wintype +
                           "><class><pos><src/a.h><17><" + label + ">\n@bkmk<" + label + ">\n";
  std::string const entry = name.empty() ? "" : "@xe<" + label + "><><" + name + "><><><>\n";
  return head + entry + content + "@end\n";
}

std::string section() {
  return "\n@b_section<>\n@b_secthead\n@e_secthead\n";
}

constexpr char hierarchy[] = "@b_hierarchy\n@b_base\n@cref<main><VL_G><><0>{Gauge} \n"
                             "@hieraprop<0><public><>{public}\n@e_base\n@thisclass\n"
                             "@cref<main><VL_M><><1>{Meter}\n@e_hierarchy\n";

// What the styles of the template and the split of scrolling text have to serve.
constexpr char all_blocks[] =
    "@subentry<1> @subtitle{T}\n@subentry<2> @subtitle{U}\n@text\n@subtoc<1>{V}\n@sub<1>{V}\n"
    "@subtoc<2>{W}\n@sub<2>{W}\n@kbd{k} @code{c} @ul<wave>{u} @fmt<x>{f}\n@marnote{m}\n@endp\n"
    "@b_enum<>\n@enum A@endp\nB\n@e_enum\n@b_numbering<>\n@numbering A\n@e_numbering\n"
    "@b_verbatim\nv\n@e_verbatim\n@b_table<><50%,*><1><1>\n@row @cell a @cell b @row @cell c "
    "@cell d @e_table\n";

// Units of all window types on both sides of the split, marks in odd places, a label twice, an
// alias that is a bookmark elsewhere.
std::string document() {
  std::string text = "@verinfo<VL_10>\n@outfile<tally>\n@b_wintype\n@wintype<main><Main>\n"
                     "@wintype<subwin><Side>\n@wintype<popup><Pop>\n@e_wintype\n" +
                     section();
  text += unit(1, "main", "VL_START", "",
               "@hdltoc{Start = here}\n@hdline{Start @bkmk<INHEAD><hid> ä}\n@text\n"
               "See @cref<main><VL_TERM>{term} @cref<popup><VL_TERM>{again} "
               "@cref<main><VL_SIDE>{side} @cref<main><INHEAD>{up} @cref<void><>{gone} "
               "@cref<main><VL_ENTER>{enter}.@footnote{A note.}\n@endp\nText @bkmk<HELP_ME><hid>"
               "@hidalias<ALSO_ME>here, € and 中.\n");
  text += unit(2, "main", "VL_G", "ns::Gauge",
               "@hdltoc{Gauge}\n@hdline{Gauge}\n@text\n@bkmk<VLX_1> "
               "@xe<VLX_1><counting><event><of the><gauge; it><>Events.\n" +
                   std::string(hierarchy));
  text += unit(3, "main", "VL_ENTER", "ns::Gauge::enter", "@hdline{enter}\n@text\nEnters.\n");
  text += unit(3, "popup", "VL_TERM", "", "@hdline{Term}\n@text\nA term.\n");
  text += unit(3, "main", "VL_G", "", "@hdline{Twice}\n@text\n@bkmk<help_me> @bkmk<A-B> x\n");
  text += unit(2, "main", "VL_M", "Meter",
               "@hdline{Meter}\n@sline{Sub}\n" + std::string(all_blocks) +
                   "To @cref<main><A-B>{ab} @cref<main><also_me>{other}.\n");
  text += section();
  text += unit(3, "subwin", "VL_SIDE", "",
               "@hdline{Side}\n@text\n@bkmk<A.B> @bkmk<A_B> @bkmk<ALSO_ME> y\n");
  return text + "\n@e_atc\n";
}

class Help : public testing::Test {
protected:
  Help() {
    Vapp::options["target"] = cat::make("hlp");
    Vapp::options["out_dir"] = cat::make(folder.path());
    Vapp::options["atc_file"] = cat::make(folder.write("tally.atc", document()));
    Vapp::options["atc_title"] = cat::make("Tally");
    set("out_dir", cat::make(folder.path("hlp")));
    for (auto const & [key, file] :
         {std::pair("cur_vlt", "hlp.vlt"), {"cur_style", "hlpstyle.rtf"}, {"cur_hpj", "hlp.hpj"}})
      set(key, cat::make(std::string(VELLUMAR_SOURCE_DIR "/ini/") + file));
    set("splitlevel", cat::make(2));
    set("simpleindex", cat::make(false));
    set("hieratounit", cat::make(false));
    set("indexsep", cat::make(":"));
    set("hid_base", cat::make(100));
    set("hm_create", cat::make(true));
    set("hm_newfile", cat::make(folder.path("tally")));
    set("hm_files", make_ref<cVectorObj>());
  }

  template <class T> static void set(char const * key, T const & value) {
    Vapp::options.submap("hlp").set(key, value);
  }

  // Converts, and checks what holds for all help sources.
  void convert() {
    result = RTF::make_manual(Vapp::conversion_input("hlp"));
    ASSERT_TRUE(result.success) << outside.report_text();
    topics = read_help_topics(folder.read("hlp/tally.rtf"));
    project = read_help_project(folder.read("hlp/tally.hpj"));
    contents = read_help_project(folder.read("hlp/tally.cnt"))[""];
    contexts.clear();
    for (HelpTopic const & topic : topics) {
      ASSERT_FALSE(topic.contexts.empty()) << topic.text;
      EXPECT_EQ(topic.contexts[0].second, 0u) << topic.text;
      EXPECT_FALSE(topic.late_head) << topic.text;
      for (auto const & [context, place] : topic.contexts) {
        EXPECT_TRUE(contexts.insert(context).second) << context;
        EXPECT_EQ(context.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_."),
                  std::string::npos)
            << context;
      }
    }
    check_links();
    check_contents();
    check_map();
  }

  void check_links() {
    std::string browse;
    for (HelpTopic & topic : topics) {
      for (HelpLink const & link : topic.links) {
        EXPECT_TRUE(contexts.contains(link.context) && !link.text.empty()) << link.context;
        EXPECT_NE(("\n=\n" + project["[WINDOWS]"]).find("\n" + link.window + "="),
                  std::string::npos);
      }
      if (std::string const place = topic.notes['+']; !place.empty()) {
        EXPECT_LT(browse, place);
        browse = place;
      }
    }
  }
  // A line may be one level deeper than the one in front of it, below a book.
  void check_contents() {
    int deepest = 1;
    std::istringstream lines(contents);
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with(':'))
        continue;
      EXPECT_LE(line[0] - '0', deepest) << line;
      std::size_t at = line.rfind('=');
      bool const book = at == std::string::npos || line[at - 1] == '\\';
      deepest = line[0] - '0' + book;
      std::string const place = book ? *contexts.begin() : line.substr(at + 1);
      EXPECT_TRUE(contexts.contains(place.substr(0, place.find('>')))) << line;
    }
  }
  void check_map() {
    std::set<std::string> named = contexts, numbers;
    std::istringstream aliases(project["[ALIAS]"]), map(folder.read("tally.hm"));
    for (std::string name, place; std::getline(std::getline(aliases, name, '='), place);) {
      EXPECT_TRUE(contexts.contains(place)) << place;
      EXPECT_TRUE(named.insert(name).second) << name;
    }
    for (std::string name, number; map >> name >> number;) {
      EXPECT_TRUE(named.contains(name)) << name;
      EXPECT_TRUE(numbers.insert(number).second) << number;
    }
  }
  std::string briefs() const {
    std::string all;
    for (HelpTopic const & topic : topics)
      all += topic.brief() + "\n";
    return all;
  }
  std::string keywords() const {
    std::string all;
    for (HelpTopic const & topic : topics)
      for (auto const & [word, context] : topic.keywords)
        all += word + "=" + context + "\n";
    return all;
  }

  TestOutside outside;
  TempFolder folder;
  gConversionResult result;
  std::vector<HelpTopic> topics;
  std::map<std::string, std::string> project; // sections
  std::string contents;
  std::set<std::string> contexts;
};

TEST_F(Help, topics_links_and_contents) {
  convert();
  EXPECT_EQ(briefs(), "Start \xE4 [term>VL_TERM>] [again>VL_TERM>] side>VL_SIDE>subwin "
                      "up>INHEAD>main enter>VL_ENTER>main [[1]>VL_START_N1>] Gauge>VL_G>main "
                      "Meter>VL_M>main\n"
                      "-\n"
                      "Gauge Gauge>VL_G>main [Term>VL_TERM>]\n"
                      "Term\n"
                      "Meter ab>A_B>main other>ALSO_ME_2>subwin\n"
                      "Side\n");
  EXPECT_EQ(keywords(), "event:counting ~ of the gauge, it=VLX_1\n"
                        "gauge, it:counting event of the ~=VLX_1\n"
                        "ns.Gauge=VL_G\nns.Gauge.enter=VL_ENTER\nMeter=VL_M\n");
  EXPECT_EQ(contents, ":Base tally.hlp\n:Title Tally\n1 Start \\= here\n"
                      "2 Start \\= here=VL_START\n2 Gauge=VL_G\n2 Meter=VL_M\n"
                      "1 Side=VL_SIDE>subwin\n");
  EXPECT_NE(topics[0].text.find("here, \x80 and ?."), std::string::npos) << topics[0].text;
  EXPECT_TRUE(contexts.contains("A_B_2")); // of "A_B"; "A-B" came first
  EXPECT_EQ(topics.back().notes['>'], "subwin");
  EXPECT_EQ(topics[3].notes['+'], "");
  EXPECT_EQ(folder.read("tally.hm"), "INHEAD  0x00064\nHELP_ME  0x00065\nALSO_ME  0x00066\n");
  EXPECT_EQ(project["[ALIAS]"], "ALSO_ME=HELP_ME\n");
  EXPECT_EQ(outside.report_text(), "\nSTATUS: Writing documentation: WinHelp\n");
}

TEST_F(Help, options_move_topics_and_keywords) {
  set("splitlevel", cat::make(1));
  set("hieratounit", cat::make(true));
  set("simpleindex", cat::make(true));
  set("indexsep", cat::make(" ,;"));
  convert();
  ASSERT_EQ(topics.size(), 5u); // with a note and a hierarchy
  EXPECT_EQ(topics[2].brief(), "Gauge: Class hierarchy Gauge>VL_G>main");
  EXPECT_EQ(contents, ":Base tally.hlp\n:Title Tally\n1 Start \\= here\n"
                      "2 Start \\= here=VL_START\n"
                      "2 Gauge: Class hierarchy=VL_G_H\n1 Side=VL_SIDE>subwin\n");
  EXPECT_EQ(keywords(), "Meter=VL_START\nevent,counting ~ of the gauge it=VL_START\n"
                        "gauge it,counting event of the ~=VL_START\nns::Gauge=VL_START\n"
                        "ns::Gauge::enter=VL_START\n");
  EXPECT_NE(project["[OPTIONS]"].find("INDEX_SEPARATORS=\",\"\n"), std::string::npos);
}

TEST_F(Help, numbers_of_help_identifiers_stay) {
  folder.write("tally.hm", "Help_Me  300\r\nGONE  0x12D\nbroken\n");
  auto files = make_ref<cVectorObj>();
  for (char const * name : {"own.h", "TALLY.hm", "none.hm"})
    files->append(cat::make(folder.path(name)));
  folder.write("own.h", "/* ours */\n#define INHEAD 7\n#define OTHER 302L\n");
  std::string const upper = folder.path("TALLY.hm"), missing = folder.path("none.hm");
  set("hm_files", files);
  for (int run = 0; run < 2; ++run) {
    convert();
    EXPECT_EQ(folder.read("tally.hm"), "HELP_ME  0x0012C\nALSO_ME  0x0012F\n");
  }
  EXPECT_EQ(project["[MAP]"], "#include <" + folder.path("tally.hm") + ">\n#include <" +
                                  folder.path("own.h") + ">\n");
  EXPECT_NE(outside.report_text().find("ERROR 20: Cannot read from file: " + missing),
            std::string::npos);
  set("hm_newfile", cat::make(""));
  result = RTF::make_manual(Vapp::conversion_input("hlp"));
  EXPECT_NE(outside.report_text().find("ERROR 542"), std::string::npos);
}

// The map outlives results: it is read before an old one goes, and written when a new one stands.
TEST_F(Help, map_file_inside_the_result_or_in_vain) {
  set("hm_newfile", cat::make(folder.path("hlp/maps/t.hm")));
  for (int base : {100, 900}) {
    set("hid_base", cat::make(base));
    result = RTF::make_manual(Vapp::conversion_input("hlp"));
    EXPECT_TRUE(folder.read("hlp/maps/t.hm").starts_with("INHEAD  0x00064\n")) << base;
  }
  folder.write("tally.hm", "INHEAD 5\n");
  set("hm_newfile", cat::make(folder.path("tally")));
  set("cur_hpj", cat::make(folder.path("none.hpj")));
  result = RTF::make_manual(Vapp::conversion_input("hlp"));
  EXPECT_EQ(folder.read("tally.hm"), "INHEAD 5\n") << "a failed conversion changed the map";
  set("cur_hpj", cat::make(folder.write("my.hpj", "x=\"$title\"\n")));
  Vapp::options["atc_title"] = cat::make("a \"b\"");
  folder.write("own.h", "#define A 1\nint a;\nint b;\n");
  // A folder, a file of the result, and what is no map.
  for (char const * name : {"hlp", "hlp/tally.rtf", "own.h"}) {
    set("hm_newfile", cat::make(folder.path(name) + (std::strlen(name) > 3 ? "" : "/maps.d")));
    folder.write("hlp/maps.d/x", "");
    result = RTF::make_manual(Vapp::conversion_input("hlp"));
    EXPECT_FALSE(result.success) << name;
  }
  EXPECT_TRUE(folder.read("own.h").ends_with("int b;\n"));
  set("hm_create", cat::make(false));
  result = RTF::make_manual(Vapp::conversion_input("hlp"));
  EXPECT_EQ(folder.read("hlp/tally.hpj"), "x=\"a 'b'\"\r\n");
}

TEST(HelpMap, numbers_stay_apart) {
  ::Help::gNumbers const before =
      ::Help::read_map("A 5\nB 5\nC -1\nD 4294967295\nE 0x7FFFFFFF\nF 7\n"
                       "G 99999999999\nH 0x\n\\ 3\nA 6\n#define");
  EXPECT_EQ(before.size(), 5u); // A, B, D, E, F
  EXPECT_EQ(::Help::number({"A", "B", "F", "N", "O"}, before, {{"X", 7}, {"Y", 8}}, 2147483646),
            (::Help::gNumbers{{"A", 5}, {"B", 2147483646}, {"F", 1}, {"N", 2}, {"O", 3}}));
}

// The head has to know the colours that the topics turn out to use.
TEST_F(Help, colours_of_the_script_are_in_the_head) {
  std::string const base = "#include \"" VELLUMAR_SOURCE_DIR "/ini/hlp.vlt\"\n";
  std::string const rule = "@p = \\pard\\cf\\colour{123456} $text\\par\n";
  set("cur_vlt", cat::make(folder.write("c.vlt", base + rule)));
  convert();
  EXPECT_NE(folder.read("hlp/tally.rtf").find("\\red18\\green52\\blue86;"), std::string::npos);
}

TEST_F(Help, project_of_the_user) {
  convert();
  std::string const good = folder.read("hlp/tally.hpj");
  set("cur_hpj", cat::make(folder.path("none.hpj")));
  result = RTF::make_manual(Vapp::conversion_input("hlp"));
  EXPECT_FALSE(result.success);
  EXPECT_EQ(folder.read("hlp/tally.hpj"), good);
  set("cur_hpj", cat::make(folder.write("my.hpj", "$$1 ${name}s$title\n$nothing\n\n$maps$none")));
  set("hm_create", cat::make(false));
  result = RTF::make_manual(Vapp::conversion_input("hlp"));
  EXPECT_EQ(folder.read("hlp/tally.hpj"), "$1 tallysTally\r\n\r\n");
  EXPECT_NE(outside.report_text().find("WARNING 543: Unknown placeholder in the help project: "
                                       "$nothing (" +
                                       folder.path("my.hpj:2)\n")),
            std::string::npos)
      << outside.report_text();
}

} // namespace

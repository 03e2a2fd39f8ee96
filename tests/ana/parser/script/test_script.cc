#include <fstream>
#include <random>

#include <gtest/gtest.h>

#include "ana/anadat/tables.h"
#include "ana/cmdpar/gcmd.h"
#include "ana/cmdpar/keywords.h"
#include "ana/parser/doc/dense_cases.h"
#include "ana/parser/script/mdf_parse.h"
#include "ana/parser/script/mpre_scan.h"
#include "app/options/options.h"
#include "script_support.h"
#include "vlb/gexception.h"
#include "vlb/gfilesystem.h"
#include "vlb/parse/grammar_conflicts.h"

namespace {

std::string path_of(char const * file) {
  return std::string(CASE_DIR "/") + file;
}

// Each line is a body of its own; what it gives and reports stands behind it.
std::string pieces_of_lines(std::string const & bodies) {
  std::istringstream in(bodies);
  std::string line, all;
  for (int number = 1; std::getline(in, line); ++number) {
    std::istringstream answer(pieces_of(line + "\n"));
    for (std::string part; std::getline(answer, part);)
      all += std::to_string(number) + " " + part + "\n";
  }
  return all;
}

TEST(Script, answers_of_the_case_files) {
  check_annotated(path_of("tokens.cases"), tokens_of);
  check_annotated(path_of("templates.cases"), templates_of);
  check_annotated(path_of("text_elements.cases"), pieces_of_lines);
  check_annotated(path_of("commands.cases"), run_script);
}

// The folder of a script with files to include.
class IncludeFolder {
public:
  IncludeFolder() : path(testing::TempDir() + "vellumar_mpre") {
    gFileSystem::mk_dirs(path);
    gFileSystem::mk_dirs(path + "/folder");
    write("inc.vls", "one ! goes\n! goes\n@filter<A!=b>\n");
    write("outer.vls", "two\n#include \"inc.vls\"\n");
    Vapp::options["vls_file"] = cat::make(path + "/main.vls");
    gInput.set(Vapp::run_input());
  }
  void write(char const * name, std::string const & text) const {
    std::ofstream(path + "/" + name, std::ios::binary) << text;
  }
  std::string without_path(std::string text) const {
    for (std::size_t at; (at = text.find(path)) != std::string::npos;)
      text.replace(at, path.size(), "DIR");
    return text;
  }

  std::string const path;
};

std::string preprocessed(std::string const & script) {
  ScriptProject project;
  IncludeFolder const folder;
  mpre_scan scanner(gScanBase::standard_size);
  scanner.open_text(gSrcFile(folder.path + "/main.vls", gPathstring(), 0), script);
  scanner.open_outfile(gSrcFile(folder.path + "/out", gPathstring(), 0));
  EXPECT_EQ(scanner.scan(), 0);
  EXPECT_EQ(scanner.close_outfile(), 0);
  std::string text;
  gFileSystem::read_file(folder.path + "/out", text);
  return folder.without_path(text + project.reports());
}

TEST(Script, preprocessing) {
  check_cases(path_of("mpre.cases"), preprocessed);
}

TEST(Script, long_lines_and_white_space_fit_through_every_limit) {
  std::string const much(5000, ' ');
  EXPECT_EQ(preprocessed("a!" + much + "\n" + much + "b"), "a\n" + much + "b");
  std::string const lines(5000, '\n');
  EXPECT_EQ(tokens_of(lines + "@document" + lines + "@outfilter" + lines), "5001 275\n10001 315\n");
  EXPECT_EQ(tokens_of("@em{$ "),
            "1 282 { 342[]\ns.vls:1: ERROR 10: Lexical error with character: '$' (0x24)\n");
}

TEST(Script, a_text_as_long_as_the_limit_ends_the_script) {
  auto text = [](std::size_t n) { return "@em{" + std::string(n, 'x') + "}"; };
  EXPECT_NO_THROW(tokens_of(text(1023)));
  EXPECT_THROW(tokens_of(text(1024)), gExcFatalErr);
}

TEST(Script, deep_nesting_is_refused_and_costs_the_script_only) {
  std::string nested;
  for (int n = 0; n < 100000; ++n)
    nested += "@b{";
  EXPECT_THROW(pieces_of(nested), gExcFatalErr);
  EXPECT_EQ(run_script("@document @outfilter"), "run; generate <> / STPL_Default <> ( - )\n");
}

TEST(Script, class_blocks_that_are_nested_too_deep_tell_their_place) {
  auto script = [](int blocks) {
    std::string text = "unit named class A f:1\n@document @hdlevel<6>";
    for (int n = 0; n < blocks; ++n)
      text += "\n@b_outclass<A>";
    text += " @hdline{x}";
    for (int n = 0; n < blocks; ++n)
      text += " @e_outclass";
    return text;
  };
  EXPECT_NO_THROW(run_script(script(1)));
  try {
    run_script(script(2));
    ADD_FAILURE();
  } catch (gExcFatalErr const & fault) {
    EXPECT_EQ(fault.text(), "FATAL ERROR: Class blocks are nested too deep: s.vls:3");
  }
}

TEST(Script, grammar_has_no_conflicts) {
  EXPECT_EQ(grammar_conflicts("mdf_l"), "0 shift/reduce, 0 reduce/reduce");
}

TEST(Numbers, of_measures_font_sizes_and_integers) {
  std::string all;
  for (gString text : {"10 cm", "0.50 %", "1e3pt", "", "3", "cm", "-1 cm", "3 in", "3cmx"}) {
    auto const [number, unit] = gVLParseBase::read_measure(text);
    all += number + unit + ",";
  }
  EXPECT_EQ(all, "10cm,0.5%,1000pt,,,,,,,");
  all.clear();
  for (gString size : {"120pt", " 80.0", "", "x", "0", "-5"})
    all += gVLParseBase::read_font_size(size) ? size + "," : gString("none,");
  EXPECT_EQ(all, "120%,80%,none,none,none,none,");
  all.clear();
  for (gString text : {"+3", "-1", "99999999999", "", "+", "-", "+-1", "x", "3x", "0x1", " 1"}) {
    int value = 0;
    all += gVLParseBase::read_int(text, value) ? std::to_string(value) + "," : "none,";
  }
  EXPECT_EQ(all, "3,-1,2147483647,none,none,none,none,none,none,none,none,");
}

cRef<cObj> keyword(char const * word, char const * separators) {
  auto pair = make_ref<cVectorObj>();
  pair->append(cat::make(word));
  pair->append(cat::make(separators));
  auto list = make_ref<cVectorObj>();
  list->append(pair);
  return list;
}

TEST(Vocabulary, keywords_follow_the_options_of_each_run) {
  ScriptProject const project;
  cAttr const units = Vapp::options["ana"]["srcpat_unit"];
  units["one"]["kwd"] = keyword("@twice", "");
  units["one"]["idspec"] = cat::make(2);
  units["one"]["attr"]["UNITTYPE"] = cat::make("class");
  units["text"]["kwd"] = keyword("@x", "");
  units["spt_2star"]["attr"]["UNITTYPE"] = cat::make("function");
  Vapp::options["ana"]["srcpat_subentry"]["note"]["kwd"] = keyword("Note", ":");
  gUEKeywords.build_keywords(Vapp::run_input());
  ASSERT_EQ(gUEKeywords.size(), 3u);
  gKwd const & unit = **gUEKeywords.lookup("@twice");
  EXPECT_EQ(unit.kind, gKwd::synt_unit);
  EXPECT_EQ(unit.pattern->idspec, gUnitPattern::complex);
  EXPECT_EQ(*unit.pattern->attr.find("UNITTYPE"), "class");
  EXPECT_EQ((*gUEKeywords.lookup("Note"))->subentry, "note");
  EXPECT_EQ((*gUEKeywords.lookup("Note"))->separators, ":");
  EXPECT_EQ(*gUEKeywords.star_pattern()->attr.find("UNITTYPE"), "function");
  EXPECT_FALSE(gUEKeywords.slash_pattern());

  // A subentry takes a keyword from a unit, and what is gone from the options is gone.
  Vapp::options["ana"]["srcpat_subentry"]["note"]["kwd"] = keyword("@twice", "");
  units["spt_2star"] = cat::make_nil();
  gUEKeywords.build_keywords(Vapp::run_input());
  EXPECT_EQ(gUEKeywords.size(), 2u);
  EXPECT_EQ((*gUEKeywords.lookup("@twice"))->kind, gKwd::subentry_kwd);
  EXPECT_FALSE(gUEKeywords.star_pattern());
}

// The index of classes must choose what the rule says, in the order of the tables.
TEST(Selecting, members_of_a_class_are_those_that_the_rule_names) {
  ScriptProject const project;
  std::mt19937 random(7);
  std::vector<cRef<gDocUnit>> all;
  gSrcFile const file(gPathstring("/p/a.h"), gPathstring(), 0);
  for (int line = 1; line <= 300; ++line) {
    gStrList names;
    for (unsigned parts = 1 + random() % 4; parts > 0; --parts)
      names.push_back(gString(random() % 2 ? "A" : "B"));
    all.push_back(make_ref<gSyntUnit>(names, "::", file, line));
    gNamedUnits.insert_at(all.back()->loc(), all.back());
  }
  gUnitSelector selector;
  for (char const * name : {"A", "B", "A::B", "B::A::A", "C", "A::B::A::B"}) {
    gOutState state;
    state.class_filter = name;
    std::vector<cRef<gDocUnit>> expected;
    for (cRef<gDocUnit> const & unit : all)
      if (gUnitSelector::belongs_to(*unit, name))
        expected.push_back(unit);
    EXPECT_EQ(selector.select(state), expected) << name;
  }
}

} // namespace

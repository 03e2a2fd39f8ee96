// The tree of a new project, and what the completion adds to a loaded one.
#include "app/options/defaults.h"

#include <gtest/gtest.h>
#include <sstream>

#include "app/options/attributes.h"
#include "app/options/completion.h"
#include "app/options/options.h"
#include "app/options/settings.h"
#include "store/cerr.h"
#include "store/json_text.h"
#include "support/case_file.h"
#include "support/temp_folder.h"

namespace {

// One line an entry, "path = value".
void list_tree(std::string const & path, cObj const & value, std::string & lines) {
  if (!value.map() || value.size() == 0 || value.map()->entries().is_vector()) {
    lines += path + " = " + to_json(value) + "\n";
    return;
  }
  for (cIterObj it = value.begin(); it.valid(); it++)
    list_tree(path + (path.empty() ? "" : "/") + it.key_as_string(), *it, lines);
}

struct Defaults : testing::Test {
  Defaults() { Vapp::build_defaults(tree); }
  void complete() {
    dangling = Vapp::complete_options(tree);
    Vapp::rebuild_values(tree);
  }
  std::string json(std::string const & a, std::string const & b) {
    cRef<cObj> const value = tree.at(a) / b;
    return value ? to_json(*value) : "none";
  }
  cMapObj tree;
  std::vector<Vapp::gDanglingSubentry> dangling;
};

// The expected tree stands in the case file; the input names the part that is shown.
TEST(NewProject, HasTheseValues) {
  gPathstring const before = Vapp::program_dir();
  Vapp::set_program_dir("/prog");
  check_cases(CASE_DIR "/defaults.cases", [](std::string const & input) {
    cMapObj tree;
    Vapp::build_defaults(tree);
    Vapp::complete_options(tree);
    std::string lines;
    std::istringstream keys(input);
    for (std::string key; keys >> key;)
      list_tree(key, *tree.at(key), lines);
    return lines;
  });
  Vapp::set_program_dir(before);
}

TEST_F(Defaults, CompletionKeepsWhatTheProjectHas) {
  tree["unitconfig"]["class"] = make_ref<cMapObj>();
  tree["ana"]["srcpat_unit"] = make_ref<cMapObj>();
  tree["ana"]["srcpat_subentry"]["@only"] = Vapp::new_subentry();
  complete();
  EXPECT_EQ(json("unitconfig", "class"), "{}");
  EXPECT_EQ(tree.at("ana").get()->at("srcpat_unit")->size(), 10);
  EXPECT_EQ(tree.at("ana").get()->at("srcpat_subentry")->size(), 1);
}

TEST_F(Defaults, UnitTypesOfTheUserGetTheirEntry) {
  tree["attr"]["UNITTYPE"]["valusr"]["macro"] = cat::make(gStrList("macro"));
  tree["unitconfig"]["event"] = cat::make("of the wrong type");
  complete();
  EXPECT_EQ(json("unitconfig", "macro"), R"({"@description":110,"@declaration":11})");
  EXPECT_EQ(json("unitconfig", "event"), R"({"@description":110,"@declaration":11})");
  EXPECT_EQ(json("unitconfig", "text"), "none");
  EXPECT_EQ(json("unitconfig", "undefined"), "none");
}

TEST_F(Defaults, TheOptionalPatternsFollowTheirOptions) {
  tree["ana"]["spt_2star"] = cat::make(true);
  complete();
  cRef<cObj> const patterns = tree.at("ana") / "srcpat_unit";
  ASSERT_TRUE(patterns / "spt_2star");
  EXPECT_EQ(to_json(*(patterns / "spt_2star")),
            R"({"kwd":[],"attr":{},"idspec":0,"slspec":0,"slsep":""})");
  (*patterns)["spt_2star"]["idspec"] = cat::make(1);
  complete();
  EXPECT_EQ(cat::as_string(patterns / "spt_2star" / "idspec"), "1");
  tree["ana"]["spt_2star"] = cat::make(false);
  complete();
  EXPECT_FALSE(patterns / "spt_2star");
  EXPECT_FALSE(patterns / "spt_3slash");
}

TEST_F(Defaults, ADanglingSubentryIsRemovedAndNamed) {
  // So many that removing one by one would take minutes.
  for (int i = 0; i < 50000; ++i)
    tree["unitconfig"]["class"]["@gone" + std::to_string(i)] = cat::make(0);
  complete();
  ASSERT_EQ(dangling.size(), 50000u);
  EXPECT_EQ(dangling[0].text(), "Configuration of unittype class has a subentry @gone0 \n"
                                "that does not exist! \nIt is deleted now.");
  EXPECT_EQ(json("unitconfig", "class"), "{}");
}

TEST_F(Defaults, ValuesAreThePredefinedOnesAndTheUsers) {
  tree["attr"]["STATE"] = Vapp::new_attribute("c");
  tree["attr"]["STATE"]["valusr"]["draft"] = cat::make(gStrList("Draft"));
  tree["attr"]["STATE"]["val"]["stale"] = cat::make(gStrList());
  tree["attr"]["BARE"]["com"] = cat::make("neither valpre nor valusr");
  complete();
  EXPECT_EQ(to_json(*(tree.at("attr") / "STATE" / "val")),
            R"({"undefined":[""],"draft":["Draft"]})");
  EXPECT_EQ(to_json(*(tree.at("attr") / "BARE" / "val")), "{}");
  Vapp::drop_values(tree);
  EXPECT_FALSE(tree.at("attr") / "STATE" / "val");
}

TEST_F(Defaults, ACorruptAttributeIsToldAndThrown) {
  std::ostringstream errors;
  std::streambuf * const before = eros().rdbuf(errors.rdbuf());
  for (char const * key : {"val", "valpre", "valusr"}) {
    tree["attr"]["X"] = Vapp::new_attribute("");
    tree["attr"]["X"][key] = cat::make(1);
    EXPECT_THROW(Vapp::rebuild_values(tree), cException) << key;
  }
  tree["attr"]["X"] = cat::make(1);
  EXPECT_THROW(Vapp::rebuild_values(tree), cException);
  eros().rdbuf(before);
  EXPECT_TRUE(errors.str().starts_with("ERROR: corrupted data in attribute X\n"));
}

TEST(Settings, KeepTheirStartValuesWhereTheFileIsSilent) {
  TempFolder const folder;
  gPathstring const before = Vapp::program_dir();
  Vapp::set_program_dir(folder.path());
  cMapObj const kept(Vapp::options_ini);
  EXPECT_TRUE(Vapp::load_settings()) << "the first start makes the folder";
  EXPECT_TRUE(std::filesystem::is_directory(folder.path("ini")));
  folder.write("ini/vellumar.ini", R"({"htmhelp": true, "vlp_dir": "/no such folder"})");
  EXPECT_TRUE(Vapp::load_settings());
  EXPECT_EQ(
      to_json(Vapp::options_ini),
      R"({"vlp_last":true,"warn_outdir":true,"htmhelp":true,"srclink_editor_cmd":"notepad.exe",)"
      R"("srclink_editor_args":"$file","vlp_dir":")" +
          folder.path() + "\"}");
  Vapp::options_ini["vlp_last"] = cat::make(false);
  EXPECT_TRUE(Vapp::save_settings());
  EXPECT_NE(folder.read("ini/vellumar.ini").find("\"vlp_last\": false"), std::string::npos);
  std::string reason;
  folder.write("ini/vellumar.ini", "{\n");
  EXPECT_FALSE(Vapp::load_settings(&reason));
  EXPECT_TRUE(reason.starts_with(folder.path("ini/vellumar.ini:2: "))) << reason;
  Vapp::set_program_dir(folder.path("ini/vellumar.ini"));
  EXPECT_FALSE(Vapp::save_settings()) << "a folder that can't be made";
  Vapp::options_ini = kept;
  Vapp::set_program_dir(before);
}

TEST(Readers, TakeFallbacksForWhatIsMissingOrOfTheWrongType) {
  EXPECT_EQ(Vapp::option_int("ana/tab_width", 9), 4);
  EXPECT_EQ(Vapp::option_int("ana/cpp_ext", 9), 9);
  EXPECT_TRUE(Vapp::option_bool("ana/tab_width", false)) << "a number serves as a flag";
  EXPECT_EQ(Vapp::option_string("ana/none/deeper", "f"), "f");
  EXPECT_EQ(cat::as_string(Vapp::option("ana/alloc/order/0")), "5");
  EXPECT_EQ(Vapp::unit_config("class", "@heritage"), 11);
  EXPECT_EQ(Vapp::unit_config("var", "@heritage"), -1);
  EXPECT_TRUE(Vapp::config_automatic(110) && Vapp::config_fill_out(110));
  EXPECT_FALSE(Vapp::config_verbatim(110) || Vapp::config_verbatim(-1) ||
               Vapp::config_automatic(-1));
}

} // namespace

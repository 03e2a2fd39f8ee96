// What the completion adds to a project, and the settings of the program.
#include <gtest/gtest.h>

#include "app/options/attributes.h"
#include "app/options/completion.h"
#include "app/options/defaults.h"
#include "app/options/options.h"
#include "app/options/settings.h"
#include "store/json_text.h"
#include "support/temp_folder.h"

namespace {

struct Defaults : testing::Test {
  Defaults() { Vapp::build_defaults(tree); }
  void complete() {
    dangling = Vapp::complete_options(tree);
    Vapp::rebuild_values(tree);
  }
  std::string json(std::string const & a, std::string const & b, std::string const & c = "") {
    cRef<cObj> const value = c.empty() ? tree.at(a) / b : tree.at(a) / b / c;
    return value ? to_json(*value) : "none";
  }
  cMapObj tree;
  std::vector<Vapp::gDanglingSubentry> dangling;
};

TEST_F(Defaults, CompletionKeepsWhatTheProjectHasAndServesTheUsersUnitTypes) {
  tree["unitconfig"]["class"] = make_ref<cMapObj>();
  tree["unitconfig"]["event"] = cat::make("of the wrong type");
  tree["ana"]["srcpat_unit"] = make_ref<cMapObj>();
  tree["attr"]["UNITTYPE"]["valusr"]["macro"] = cat::make(gStrList("macro"));
  complete();
  EXPECT_EQ(json("unitconfig", "class"), "{}");
  EXPECT_EQ((tree.at("ana") / "srcpat_unit")->size(), 10);
  for (char const * type : {"macro", "event"})
    EXPECT_EQ(json("unitconfig", type), R"({"@description":110,"@declaration":11})");
  EXPECT_EQ(json("unitconfig", "text") + json("unitconfig", "undefined"), "nonenone");
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

TEST(Settings, KeepTheirStartValuesWhereTheFileIsSilent) {
  TempFolder const folder;
  gPathstring const before = Vapp::program_dir();
  Vapp::set_program_dir(folder.path());
  cMapObj const kept(Vapp::options_ini);
  EXPECT_TRUE(Vapp::load_settings()) << "the first start makes the folder";
  folder.write("ini/vellumar.ini", R"({"htmhelp": true, "vlp_dir": "/no such folder"})");
  EXPECT_TRUE(Vapp::load_settings());
  EXPECT_EQ(to_json(*Vapp::options_ini.at("htmhelp")), "true");
  EXPECT_EQ(to_json(*Vapp::options_ini.at("warn_outdir")), "true");
  EXPECT_EQ(cat::as_string(Vapp::options_ini.at("vlp_dir")), folder.path());
  Vapp::options_ini["vlp_last"] = cat::make(false);
  EXPECT_TRUE(Vapp::save_settings());
  EXPECT_NE(folder.read("ini/vellumar.ini").find("\"vlp_last\": false"), std::string::npos);
  std::string reason;
  folder.write("ini/vellumar.ini", "{\n");
  EXPECT_FALSE(Vapp::load_settings(&reason));
  EXPECT_TRUE(reason.starts_with(folder.path("ini/vellumar.ini:2: "))) << reason;
  Vapp::set_program_dir(folder.path("ini/vellumar.ini"));
  setenv("XDG_CONFIG_HOME", folder.path("own").c_str(), 1);
  EXPECT_TRUE(Vapp::save_settings()) << "each user has a folder of his own";
  EXPECT_NE(folder.read("own/vellumar/vellumar.ini").find("\"vlp_last\": false"),
            std::string::npos);
  setenv("XDG_CONFIG_HOME", folder.path("ini/vellumar.ini").c_str(), 1);
  EXPECT_FALSE(Vapp::save_settings()) << "a folder that can't be made";
  unsetenv("XDG_CONFIG_HOME");
  Vapp::options_ini = kept;
  Vapp::set_program_dir(before);
}

} // namespace

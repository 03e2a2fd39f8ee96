// Map files of the help: rules at OK and Apply, the list, and what a change says.

#include "dialog_test.h"

namespace {

class MapFiles : public DialogTest {
protected:
  MapFiles() {
    open_project();
    dialog = Shell::make_dialog("gDiaHM");
    user = std::make_unique<DialogUser>(*dialog);
  }
  std::string refused(char const * focus) {
    dialog->apply();
    EXPECT_EQ(user->focus(), focus);
    EXPECT_EQ(value("hlp/hid_base"), "524288");
    return boxes();
  }
  std::unique_ptr<gDialog> dialog;
  std::unique_ptr<DialogUser> user;
  std::string const changed =
      "box: Changes to the generated map file may require updating the\nprogram that includes the "
      "map file and/or the WinHelp/HTML\ndocumentation targeted by that program.";
};

TEST_F(MapFiles, name_and_base) {
  EXPECT_FALSE(user->at("name").enabled);
  EXPECT_EQ(user->at("base").text, "0x80000");
  user->check("create", true);
  EXPECT_EQ(refused("name"), "box: Please enter a name for the map file.");
  user->type("name", "sub/help");
  EXPECT_EQ(refused("name"), "box: Folder '" + folder.path("sub") + "' does not exist.");
  EXPECT_EQ(user->at("name").text, "sub/help.hm");
  folder.write("help.hm");
  user->type("name", "help");
  outside.answers = {"no"};
  EXPECT_EQ(refused("name"),
            "ask: File '" + folder.path("help.hm") + "' already exists.\nOverwrite?");
  user->type("name", "new");
  for (char const * const wrong : {"", "-1", "0x", "x", "0x80000000", "12 "}) {
    user->type("base", wrong);
    EXPECT_EQ(refused("base"), "box: The base value for the help identifiers is missing or "
                               "invalid.\nPlease enter a nonnegative integer value\n(prefix "
                               "hexadecimal numbers with '0x' or '0X').")
        << wrong;
  }
  user->type("base", "1F");
  user->check("hexadecimal", false);
  EXPECT_EQ(user->at("base").text, "31");
  user->type("base", "1F");
  EXPECT_NE(refused("base"), "") << "decimal without a prefix";
  user->type("base", "0X10");
  dialog->apply();
  EXPECT_EQ(boxes(), changed);
  EXPECT_EQ(value("hlp/hid_base") + "," + value("hlp/hm_newfile"), "16,new.hm");
  EXPECT_TRUE(Vapp::project().modified());
  folder.write("new.hm");
  dialog->apply();
  EXPECT_EQ(boxes(), "") << "neither new nor changed";
  user->type("base", "0");
  dialog->ok();
  EXPECT_TRUE(dialog->accepted());
  EXPECT_EQ(value("hlp/hid_base"), "0");
  auto const again = Shell::make_dialog("gDiaHM");
  DialogUser other(*again);
  EXPECT_EQ(other.at("base").text, "0");
  EXPECT_FALSE(other.at("hexadecimal").checked);
}

TEST_F(MapFiles, included_files) {
  std::string const a = folder.write("a.hm"), gone = folder.path("gone.hm");
  outside.answers = {a + "|" + folder.path("A.HM") + "|" + gone};
  user->press("add");
  EXPECT_EQ(user->rows("files"), a + "/" + gone) << "the same without regard to case";
  EXPECT_EQ(outside.last_choice.title, "Add Map File");
  user->check("create", true);
  boxes();
  outside.answers = {folder.path("A")};
  user->press("choose");
  EXPECT_EQ(outside.last_choice.title + "," + outside.last_choice.ext, "Map File,hm");
  boxes();
  EXPECT_EQ(refused("files"), "box: The generated map file cannot be included:\n'" + a + "'");
  EXPECT_EQ(user->at("files").selected, 0);
  user->type("name", "new");
  std::string const missing = "Some of the included map files do not exist:\n" + gone;
  dialog->apply();
  EXPECT_EQ(boxes(), "box: " + missing + "\n---\n" + changed);
  EXPECT_EQ(Vapp::option("hlp/hm_files")->size(), 2);
  outside.answers = {"no"};
  user->type("base", "7");
  std::string const question = "ask: " + missing + "\nDo you want to delete them from the list?";
  dialog->ok();
  EXPECT_EQ(boxes(), question + "\n---\n" + changed);
  EXPECT_EQ(Vapp::option("hlp/hm_files")->size(), 2);
  auto const again = Shell::make_dialog("gDiaHM");
  DialogUser other(*again);
  outside.answers = {"yes"};
  again->ok();
  EXPECT_EQ(boxes(), question + "\n---\n" + changed);
  EXPECT_EQ(value("hlp/hm_files/0"), a);
  auto const last = Shell::make_dialog("gDiaHM");
  DialogUser remover(*last);
  remover.key("files", gListKey::remove);
  EXPECT_FALSE(remover.at("delete").enabled);
  remover.key("files", gListKey::remove);
  last->ok();
  EXPECT_EQ(boxes(), changed);
  EXPECT_EQ(Vapp::option("hlp/hm_files")->size(), 0);
}

} // namespace

// What a dialog asks before it takes an output folder.

#include "dialog_test.h"

#include "vlb/gfilesystem.h"

namespace {

class OutputFolder : public DialogTest {};

TEST_F(OutputFolder, is_checked_made_and_stored) {
  open_project();
  folder.write("full/page.htm");
  folder.write("file");
  struct {
    std::string typed, answer, box;
    bool accepted;
  } const rows[] = {
      {"  ", "", "", false},
      {folder.path(), "",
       "box: Folder '" + folder.path() +
           "' is never emptied: it holds the "
           "project. Choose another output folder.",
       false},
      {"full", "yes",
       "ask: Folder '" + folder.path("full") +
           "' already exists.\nThe contents of "
           "this folder will be deleted.\n\nDo you want to choose a different folder?",
       false},
      {"full", "no",
       "ask: Folder '" + folder.path("full") +
           "' already exists.\nThe contents of "
           "this folder will be deleted.\n\nDo you want to choose a different folder?",
       true},
      {"file/x", "", "box: Could not create folder '" + folder.path("file/x") + "'.", false},
      {"new  ", "", "", true},
      {"new", "", "", true},
  };
  for (auto const & row : rows) {
    auto const dialog = Shell::make_dialog("gDefineOutdir");
    DialogUser user(*dialog);
    user.type("folder", row.typed);
    user.leave("folder");
    EXPECT_EQ(boxes(), "") << "asked at OK alone";
    outside.answers = {row.answer};
    dialog->ok();
    EXPECT_EQ(boxes(), row.box);
    EXPECT_EQ(dialog->accepted(), row.accepted) << row.typed;
    EXPECT_EQ(user.focus(), row.accepted ? "" : "folder");
  }
  EXPECT_EQ(outside.last_question.icon, gOutside::Icon::exclamation);
  EXPECT_EQ(value("out_dir"), "new");
  EXPECT_TRUE(gFileSystem::dir_exists(gString(folder.path("new"))));
  EXPECT_TRUE(Vapp::project().modified());
}

TEST_F(OutputFolder, begins_beside_the_project_and_makes_nothing_without_warnings) {
  open_project();
  Vapp::options["out_dir"] = cat::make("");
  Vapp::options_ini["warn_outdir"] = cat::make(false);
  auto const dialog = Shell::make_dialog("gDefineOutdir");
  DialogUser user(*dialog);
  EXPECT_EQ(user.at("folder").text, folder.path("output"));
  outside.answers = {folder.path("chosen")};
  user.press("choose");
  EXPECT_EQ(outside.last_choice.dir, folder.path("output"));
  dialog->ok();
  EXPECT_EQ(value("out_dir"), folder.path("chosen"));
  EXPECT_FALSE(gFileSystem::dir_exists(gString(folder.path("chosen"))));
  Vapp::project().save();
  auto const again = Shell::make_dialog("gDefineOutdir");
  DialogUser user_again(*again);
  again->ok();
  EXPECT_FALSE(Vapp::project().modified());
}

} // namespace

// A new project, from empty fields to options; and what becomes of dialogs beside it.

#include "dialog_test.h"

#include "app/shell/option_handlers.h"
#include "vlb/gfilesystem.h"

namespace {

class NewProject : public DialogTest {
protected:
  NewProject() {
    folder.write("work/d.vls", "@document\n");
    folder.write("work/src/a.h");
    folder.write("full/page.htm");
    Vapp::options_ini["vlp_dir"] = cat::make(folder.path("work"));
  }
};

TEST_F(NewProject, each_field_has_its_rules) {
  std::string const work = folder.path("work");
  folder.write("work/old.vlp", "{}");
  auto const dialog = Shell::make_dialog("gDefineNewvlp");
  DialogUser user(*dialog);
  EXPECT_EQ(user.at("path").text, work + "/");
  EXPECT_EQ(user.at("folder").text + user.at("script").text + user.at("output").text, "");
  std::string const characters =
      "box: Path names cannot contain the following characters:\n* ? < > \" |";
  std::string const contents = "' already exists.\nThe contents of this folder will be deleted.\n\n"
                               "Do you want to choose a different folder?";
  struct {
    char const * field;
    std::string typed, answer, box, left;
  } const rows[] = {
      {"path", work + "/p*", "", characters, work + "/p*"},
      {"path", "p.vlp", "",
       "box: Please enter an absolute path name or\nchoose a folder with the button \">>\".",
       "p.vlp"},
      {"path", "/no/such/p", "",
       "box: Folder '/no/such' does not exist.\nPlease enter the path of an existent folder.",
       "/no/such/p"},
      {"path", work, "", "box: '" + work + "' is a folder.\nPlease add the file name.", work},
      {"path", work + "/old", "no", "ask: File '" + work + "/old.vlp' already exists.\nOverwrite?",
       work + "/old.vlp"},
      {"script", "d\"", "", characters, "d\""},
      {"script", "", "", "box: Please specify a script file.", ""},
      {"script", "none", "", "box: File '" + work + "/none.vls' does not exist.", "none.vls"},
      {"output", "o|", "", characters, "o|"},
      {"output", "../full", "yes", "ask: Folder '" + folder.path("full") + contents, "../full"},
      {"output", work, "",
       "box: Folder '" + work +
           "' is never emptied: it holds the project. Choose another output "
           "folder.",
       work},
  };
  user.type("path", work + "/p");
  user.type("script", "d");
  for (auto const & row : rows) {
    std::string const good = user.at(row.field).text;
    user.type(row.field, row.typed);
    outside.answers = {row.answer};
    user.leave(row.field);
    EXPECT_EQ(boxes(), row.box);
    EXPECT_EQ(user.focus(), row.field) << row.typed;
    EXPECT_EQ(user.at(row.field).text, row.left);
    outside.answers = {row.answer};
    dialog->ok();
    EXPECT_EQ(boxes(), row.box) << "the same at OK";
    user.type(row.field, good);
  }
  user.type("path", folder.path("full") + "/sub.d");
  user.type("output", "page\"");
  user.leave("path");
  EXPECT_EQ(boxes(), characters) << "all fields are read";
  EXPECT_EQ(user.focus(), "output");
  EXPECT_FALSE(Vapp::project().is_open());
}

TEST_F(NewProject, replaces_the_project_at_ok) {
  Vapp::project().set_project_name(gString(folder.path("before.vlp")));
  Vapp::project().save();
  Vapp::options["indexsubst"] = cat::make("?");
  Vapp::project().mark_modified();
  Vapp::options_ini["vlp_dir"] = cat::make(folder.path("work"));
  auto const dialog = Shell::make_dialog("gDefineNewvlp");
  DialogUser user(*dialog);
  outside.answers = {folder.path("work/p"), folder.path("work/d.vls"), folder.path("full")};
  user.press("choose_path");
  EXPECT_TRUE(outside.last_choice.caller_confirms);
  EXPECT_EQ(user.at("folder").text, folder.path("work"));
  user.leave("path");
  EXPECT_EQ(user.at("path").text, folder.path("work/p.vlp"));
  user.press("choose_script");
  EXPECT_EQ(outside.last_choice.dir + "," + outside.last_choice.ext, folder.path("work") + ",vls");
  user.press("choose_output");
  outside.answers = {"no"};
  user.leave("output");
  EXPECT_TRUE(boxes().ends_with("Do you want to choose a different folder?"));
  std::string root;
  auto const add = [&](gDialog & inputs, DialogUser & in_list) {
    root = in_list.at("root").text;
    host.scripts = {[&](gDialog & group, DialogUser & in_group) {
      in_group.type("paths", "src");
      in_group.type("files", "*.h");
      group.ok();
    }};
    in_list.press("new");
    inputs.ok();
  };
  host.scripts = {add};
  user.press("inputs");
  EXPECT_EQ(root, folder.path("work"));
  EXPECT_EQ(value("indexsubst"), "?") << "nothing has happened yet";
  host.scripts = {[&](gDialog &, DialogUser & in_list) {
    EXPECT_EQ(in_list.rows("groups"), "src|*.h|1|") << "kept from the first time";
  }};
  user.press("inputs");

  boxes();
  Vapp::ana_success = true;
  outside.answers = {"no"};
  dialog->ok();
  EXPECT_EQ(boxes(), "ask: Save changes in project 'before.vlp'?") << "and no question twice";
  EXPECT_TRUE(dialog->accepted());
  EXPECT_EQ(Vapp::project().path(), folder.path("work/p.vlp"));
  EXPECT_TRUE(Vapp::project().modified());
  EXPECT_FALSE(Vapp::ana_success);
  EXPECT_EQ(value("indexsubst"), "~");
  EXPECT_EQ(value("inputcurdir"), folder.path("work"));
  EXPECT_EQ(value("out_dir"), folder.path("full"));
  EXPECT_EQ(value("vls_file"), folder.path("work/d.vls"));
  EXPECT_EQ(value("inputfiles/0/files") + value("inputfiles/0/count"), "*.h1");
  EXPECT_FALSE(gFileSystem::file_exists(gString(folder.path("work/p.vlp")))) << "not written yet";
}

TEST_F(NewProject, an_empty_output_folder_passes_and_a_script_that_cannot_be_read_is_not_taken) {
  auto const dialog = Shell::make_dialog("gDefineNewvlp");
  DialogUser user(*dialog);
  outside.answers = {folder.path("none.vls")};
  user.press("choose_script");
  EXPECT_EQ(user.at("script").text, "");
  EXPECT_NE(outside.report_text().find("Could not read Vellumar script: "), std::string::npos);
  user.type("script", "src/../d.vls");
  user.press("choose_script");
  EXPECT_EQ(outside.last_choice.dir + "," + outside.last_choice.name,
            folder.path("work/src/..") + ",d.vls");
  user.type("path", folder.path("work/q"));
  user.type("output", "  ");
  boxes();
  dialog->ok();
  EXPECT_TRUE(dialog->accepted()) << boxes();
  EXPECT_EQ(value("out_dir"), "") << "the default";
}

// A dialog that stays open must never write what belongs to one project into another.
TEST_F(NewProject, dialogs_beside_follow_their_project) {
  open_project();
  std::string const other = folder.write("other.vlp", "{}");
  gDefSrc command;
  outside.answers = {"yes"};
  command.OnCommand();
  auto const open_sources = [&] {
    Shell::run_dialog({"gDefineSrc", 0, true});
    DialogUser(*host.modeless).type("root", "changed");
    boxes();
  };
  open_sources();
  std::string const question =
      "ask: The changes in the dialog 'Input Files' are not stored.\nDiscard them?";
  outside.answers = {"no"};
  EXPECT_FALSE(Vapp::project().open_file(gString(other)));
  EXPECT_EQ(boxes(), question);
  EXPECT_EQ(Vapp::project().name(), "p.vlp");
  EXPECT_TRUE(host.modeless->is_open());
  outside.answers = {"yes"};
  EXPECT_TRUE(Vapp::project().open_file(gString(other)));
  EXPECT_EQ(boxes(), question);
  EXPECT_FALSE(host.modeless->is_open());
  EXPECT_EQ(value("inputcurdir"), "");
  open_sources();
  host.modeless->cancel();
  Vapp::project().mark_modified();
  boxes();
  for (auto const & [answer, may_cancel, goes_on] : {std::tuple{"cancel", true, false},
                                                     {"cancel", false, true},
                                                     {"no", true, true},
                                                     {"yes", true, true}}) {
    outside.answers = {answer};
    EXPECT_EQ(Vapp::project().ask_to_save(may_cancel), goes_on) << answer;
    EXPECT_EQ(boxes(), "ask: Save changes in project 'other.vlp'?");
    EXPECT_EQ(outside.last_question.cancel, may_cancel);
  }
  EXPECT_FALSE(Vapp::project().modified());
}

} // namespace

// From the commands of the menu to their dialogs, and what holds for every dialog.

#include "dialog_test.h"

#include <set>

#include "app/shell/option_handlers.h"
#include "app/shell/worker.h"
#include "store/cfactory.h"
#include "store/gglobalobj.h"
#include "vlb/gfilesystem.h"

namespace {

class Commands : public DialogTest {
protected:
  Commands() {
    static bool const ready = (Global::objects().init_all(), true);
    EXPECT_TRUE(ready);
    outside.on_dialog = [](gOutside::Dialog const & dialog) { return Shell::run_dialog(dialog); };
  }
  static std::set<std::string> dialog_names() {
    std::set<std::string> names = {"gDefineNewvlp", "gAboutDialog"};
    for (cRepositoryEntry const & entry : cRepoImpl::get(typeid(cMenuHandlerBase)))
      if (auto const handler = make_handler(entry.name))
        if (auto const * opener = dynamic_cast<gDialogHandler *>(handler.get()))
          names.insert(opener->dialog());
    return names;
  }
  static void run(char const * name) {
    make_handler(name)->OnCommand();
    Shell::wait_for_worker();
  }
};

bool names_itself(gField const & field) {
  bool const word = field.label.find_first_not_of(">< -+") != std::string::npos;
  bool const list = !field.titles.empty() || !field.frame.empty();
  return word || list || !field.tool_tip.empty() || field.kind == gField::Kind::note;
}

TEST_F(Commands, each_dialog_is_whole_and_changes_nothing_by_itself) {
  std::set<int> contexts;
  for (std::string const & name : dialog_names()) {
    open_project();
    auto const dialog = Shell::make_dialog(name, 99);
    ASSERT_TRUE(dialog) << name;
    EXPECT_EQ(dialog->page(), 0) << "there is no such page";
    DialogUser user(*dialog);
    EXPECT_FALSE(dialog->title().empty());
    for (auto const & page : dialog->pages()) {
      EXPECT_TRUE(contexts.insert(page->context()).second) << name << page->context();
      std::set<std::string> ids;
      std::set<char> letters;
      for (gField const & field : page->fields()) {
        std::string const place = name + "/" + page->title() + "/" + field.id;
        EXPECT_TRUE(ids.insert(field.id).second) << place;
        EXPECT_TRUE(names_itself(field)) << place << ": no name for a reader of the screen";
        EXPECT_TRUE(field.chooser_of.empty() || page->find(field.chooser_of)) << place;
        bool const fresh =
            field.mnemonic < 0 ||
            letters.insert(Vlb::lower(field.label[std::size_t(field.mnemonic)])).second;
        EXPECT_TRUE(fresh) << place;
      }
    }
    if (name == "gDefineNewvlp")
      continue;
    if (name == "gDefineOutdir")
      user.type("folder", value("out_dir") + "x");
    shown();
    dialog->ok();
    EXPECT_TRUE(dialog->accepted()) << name << boxes();
    EXPECT_EQ(Vapp::project().modified(), name == "gDefineOutdir") << name;
  }
}

TEST_F(Commands, lead_from_nothing_to_finished_pages) {
  folder.write("a.h", "/* @function Does it. */\nvoid f();\n");
  folder.write("d.vls", "@document\n@outfilter\n");
  auto const inputs = [&](gDialog & dialog, DialogUser & user) {
    user.press("new");
    dialog.ok();
  };
  auto const group = [](gDialog & dialog, DialogUser & user) {
    user.type("files", "*.h");
    dialog.ok();
  };
  host.scripts = {[&](gDialog & dialog, DialogUser & user) {
    user.type("path", folder.path("p"));
    user.type("script", "d");
    user.type("output", "out");
    host.scripts = {inputs, group};
    user.press("inputs");
    dialog.ok();
  }};
  outside.answers = {"no"};
  run("gVlpNew");
  ASSERT_EQ(Vapp::project().name(), "p.vlp");
  outside.answers = {"no"};
  run("gAnaStart");
  ASSERT_TRUE(Vapp::ana_success) << outside.report_text() << boxes();
  run("gOutHTML");
  EXPECT_TRUE(gFileSystem::file_exists(gString(folder.path("out/htm/index.htm"))));
  run("gVlpSave");
  EXPECT_FALSE(Vapp::project().modified());

  // The sources have moved: loading asks, and the list of groups is put right at once.
  folder.write("moved/a.h", folder.read("a.h"));
  gFileSystem::remove(gString(folder.path("a.h")));
  boxes();
  host.scripts = {[&](gDialog & dialog, DialogUser & user) {
    host.scripts = {[](gDialog & edited, DialogUser & fields) {
      fields.type("paths", "moved");
      edited.ok();
    }};
    user.press("edit");
    dialog.ok();
  }};
  outside.answers = {"yes"};
  EXPECT_TRUE(Vapp::project().open_file(gString(folder.path("p.vlp"))));
  EXPECT_EQ(boxes(), "ask: The input file specification in the project\nis no longer correct (see "
                     "message window).\n\nCorrect it now?\n---\ndialog: gDefineSrc");
  EXPECT_TRUE(Vapp::project().check_input_files());
  EXPECT_TRUE(Vapp::project().modified());
}

} // namespace

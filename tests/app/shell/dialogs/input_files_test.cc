// The list of file groups and the dialog of one group.

#include "dialog_test.h"

#include "app/shell/dialogs/file_group.h"
#include "app/shell/dialogs/input_files.h"
#include "store/cerr.h"

namespace {

class InputFiles : public DialogTest {
protected:
  InputFiles() {
    for (char const * name : {"src/a.h", "src/b.h", "src/sub/c.pas", "doc/d.txt"})
      folder.write(name);
    open_project();
    add_group("src", "*.h", 1);
    add_group("doc", "*.txt", 7);
    (*Vapp::options.submap("inputfiles").at(1)->map())["outgrp"] = cat::make("texts");
    Vapp::options["inputcurdir"] = cat::make(folder.path());
    Vapp::project().save();
  }
  static void add_group(char const * path, char const * files, int count) {
    auto group = make_ref<cMapObj>();
    group->set("path", cat::make(path));
    group->set("files", cat::make(files));
    group->set("count", cat::make(count));
    Vapp::options.submap("inputfiles").append(group);
  }
  // What a user types into the dialog of a group.
  static TestHost::Script group(std::string paths, std::string files, std::string outgrp = "") {
    return [=](gDialog & dialog, DialogUser & user) {
      user.type("paths", paths);
      user.type("files", files);
      user.type("outgrp", outgrp);
      dialog.ok();
    };
  }
};

TEST_F(InputFiles, groups_are_listed_changed_moved_and_stored_at_ok) {
  auto group_at = [](int row) { return Vapp::option("inputfiles")->at(row)->map(); };
  (*group_at(1))["files"] = cat::make(3);
  {
    gDefineSrc dialog;
    EXPECT_EQ(DialogUser(dialog).rows("groups"), "src|*.h|1|/doc|(bad data)|7|texts");
  }
  (*group_at(1))["files"] = cat::make("*.txt");
  gDefineSrc dialog;
  DialogUser user(dialog);
  EXPECT_FALSE(user.at("up").enabled);
  user.leave("root", "choose_root");
  EXPECT_EQ(user.rows("groups"), "src|*.h|1|/doc|*.txt|7|texts") << "not on the way to its button";
  user.leave("root");
  EXPECT_EQ(user.rows("groups"), "src|*.h|2|/doc|*.txt|1|texts");
  EXPECT_EQ(cat::as_string(group_at(0)->at("count")), "1") << "the dialog has copies";

  user.press("down");
  EXPECT_EQ(user.at("groups").selected, 1);
  EXPECT_FALSE(user.at("down").enabled);
  EXPECT_EQ(user.rows("groups"), "doc|*.txt|1|texts/src|*.h|2|");
  std::string focus;
  host.scripts = {group("src/sub", "*.pas", " more  "),
                  [&](gDialog &, DialogUser & other) { focus = other.focus(); }};
  user.key("groups", gListKey::insert);
  EXPECT_EQ(user.rows("groups"), "doc|*.txt|1|texts/src|*.h|2|/src/sub|*.pas|1|more");
  user.activate("groups", 3);
  EXPECT_EQ(focus, "outgrp");
  host.scripts = {[&](gDialog &, DialogUser & other) {
    focus = other.focus() + other.at("paths").text + other.at("outgrp").text;
  }};
  user.at("groups").column = 2;
  user.press("edit");
  EXPECT_EQ(focus, "pathssrc/submore");
  user.select("groups", 1);
  host.scripts = {group("src", "*.h;sub/*.pas")};
  user.key("groups", gListKey::edit);
  EXPECT_EQ(user.at("groups").cell(2), "3");
  outside.answers = {"no", "yes"};
  user.press("delete");
  user.select("groups", 0);
  user.key("groups", gListKey::remove);
  EXPECT_EQ(boxes(), "ask: Delete delected file group?\n---\nask: Delete delected file group?");
  EXPECT_EQ(host.titles, (std::vector<std::string>{"New File Group", "Change File Group",
                                                   "Change File Group", "Change File Group"}));
  EXPECT_FALSE(Vapp::project().modified());
  dialog.ok();
  EXPECT_TRUE(Vapp::project().modified());
  ASSERT_EQ(Vapp::option("inputfiles")->size(), 2);
  EXPECT_EQ(cat::as_string(group_at(0)->at("files")), "*.h;sub/*.pas");
  EXPECT_FALSE(group_at(0)->at("outgrp")) << "absent where the field is empty";
  EXPECT_EQ(cat::as_string(group_at(1)->at("outgrp")), "more");

  Vapp::project().save();
  gDefineSrc same;
  DialogUser again(same);
  same.ok();
  EXPECT_FALSE(Vapp::project().modified()) << "nothing differs";
  gDefineSrc moved;
  DialogUser mover(moved);
  mover.press("down");
  moved.ok();
  EXPECT_TRUE(Vapp::project().modified()) << "the order is part of it";
}

TEST_F(InputFiles, the_root_is_relative_to_the_project_and_what_vanished_counts_nothing) {
  Vapp::options["inputcurdir"] = cat::make("");
  gDefineSrc dialog;
  DialogUser user(dialog);
  EXPECT_EQ(user.at("root").text, folder.path());
  user.type("root", "src");
  user.leave("root");
  EXPECT_EQ(user.rows("groups"), "src|*.h|0|/doc|*.txt|0|texts");
  user.type("root", "nowhere");
  user.leave("root");
  EXPECT_EQ(user.rows("groups"), "src|*.h|0|/doc|*.txt|0|texts") << "not counted in another folder";
  user.type("root", "src");
  outside.answers = {"cancel", folder.path()};
  user.press("choose_root");
  EXPECT_EQ(outside.last_choice.dir + "," + outside.last_choice.title,
            folder.path("src") + ",Root Folder");
  EXPECT_EQ(user.at("root").text, "src");
  user.press("choose_root");
  EXPECT_EQ(user.at("root").text, folder.path());
  EXPECT_EQ(user.rows("groups"), "src|*.h|2|/doc|*.txt|1|texts");
  EXPECT_EQ(outside.report_text(), "") << "counting is silent";
  dialog.cancel();
  EXPECT_EQ(value("inputcurdir"), "");

  gInputFiles own{"src", folder.path(), make_ref<cVectorObj>()};
  gDefineSrc modal(own);
  DialogUser modal_user(modal);
  host.scripts = {group("", "*.h")};
  modal_user.press("new");
  modal.ok();
  EXPECT_EQ(own.groups->size(), 1);
  EXPECT_EQ(value("inputcurdir"), "") << "nothing is stored";
  EXPECT_FALSE(Vapp::project().modified());
}

TEST_F(InputFiles, a_group_must_find_its_files) {
  std::vector<std::string> heard;
  cErrSlot const slot([&](cErr & error) { heard.push_back(error.text()); });
  std::string focus;
  host.scripts = {[&](gDialog & dialog, DialogUser & user) {
    auto const refused = [&](char const * paths, char const * files, char const * group) {
      user.type("paths", paths);
      user.type("files", files);
      user.type("outgrp", group);
      dialog.ok();
      EXPECT_TRUE(dialog.is_open());
      focus = user.focus();
      return boxes();
    };
    EXPECT_EQ(refused("src;none", "*.x", "2"),
              "box: Folder does not exist: " + folder.path("none") +
                  "\n---\nbox: No file matches: " + folder.path("src/*.x"));
    EXPECT_EQ(outside.last_icon, gOutside::Icon::stop);
    EXPECT_EQ(focus, "paths");
    EXPECT_EQ(refused("src", "*.h", " 2  x "), "box: '2 x' is not a valid identifier.");
    EXPECT_EQ(focus, "outgrp");
    EXPECT_EQ(user.at("outgrp").text, "2 x");
    user.leave("outgrp");
    EXPECT_EQ(boxes(), "box: '2 x' is not a valid identifier.");
    user.leave("paths");
    EXPECT_EQ(boxes(), "");
    user.type("outgrp", "");
    dialog.ok();
    EXPECT_TRUE(dialog.accepted());
  }};
  gDefineSrc dialog;
  DialogUser user(dialog);
  user.press("new");
  EXPECT_EQ(heard.size(), 2u);
  EXPECT_EQ(user.at("groups").rows.size(), 3u);
  user.type("root", "/no/where");
  host.scripts = {group("", "*")};
  user.press("new");
  EXPECT_EQ(boxes(), "box: Folder does not exist: /no/where") << "no other folder is looked into";
  EXPECT_EQ(user.at("groups").rows.size(), 3u);
}

TEST_F(InputFiles, chosen_paths_are_added_relative_to_the_root) {
  struct {
    char const *path, *root, *paths, *folder, *file;
  } const rows[] = {
      {"/p/src", "/p/", "", "src", "src"},
      {"/P/src", "/p/", " ; ", "src", "src"},
      {"/p", "/p/", "", "", ""},
      {"/q/src", "/p/", "", "/q/src", "/q/src"},
      {"/pq", "/p/", "", "/pq", "/pq"},
      {"/a/b", "/", "", "a/b", "a/b"},
      {"/p/src/a.h", "/p/", "src", "src/a.h", "a.h"},
      {"/p/src/a.h", "/p/", "/p/src/;", "src/a.h", "a.h"},
      {"/p/src2/a.h", "/p/", "src", "src2/a.h", "/p/src2/a.h"},
      {"/p/src/a.h", "/p/", "src;doc", "src/a.h", "/p/src/a.h"},
  };
  for (auto const & row : rows) {
    EXPECT_EQ(Shell::shortened_folder(gPathstring(row.path), gPathstring(row.root)), row.folder);
    EXPECT_EQ(Shell::shortened_file(gPathstring(row.path), gPathstring(row.root), row.paths),
              row.file)
        << row.path << " in " << row.paths;
  }
  gFG_Dialog dialog(gPathstring(folder.path()), nullptr);
  DialogUser user(dialog);
  outside.answers = {folder.path(), folder.path("src"), "cancel", folder.path("doc"),
                     folder.path("src/a.h") + "|" + folder.path("doc/d.txt")};
  for (int i = 0; i < 4; ++i)
    user.press("choose_path");
  EXPECT_EQ(user.at("paths").text, "src;doc;");
  EXPECT_EQ(outside.last_choice.dir, folder.path() + "/");
  user.type("paths", "src");
  user.type("files", "x.h");
  user.press("choose_files");
  EXPECT_EQ(user.at("files").text, "x.h;a.h;" + folder.path("doc/d.txt") + ";");
  EXPECT_TRUE(outside.last_choice.several);
  EXPECT_EQ(boxes().substr(0, 26), "open: Add a new source fol");
  EXPECT_EQ(user.focus(), "files");
}

} // namespace

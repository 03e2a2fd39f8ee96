// Paths below the root are stored without it, so that a project can be moved with its sources.

#include "app/shell/dialogs/file_group.h"

#include <list>

#include "app/options/text_rules.h"
#include "app/shell/dialogs/chooser_button.h"
#include "app/shell/dialogs/context.h"
#include "store/cerr.h"
#include "vlb/gfilesystem.h"
#include "vlb/outside.h"

namespace {

bool begins_with(std::string_view path, std::string_view folder) {
  return path.size() >= folder.size() && Vlb::compare_i(path.substr(0, folder.size()), folder) == 0;
}

gPathstring with_separator(gPathstring folder) {
  if (!folder.ends_with(gPathstring::Dir_sep))
    folder += gPathstring::Dir_sep;
  return folder;
}

// Semicolons part the paths of a field; one stands at its end from then on.
void add_to(gField & field, std::string const & path) {
  if (path.empty())
    return;
  if (!field.text.empty() && !field.text.ends_with(';'))
    field.text += ';';
  field.text += path + ";";
}

} // namespace

gString Shell::shortened_folder(gPathstring const & path, gPathstring const & root) {
  if (begins_with(path, root))
    return gString(path.substr(root.size()));
  return Vlb::compare_i(path + gPathstring::Dir_sep, root) == 0 ? gString() : gString(path);
}

gString Shell::shortened_file(gPathstring const & path, gPathstring const & root,
                              gString const & paths) {
  std::list<gPathstring> folders;
  gFileSystem::split_path_list(paths, folders, true);
  if (folders.empty())
    return shortened_folder(path, root);
  if (folders.size() > 1)
    return path;
  gPathstring const folder = with_separator(folders.front().make_absolute(root).normalize(true));
  return begins_with(path, folder) ? gString(path.substr(folder.size())) : gString(path);
}

class gFG_Dialog::Page : public gPage {
public:
  Page(gFG_Dialog & owner, gPathstring const & root, cObj const * group)
      : gPage("", gContext::file_group),
        owner_(owner),
        root_(with_separator(root)),
        paths_(add({.id = "paths", .label = "Absolute or relative paths"})),
        files_(
            (add(chooser_button("choose_path", "paths", "Add a folder")),
             add({.id = "files", .label = "Absolute or relative file names (wildcards allowed)"}))),
        outgrp_((add(chooser_button("choose_files", "files", "Add files")),
                 add({.id = "outgrp", .label = "Output Group in Vellumar Script-File"}))) {
    if (!group)
      return;
    paths_.text = cat::as_string(group->at("path"));
    files_.text = cat::as_string(group->at("files"));
    outgrp_.text = cat::as_string(group->at("outgrp"));
  }

  using gPage::focus;
  bool exchange(bool) override { return false; }

  bool check() override { return check_files() && check_group(); }

  // Whether files exist is asked at OK alone: while the user goes from paths to files, neither is
  // complete.
  bool rule(gField & field) override { return &field != &outgrp_ || check_group(); }

  void pressed(gField & button) override {
    if (button.id == "choose_path")
      choose_path();
    else
      choose_files();
  }

private:
  bool check_files() {
    bool good = true;
    cErrSlot const slot([&](cErr & error) {
      good = false;
      Vlb::outside().box(error.text(), gOutside::Icon::stop);
    });
    owner_.test_files(paths_.text, files_.text);
    if (!good)
      focus(paths_);
    return good;
  }

  bool check_group() {
    if (outgrp_.text.empty())
      return true;
    cat::wsp_normalize(outgrp_.text);
    if (outgrp_.text.empty() || cat::is_ident(outgrp_.text))
      return true;
    return refuse(outgrp_, Vapp::fill_text("'%s' is not a valid identifier.", {outgrp_.text}));
  }

  void choose_path() {
    gString const chosen = Vlb::outside().choose_folder("Add a new source folder", root_);
    if (!chosen.empty())
      add_chosen(paths_, {Shell::shortened_folder(chosen, root_)});
    focus(paths_);
  }

  void choose_files() {
    gOutside::Choice choice{
        gOutside::Choice::Kind::open, "Add new source files",
        "C/C++-Dateien (*.c;*.cpp;*.h;*.hpp)|*.c;*.cpp;*.h;*.hpp|Pascal-Dateien "
        "(*.p;*.pas)|*.p;*.pas|Textdateien (*.txt)|*.txt|Alle Dateien (*.*)|*.*||",
        root_};
    choice.several = true;
    std::vector<gString> additions;
    for (gString const & path : Vlb::outside().choose(choice))
      additions.push_back(Shell::shortened_file(path, root_, paths_.text));
    add_chosen(files_, additions);
    focus(files_);
  }

  void add_chosen(gField & field, std::vector<gString> const & additions) {
    for (gString const & addition : additions)
      add_to(field, addition);
    touch();
  }

  gFG_Dialog & owner_;
  gPathstring root_;
  gField &paths_, &files_, &outgrp_;
};

gFG_Dialog::gFG_Dialog(gPathstring const & root, cObj const * group)
    : gDialog(group ? "Change File Group" : "New File Group") {
  page_ = &add_page<Page>(*this, root, group);
}

std::string const & gFG_Dialog::text(Field field) const {
  char const * const ids[] = {"paths", "files", "outgrp"};
  return page_->field(ids[field]).text;
}

void gFG_Dialog::start_at(Field field) {
  char const * const ids[] = {"paths", "files", "outgrp"};
  page_->focus(page_->field(ids[field]));
}

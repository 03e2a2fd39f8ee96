// The list works on copies of the groups; a group is replaced rather than changed, so that a copy
// that somebody else holds stays as it was.

#include "app/shell/dialogs/input_files.h"

#include <algorithm>

#include "app/options/input_check.h"
#include "app/options/options.h"
#include "app/shell/choosers.h"
#include "app/shell/dialogs/chooser_button.h"
#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/file_group.h"
#include "app/shell/dialogs/host.h"
#include "app/shell/dialogs/put.h"
#include "store/cerr.h"
#include "store/ctypeobj.h"
#include "vlb/outside.h"

namespace {

// The columns of the list, and the fields of the dialog of a group that they lead to.
enum Column { paths, files, count, outgrp };

gFG_Dialog::Field field_of(int column) {
  switch (column) {
  case files:
    return gFG_Dialog::files;
  case outgrp:
    return gFG_Dialog::outgrp;
  }
  return gFG_Dialog::paths;
}

// Absent is empty, as it is for a run.
template <class T> std::string cell_text(cObj const & group, char const * key) {
  cRef<cObj> const value = group.at(key);
  if (cat::is_nil(value))
    return {};
  return cat::value_of<T>(*value) ? cat::as_string(value) : "(bad data)";
}

gField::Row row_of(cObj const & group) {
  return {cell_text<std::string>(group, "path"), cell_text<std::string>(group, "files"),
          cell_text<int>(group, "count"), cell_text<std::string>(group, "outgrp")};
}

gField button(char const * id, char const * label, gField::Place place = gField::Place::below) {
  return {.id = id, .kind = gField::Kind::button, .label = label, .place = place};
}

// The list of groups and its root, wherever they are kept.
class Page : public gPage {
public:
  Page()
      : gPage("", gContext::input_files),
        files_(0),
        root_(add({.id = "root", .label = "Root folder"})),
        list_((add(chooser_button("choose_root", "root", "Choose the root folder")),
               add({.id = "groups",
                    .kind = gField::Kind::list,
                    .label = "File groups",
                    .titles = {"Directory paths", "File names and filters", "# Files",
                               "Output Group"}}))),
        edit_((add(button("new", "New", gField::Place::column)), add(button("edit", "Edit")))),
        delete_(add(button("delete", "Delete"))),
        up_(add(button("up", "Up"))),
        down_(add(button("down", "Down"))),
        test_slot_(*this, &Page::test_files) {}

  bool exchange(bool store) override {
    if (store)
      return write(root_.text, groups_);
    gInputFiles const from = read();
    root_.text = from.root;
    base_ = from.base;
    if (root_.text.empty())
      root_.text = Shell::project_or_program_folder();
    groups_.clear();
    for (cIterObj it = from.groups->begin(); it.valid(); it++)
      groups_.push_back(it->clone());
    files_.cur_dir(absolute_root());
    show(0);
    return false;
  }

  bool rule(gField & field) override {
    if (&field == &root_)
      recount();
    return true;
  }

  void changed(gField & field) override {
    if (&field == &list_)
      enable();
  }
  void activated(gField &, int) override { edit(); }
  void key(gField &, gListKey key) override {
    if (key == gListKey::insert)
      create();
    else if (key == gListKey::remove)
      remove();
    else
      edit();
  }
  void pressed(gField & pressed) override {
    if (pressed.id == "choose_root")
      choose_root();
    else if (pressed.id == "new")
      create();
    else if (&pressed == &edit_)
      edit();
    else if (&pressed == &delete_)
      remove();
    else
      move(&pressed == &up_ ? -1 : 1);
  }

protected:
  using Groups = std::vector<cRef<cObj>>;
  virtual gInputFiles read() const = 0;
  // True if something differed.
  virtual bool write(std::string const & root, Groups const & groups) = 0;
  static cRef<cObj> vector_of(Groups const & groups) {
    auto vector = make_ref<cVectorObj>();
    for (cRef<cObj> const & group : groups)
      vector->append(group);
    return vector;
  }

private:
  gPathstring absolute_root() const {
    gPathstring root = gString(root_.text);
    root.make_absolute(base_.empty() ? Shell::project_or_program_folder() : base_);
    return root.normalize(true);
  }

  int selected() const {
    return list_.selected < static_cast<int>(groups_.size()) ? list_.selected : -1;
  }

  // Brings the list in line with the groups.
  void show(int selected) {
    list_.rows.clear();
    for (cRef<cObj> const & group : groups_)
      list_.rows.push_back(row_of(*group));
    list_.selected = std::min(selected, static_cast<int>(groups_.size()) - 1);
    enable();
  }

  void enable() {
    edit_.enabled = delete_.enabled = selected() >= 0;
    up_.enabled = selected() > 0;
    down_.enabled = selected() >= 0 && selected() + 1 < static_cast<int>(groups_.size());
  }

  int count_of(gString const & paths, gString const & files) {
    files_.clear();
    files_.add(paths, files, 1);
    return static_cast<int>(files_.size());
  }

  void recount() {
    gWaitCursor const wait;
    if (!files_.cur_dir(absolute_root()))
      return;
    for (cRef<cObj> const & group : groups_)
      if (cMapObj * const record = group->map()) {
        int const found =
            count_of(cat::as_string(group->at("path")), cat::as_string(group->at("files")));
        Shell::put(*record, "count", cat::make(found));
      }
    show(selected());
  }

  void choose_root() {
    if (choose_into(root_, Vlb::outside().choose_folder("Root Folder", absolute_root())))
      recount();
  }

  void test_files(gString const & paths, gString const & files) {
    if (!files_.cur_dir(absolute_root())) {
      cat::publish_error(1, "Folder does not exist: " + absolute_root());
      return;
    }
    {
      gWaitCursor const wait;
      files_.clear();
      files_.add(paths, files, 5);
    }
    Vapp::publish_problems(files_);
  }

  // Shows the dialog of a group; null when cancelled.
  cRef<cObj> ask_for_group(cObj const * group) {
    gFG_Dialog dialog(absolute_root(), group);
    dialog.test_files.connect(test_slot_);
    dialog.start_at(group ? field_of(list_.column) : gFG_Dialog::paths);
    if (!Shell::show_dialog(dialog))
      return nullptr;
    gString const paths = dialog.text(gFG_Dialog::paths), files = dialog.text(gFG_Dialog::files);
    auto made = make_ref<cMapObj>();
    made->set("path", cat::make(paths));
    made->set("files", cat::make(files));
    made->set("count", cat::make(count_of(paths, files)));
    if (!dialog.text(gFG_Dialog::outgrp).empty())
      made->set("outgrp", cat::make(dialog.text(gFG_Dialog::outgrp)));
    return made;
  }

  void create() {
    if (cRef<cObj> const group = ask_for_group(nullptr)) {
      groups_.push_back(group);
      changed_to(static_cast<int>(groups_.size()) - 1);
    }
  }

  void edit() {
    int const row = selected();
    if (row < 0)
      return;
    cRef<cObj> & group = groups_[static_cast<std::size_t>(row)];
    if (cRef<cObj> const changed = ask_for_group(&*group)) {
      group = changed;
      changed_to(row);
    }
  }

  void remove() {
    int const row = selected();
    if (row < 0 ||
        Vlb::outside().ask_yes_no("Delete delected file group?") != gOutside::Answer::yes)
      return;
    groups_.erase(groups_.begin() + row);
    changed_to(row);
  }

  void move(int by) {
    int const row = selected(), to = row + by;
    if (row < 0 || to < 0 || to >= static_cast<int>(groups_.size()))
      return;
    std::swap(groups_[static_cast<std::size_t>(row)], groups_[static_cast<std::size_t>(to)]);
    changed_to(to);
  }

  void changed_to(int row) {
    touch();
    show(row);
  }

  gFileList files_;
  gPathstring base_;
  Groups groups_;
  gField &root_, &list_, &edit_, &delete_, &up_, &down_;
  cSlot2<Page, gString const &, gString const &> test_slot_;
};

} // namespace

class gDefineSrc::OfOptions : public Page {
  gInputFiles read() const override {
    gInputFiles files;
    files.root = Vapp::option_string("inputcurdir");
    if (cRef<cObj> const groups = Vapp::option("inputfiles"))
      for (cIterObj it = groups->begin(); it.valid(); it++)
        files.groups->append(it.valref());
    return files;
  }

  bool write(std::string const & root, Groups const & groups) override {
    bool written = false;
    cRef<cObj> vector = vector_of(groups);
    cRef<cObj> const before = Vapp::option("inputfiles");
    if (!before || !cTomMap::equal_sorted(*before, vector)) {
      cMapObj & stored = Vapp::options.submap("inputfiles");
      stored.clear();
      for (cRef<cObj> const & group : groups)
        stored.append(group->clone());
      stored.changed();
      written = true;
    }
    // A root that was never chosen stays that of the project, wherever this is moved to.
    bool const untouched =
        Vapp::option_string("inputcurdir").empty() && root == Shell::project_or_program_folder();
    return (!untouched && Shell::put(Vapp::options, "inputcurdir", cat::make(root))) || written;
  }
};

class gDefineSrc::OfCaller : public Page {
public:
  explicit OfCaller(gInputFiles & files) : kept_(files) {}

private:
  gInputFiles read() const override { return kept_; }

  // It is the caller who changes the project, if it does.
  bool write(std::string const & root, Groups const & groups) override {
    kept_.root = root;
    kept_.groups = make_ref<cMapObj>();
    for (cRef<cObj> const & group : groups)
      kept_.groups->append(group);
    return false;
  }

  gInputFiles & kept_;
};

gDefineSrc::gDefineSrc() : gDialog("Input Files") {
  add_page<OfOptions>();
}

gDefineSrc::gDefineSrc(gInputFiles & files) : gDialog("Input Files") {
  add_page<OfCaller>(files);
}

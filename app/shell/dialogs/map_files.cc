// Other programs are built with these files, so every change is told. All rules run at OK and
// Apply: name, base and list are judged together.

#include "app/shell/dialogs/map_files.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <optional>

#include "app/options/options.h"
#include "app/options/text_rules.h"
#include "app/shell/dialogs/chooser_button.h"
#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/put.h"
#include "vlb/gfilesystem.h"
#include "vlb/outside.h"

namespace {

using Vapp::fill_text;

char const * const filter = "Help Map File (*.hm)|*.hm|All Files (*.*)|*.*||";

std::string label(char const * option) {
  return std::string(Vapp::find_row(option)->label);
}

std::string base_text(int base, bool hexadecimal) {
  char digits[16];
  char * const end = std::to_chars(digits, digits + sizeof digits, base, hexadecimal ? 16 : 10).ptr;
  return (hexadecimal ? "0x" : "") + std::string(digits, end);
}

// With the prefix of hexadecimal numbers or without; nothing if it isn't one from 0 on.
std::optional<int> base_of(std::string const & typed, bool hexadecimal) {
  std::string_view digits = typed;
  bool const prefix = digits.starts_with("0x") || digits.starts_with("0X");
  if (prefix)
    digits.remove_prefix(2);
  unsigned base = 0;
  char const * const end = digits.data() + digits.size();
  auto const read = std::from_chars(digits.data(), end, base, prefix || hexadecimal ? 16 : 10);
  if (read.ec != std::errc() || read.ptr != end || base > INT_MAX)
    return std::nullopt;
  return static_cast<int>(base);
}

// What typical bases look like: multiples of 16 that leave room below.
bool looks_hexadecimal(int base) {
  return base % 16 == 0 && base >= 256;
}

gPathstring absolute(std::string path) {
  return gPathstring(gString(Vapp::make_absolute_vlp(path))).normalize(true);
}

bool same_file(std::string const & a, std::string const & b) {
  return absolute(a).compare_i(absolute(b)) == 0;
}

} // namespace

class gDiaHM::Page : public gPage {
public:
  Page()
      : gPage("", gContext::map_files),
        create_(add({.id = "create",
                     .kind = gField::Kind::check,
                     .label = label("hlp/hm_create"),
                     .frame = "generated"})),
        name_(add({.id = "name", .label = label("hlp/hm_newfile"), .frame = "generated"})),
        choose_(add(chooser_button("choose", "name", "Choose the map file"))),
        base_(add({.id = "base", .label = label("hlp/hid_base"), .frame = "generated"})),
        hexadecimal_(add({.id = "hexadecimal",
                          .kind = gField::Kind::check,
                          .label = "Hexadecimal",
                          .place = gField::Place::beside,
                          .frame = "generated"})),
        files_(add({.id = "files", .kind = gField::Kind::list, .label = label("hlp/hm_files")})),
        delete_((add({.id = "add",
                      .kind = gField::Kind::button,
                      .label = "Add...",
                      .place = gField::Place::column}),
                 add({.id = "delete", .kind = gField::Kind::button, .label = "Delete"}))) {
    frame("generated", "Generated map file");
    choose_.frame = "generated";
  }

  bool exchange(bool store) override {
    if (store)
      return write();
    create_.checked = Vapp::option_bool("hlp/hm_create");
    name_.text = Vapp::option_string("hlp/hm_newfile");
    int const base = Vapp::option_int("hlp/hid_base");
    hexadecimal_.checked = looks_hexadecimal(base);
    base_.text = base_text(base, hexadecimal_.checked);
    shown_hexadecimal_ = hexadecimal_.checked;
    files_.rows.clear();
    if (cRef<cObj> const files = Vapp::option("hlp/hm_files"))
      for (cIterObj it = files->begin(); it.valid(); it++)
        files_.rows.push_back({cat::as_string(it.valref())});
    files_.selected = files_.rows.empty() ? -1 : 0;
    enable();
    return false;
  }

  bool check() override { return check_name() && check_base() && check_included(); }

  // Behind all other rules: what is missing is told, and can be taken off the list where the dialog
  // closes.
  void tell_missing(bool may_delete) {
    auto const is_missing = [](gField::Row const & row) {
      return !gFileSystem::file_exists(absolute(row[0]));
    };
    std::string text = "Some of the included map files do not exist:\n";
    bool found = false;
    for (gField::Row const & row : files_.rows)
      if (is_missing(row)) {
        text += (found ? "\n" : "") + row[0];
        found = true;
      }
    if (!found)
      return;
    if (!may_delete) {
      Vlb::outside().box(text, gOutside::Icon::exclamation);
      return;
    }
    text += "\nDo you want to delete them from the list?";
    if (Vlb::outside().ask({text, gOutside::Icon::exclamation}) == gOutside::Answer::yes)
      std::erase_if(files_.rows, is_missing);
  }

  void changed(gField & field) override {
    if (&field == &hexadecimal_)
      show_base();
    enable();
  }
  void key(gField &, gListKey key) override {
    if (key == gListKey::insert)
      add_files();
    else if (key == gListKey::remove && delete_.enabled)
      remove();
  }
  void pressed(gField & button) override {
    if (&button == &choose_)
      choose();
    else if (&button == &delete_)
      remove();
    else
      add_files();
  }

private:
  void enable() {
    name_.enabled = choose_.enabled = create_.checked;
    delete_.enabled = files_.selected >= 0;
  }

  void show_base() {
    if (std::optional<int> const base = base_of(base_.text, shown_hexadecimal_))
      base_.text = base_text(*base, hexadecimal_.checked);
    shown_hexadecimal_ = hexadecimal_.checked;
  }

  bool check_name() {
    if (!create_.checked)
      return true;
    if (gString(name_.text).wsp_only())
      return refuse(name_, "Please enter a name for the map file.");
    name_.text = gPathstring(gString(name_.text).wsp_rmright()).set_extension_default(".hm");
    gPathstring const path = absolute(name_.text);
    if (!gFileSystem::dir_exists(path.dir_name()))
      return refuse(name_, fill_text("Folder '%s' does not exist.", {path.dir_name()}));
    return is_known() || !gFileSystem::file_exists(path) || may_overwrite(path);
  }

  // True for the name that the project has already.
  bool is_known() const {
    gString const before = Vapp::option_string("hlp/hm_newfile");
    return !before.empty() &&
           same_file(gPathstring(before).set_extension_default(".hm"), name_.text);
  }

  bool may_overwrite(gPathstring const & path) {
    auto const answer =
        Vlb::outside().ask({fill_text("File '%s' already exists.\nOverwrite?", {path}),
                            gOutside::Icon::exclamation, false, gOutside::Answer::no});
    if (answer != gOutside::Answer::yes)
      focus(name_);
    return answer == gOutside::Answer::yes;
  }

  bool check_base() {
    if (base_of(base_.text, hexadecimal_.checked))
      return true;
    return refuse(base_, "The base value for the help identifiers is missing or invalid.\n"
                         "Please enter a nonnegative integer value\n"
                         "(prefix hexadecimal numbers with '0x' or '0X').");
  }

  bool check_included() {
    auto const generated =
        std::find_if(files_.rows.begin(), files_.rows.end(),
                     [&](gField::Row const & row) { return same_file(row[0], name_.text); });
    if (!create_.checked || generated == files_.rows.end())
      return true;
    files_.selected = static_cast<int>(generated - files_.rows.begin());
    return refuse(files_,
                  fill_text("The generated map file cannot be included:\n'%s'", {(*generated)[0]}));
  }

  void choose() {
    gPathstring const path = absolute(name_.text);
    gOutside::Choice choice{gOutside::Choice::Kind::save,
                            "Map File",
                            filter,
                            path.dir_name(),
                            gPathstring(gString(name_.text)).file_name(),
                            "hm"};
    choice.caller_confirms = true;
    choose_into(name_, Vlb::outside().choose_one(choice));
  }

  void add_files() {
    gOutside::Choice choice{gOutside::Choice::Kind::open, "Add Map File", filter, absolute("")};
    choice.several = true;
    for (gString const & path : Vlb::outside().choose(choice))
      add_file(path);
    focus(files_);
    enable();
  }

  // The same file a second time isn't worth a word.
  void add_file(gString const & path) {
    bool const known =
        std::any_of(files_.rows.begin(), files_.rows.end(),
                    [&](gField::Row const & row) { return same_file(row[0], path); });
    if (known)
      return;
    files_.rows.push_back({path});
    files_.selected = static_cast<int>(files_.rows.size()) - 1;
    touch();
  }

  void remove() {
    files_.rows.erase(files_.rows.begin() + files_.selected);
    files_.selected = std::min(files_.selected, static_cast<int>(files_.rows.size()) - 1);
    touch();
    enable();
  }

  bool write() {
    auto files = make_ref<cVectorObj>();
    for (gField::Row const & row : files_.rows)
      files->append(cat::make(row[0]));
    cMapObj & help = Vapp::options.submap("hlp");
    bool written = Shell::put(help, "hm_create", cat::make(create_.checked));
    written |= Shell::put(help, "hm_newfile", cat::make(name_.text));
    written |= Shell::put(help, "hid_base", cat::make(*base_of(base_.text, hexadecimal_.checked)));
    return Shell::put(help, "hm_files", files) || written;
  }

  gField &create_, &name_, &choose_, &base_, &hexadecimal_, &files_, &delete_;
  bool shown_hexadecimal_ = false;
};

gDiaHM::gDiaHM() : gDialog("Map Files for Context Sensitive Help", Apply::yes) {
  page_ = &add_page<Page>();
}

bool gDiaHM::confirm(bool apply) {
  page_->tell_missing(!apply);
  return true;
}

void gDiaHM::stored(bool written) {
  if (written)
    Vlb::outside().box("Changes to the generated map file may require updating the\n"
                       "program that includes the map file and/or the WinHelp/HTML\n"
                       "documentation targeted by that program.",
                       gOutside::Icon::information);
  gDialog::stored(written);
}

// The project before stays untouched until all fields are right and its changes are safe. A
// question that the user has answered isn't asked again for the same text.

#include "app/shell/dialogs/new_project.h"

#include "app/options/project.h"
#include "app/options/text_rules.h"
#include "app/shell/choosers.h"
#include "app/shell/dialogs/chooser_button.h"
#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/host.h"
#include "app/shell/dialogs/input_files.h"
#include "app/shell/dialogs/output_folder.h"
#include "vlb/gfilesystem.h"
#include "vlb/outside.h"

using Shell::gFolderCheck;
using Vapp::fill_text;

class gDefineNewvlp::Page : public gPage {
public:
  Page()
      : gPage("", gContext::new_project),
        path_(add({.id = "path", .label = "Project file"})),
        folder_((add(chooser_button("choose_path", "path", "Choose the project file")),
                 add({.id = "folder", .kind = gField::Kind::shown, .label = "Project folder"}))),
        script_(add({.id = "script", .label = "Script file"})),
        output_((add(chooser_button("choose_script", "script", "Choose the script")),
                 add({.id = "output", .label = "Output folder"}))) {
    add(chooser_button("choose_output", "output", "Choose the output folder"));
    add({.id = "inputs", .kind = gField::Kind::button, .label = "Define input files"});
  }

  bool exchange(bool store) override {
    if (store)
      return false;
    gPathstring const folder = Shell::project_or_program_folder();
    path_.text = folder;
    if (!folder.ends_with('/') && !folder.ends_with('\\'))
      path_.text += gPathstring::Dir_sep;
    focus(path_);
    return false;
  }

  bool rule(gField & field) override {
    if (!check_characters())
      return false;
    if (&field == &path_)
      return check_path();
    if (&field == &script_)
      return check_script();
    return &field != &output_ || check_output();
  }

  void pressed(gField & button) override {
    if (button.id == "choose_path")
      choose_path();
    else if (button.id == "choose_script")
      choose_into(script_, Shell::choose_script(text_of(script_), folder()));
    else if (button.id == "choose_output")
      choose_into(output_, Vlb::outside().choose_folder("Output Folder",
                                                        text_of(output_).make_absolute(folder())));
    else
      define_inputs();
  }

  Vapp::gNewProject project() const {
    auto groups = make_ref<cMapObj>();
    for (cIterObj it = inputs_.groups->begin(); it.valid(); it++)
      groups->append(it.valref());
    return {text_of(path_), inputs_.root, groups, output(), script_.text};
  }

private:
  static gPathstring text_of(gField const & field) { return gString(field.text); }
  gString output() const { return gString(output_.text).wsp_rmright(); }

  // The folder of the project to be; before there is one, where the chooser would begin.
  gPathstring folder() const {
    gPathstring const path = text_of(path_);
    return path.is_absolute() ? gPathstring(path.dir_name()) : Shell::project_or_program_folder();
  }

  bool check_characters() {
    for (gField const * const field : {&path_, &script_, &output_})
      if (field->text.find_first_of("*?<>|\"") != std::string::npos)
        return refuse(*field, "Path names cannot contain the following characters:\n* ? < > \" |");
    return true;
  }

  bool check_path() {
    gPathstring path = text_of(path_);
    if (!path.is_absolute())
      return refuse(path_, "Please enter an absolute path name or\nchoose a folder with the "
                           "button \">>\".");
    if (!gFileSystem::dir_exists(path.dir_name()))
      return refuse(path_, fill_text("Folder '%s' does not exist.\nPlease enter the path of an "
                                     "existent folder.",
                                     {path.dir_name()}));
    if (gFileSystem::dir_exists(path))
      return refuse(path_, fill_text("'%s' is a folder.\nPlease add the file name.", {path}));
    path.set_extension_default(".vlp");
    path_.text = path;
    folder_.text = path.dir_name();
    return may_overwrite(path);
  }

  bool may_overwrite(gPathstring const & path) {
    if (path == overwritten_ || !gFileSystem::file_exists(path))
      return true;
    auto const answer =
        Vlb::outside().ask({fill_text("File '%s' already exists.\nOverwrite?", {path}),
                            gOutside::Icon::exclamation, false, gOutside::Answer::no});
    if (answer == gOutside::Answer::yes)
      overwritten_ = path;
    else
      focus(path_);
    return answer == gOutside::Answer::yes;
  }

  bool check_script() {
    if (script_.text.empty())
      return refuse(script_, "Please specify a script file.");
    gPathstring script = text_of(script_).set_extension_default(".vls");
    script_.text = script;
    script.make_absolute(folder());
    if (gFileSystem::file_exists(script))
      return true;
    return refuse(script_, fill_text("File '%s' does not exist.", {script}));
  }

  bool check_output() {
    gString const typed = output();
    if (typed.empty())
      return true;
    gPathstring const absolute = gPathstring(typed).make_absolute(folder());
    auto const checked =
        Shell::check_output_folder(absolute, folder(), places(), absolute != cleared_);
    if (checked == gFolderCheck::passed)
      cleared_ = absolute;
    else
      focus(output_);
    return checked == gFolderCheck::passed;
  }

  gProtectedPlaces places() const {
    gPathstring script;
    if (!script_.text.empty())
      script = text_of(script_).make_absolute(folder());
    return {folder(), script, gPathstring(inputs_.root).make_absolute(folder()), inputs_.groups};
  }

  void choose_path() {
    gPathstring const path = text_of(path_);
    gOutside::Choice choice{gOutside::Choice::Kind::save,
                            "Define Project File",
                            "Vellumar Project (*.vlp)|*.vlp|All Files (*.*)|*.*||",
                            folder(),
                            path.file_name(),
                            "vlp"};
    choice.caller_confirms = true;
    if (choose_into(path_, Vlb::outside().choose_one(choice)))
      folder_.text = text_of(path_).dir_name();
  }

  void define_inputs() {
    gPathstring const path = text_of(path_);
    if (inputs_.root.empty() && path.is_absolute() && !path.file_name().empty())
      inputs_.root = path.dir_name();
    inputs_.base = folder();
    gDefineSrc dialog(inputs_);
    if (Shell::show_dialog(dialog))
      touch();
  }

  gField &path_, &folder_, &script_, &output_;
  gInputFiles inputs_;
  gPathstring overwritten_, cleared_; // what the user has said yes to
};

gDefineNewvlp::gDefineNewvlp() : gDialog("New Project") {
  page_ = &add_page<Page>();
}

bool gDefineNewvlp::confirm(bool) {
  return Vapp::project().create(page_->project());
}

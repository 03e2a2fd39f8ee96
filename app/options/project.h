// The current project: its file, its name, and how it is loaded and saved.
#pragma once

#include <string>

#include "store/cmapobj.h"
#include "store/csignal.h"
#include "vlb/gpathstring.h"

namespace Vapp {

// What the user enters for a new project.
struct gNewProject {
  gPathstring path;
  gString root;         // `inputcurdir`
  cRef<cMapObj> groups; // `inputfiles`; may be null
  gString out_dir;      // not stored if empty
  gString vls_file;     // not stored if empty
};

// Questions and boxes go through Vlb::outside().
class gProject {
public:
  // The full path of the project file; empty without a project.
  gPathstring const & path() const { return path_; }
  // The name of the file. A project is open when this isn't empty.
  gString const & name() const { return name_; }
  // The path for file operations; empty for a project that has no file yet.
  gPathstring const & file() const { return file_; }
  // The title of the documentation: the user's own, else the name without its extension.
  std::string title() const;
  bool is_open() const { return !name_.empty(); }
  bool modified() const { return modified_; }
  // True if the file is marked as one that isn't written over.
  bool write_protected() const;
  // Why the last load failed: "path:line: text".
  std::string const & load_error() const { return load_error_; }

  // Replaces the project by that of a file. On a failure there is no project, and the options are
  // the defaults. With `check`, input files that are no longer found lead to a question.
  bool load(gPathstring const & path, bool check = true);
  // Replaces the project by a new one without a name.
  void load_defaults();
  // True if the file is written. Without a file the same as save_as.
  bool save();
  bool save_as();
  // Asks whether changes are to be saved, if there are any. False if the user wants that and it
  // fails, or wants to stay, so that the changes aren't lost. With `may_cancel`, at the end of the
  // program, he can stay by an answer of its own.
  bool ask_to_save(bool may_cancel = false);
  // Lets the user choose a project until one loads; false when cancelled.
  bool open();
  // Loads a project that was named from outside, after the same question; if that fails, the user
  // chooses another one. False if there is no project then.
  bool open_file(gPathstring const & path);
  // Begins a new project; it isn't written yet. False if the changes of the one before are at risk.
  bool create(gNewProject const & fields);
  // Begins a new project with the options of a project file, which stays as it is; the project gets
  // a file of its own, in the folder and with the name of `path`, when it is saved. False if the
  // file can't be read, or if the changes of the project before are at risk.
  bool begin_from(gPathstring const & file, gPathstring const & path);
  // What happens at the start: init of all global objects and, if the user wants it and no project
  // was named, the last project.
  void start(bool project_named);

  // Raised before the project is left: a slot that sets the flag to false keeps everything as it
  // is, for a dialog with changes that aren't stored.
  cSignal1<bool &> sig_leaving;
  // Raised when the options are emptied for another project.
  cSignal sig_replaced;

  void set_project_name(gPathstring const & path);
  void mark_modified();
  void refresh_title() const;
  // True if all folders and files of the groups are found. What isn't goes to the message window
  // and out as a cErr.
  bool check_input_files() const;

private:
  void reset();
  bool read(gPathstring const & path);
  void complete(bool tell);
  void ask_for_correction();
  gPathstring choose(bool save) const;

  gPathstring path_;
  gString name_;
  gPathstring file_;
  bool modified_ = false;
  std::string load_error_;
};

gProject & project();

} // namespace Vapp

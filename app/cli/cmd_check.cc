// vellumar check: tells which files a project has, and what it no longer finds.

#include <iostream>

#include "app/cli/commands.h"
#include "app/cli/exit_status.h"
#include "app/options/options.h"
#include "vlb/gfilelist.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

class Check {
public:
  explicit Check(gCommandContext & context) : context_(context) {}

  int run() {
    gPathstring const root = Vapp::option_path("inputcurdir");
    if (!gFileSystem::dir_exists(root))
      complain("Folder does not exist: " + root);
    check_script();
    cRef<cObj> const groups = Vapp::option("inputfiles");
    if (!groups || groups->size() == 0)
      complain("No input files specified.");
    else
      for (cIterObj group = groups->begin(); group.valid(); group++)
        check_group(*group, root);
    return good_ ? exit_ok : exit_failed;
  }

private:
  void complain(std::string const & text) {
    context_.outside.tell(text);
    good_ = false;
  }

  // Without a name the path would be the project's folder.
  void check_script() {
    gPathstring const script = Vapp::option_path("vls_file");
    if (Vapp::option_string("vls_file").empty())
      complain("No script file specified.");
    else if (!gFileSystem::file_exists(script))
      complain("The script does not exist: " + script);
  }

  void check_group(cObj const & group, gPathstring const & root) {
    std::string const path = cat::as_string(group.at("path"));
    std::string const names = cat::as_string(group.at("files"));
    std::string const name = cat::as_string(group.at("outgrp"));
    gFileList files(0);
    files.cur_dir(root);
    files.add(path, names, 5);
    gString group_text;
    Vlb::add_shown(group_text, path + "|" + names + (name.empty() ? "" : "|" + name));
    std::cout << group_text << ": " << files.size() << (files.size() == 1 ? " file\n" : " files\n");
    for (gString const & problem : files.problems())
      complain(problem);
    for (gPathstring const & file : files.left_out()) {
      gString shown;
      Vlb::add_shown(shown, file);
      complain(std::string(Msg::line_feed_in_name.text) + shown);
    }
  }

  gCommandContext & context_;
  bool good_ = true;
};

} // namespace

void add_check(CLI::App & app, gCommandContext & context) {
  auto const project = std::make_shared<std::string>();
  CLI::App * command = app.add_subcommand("check", "Expand the file groups of a project");
  command->add_option("PROJECT", *project, "The project file")->required();
  command->callback([project, &context] {
    context.status = load_project(*project, context) ? Check(context).run() : int(exit_refused);
  });
}

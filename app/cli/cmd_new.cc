// vellumar new: writes a project file.

#include "app/cli/commands.h"
#include "app/cli/exit_status.h"
#include "app/options/options.h"
#include "app/options/project.h"
#include "vlb/gfilelist.h"
#include "vlb/gfilesystem.h"

namespace {

struct Arguments {
  std::string project, script, out, root;
  std::vector<std::string> inputs;
  bool force = false;
};

// A file group of "PATHS|FILES" or "PATHS|FILES|GROUP"; null if the text is neither.
cRef<cMapObj> make_group(std::string const & spec) {
  std::size_t const first = spec.find('|');
  if (first == std::string::npos)
    return nullptr;
  std::size_t const second = spec.find('|', first + 1);
  bool const named = second != std::string::npos;
  if (named && spec.find('|', second + 1) != std::string::npos)
    return nullptr;
  auto group = make_ref<cMapObj>();
  group->set("path", cat::make(spec.substr(0, first)));
  group->set("files", cat::make(spec.substr(first + 1, second - first - 1)));
  group->set("outgrp", cat::make(named ? spec.substr(second + 1) : std::string()));
  group->set("count", cat::make(0));
  return group;
}

cRef<cMapObj> make_groups(Arguments const & arguments, gCommandContext & context) {
  auto groups = make_ref<cMapObj>();
  for (std::string const & spec : arguments.inputs) {
    cRef<cMapObj> const group = make_group(spec);
    if (!group) {
      context.outside.tell("--input " + spec + ": expected PATHS|FILES or PATHS|FILES|GROUP");
      return nullptr;
    }
    groups->set(std::to_string(groups->size() + 1), group);
  }
  return groups;
}

// Notes in each group how many files it has now.
void count_files() {
  cRef<cObj> const groups = Vapp::option("inputfiles");
  for (cIterObj group = groups->begin(); group.valid(); group++) {
    gFileList files(0);
    files.cur_dir(Vapp::option_path("inputcurdir"));
    files.add(cat::as_string(group->at("path")), cat::as_string(group->at("files")), 5);
    group->map()->set("count", cat::make(static_cast<int>(files.size())));
  }
}

int write_project(Arguments const & arguments, gCommandContext & context) {
  gPathstring path = arguments.project;
  path.set_extension_default(".vlp");
  if (!arguments.force && gFileSystem::file_exists(path)) {
    context.outside.tell("'" + path + "' exists; --force replaces it");
    return exit_refused;
  }
  cRef<cMapObj> const groups = make_groups(arguments, context);
  if (!groups)
    return exit_refused;
  Vapp::project().create({path, arguments.root, groups, arguments.out, arguments.script});
  count_files();
  return save_project(context) ? exit_ok : exit_failed;
}

} // namespace

void add_new(CLI::App & app, gCommandContext & context) {
  auto const arguments = std::make_shared<Arguments>();
  CLI::App * command = app.add_subcommand("new", "Write a project file");
  command->add_option("PROJECT", arguments->project, "The project file to write")->required();
  command->add_option("--script", arguments->script, "The output script")->required();
  command->add_option("--out", arguments->out, "The output folder")->required();
  command->add_option("--root", arguments->root,
                      "The folder that input paths are relative to; the project's without it");
  command->add_option("--input", arguments->inputs, "A group of input files")
      ->type_name("PATHS|FILES[|GROUP]")
      ->required()
      ->delimiter('\0');
  command->add_flag("--force", arguments->force, "Replace an existing file");
  command->footer(
      "Paths are stored as they are given; relative ones start at the project's folder.");
  command->callback([arguments, &context] { context.status = write_project(*arguments, context); });
}

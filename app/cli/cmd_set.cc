// vellumar set: changes a project file, all of it or nothing.

#include "app/cli/commands.h"
#include "app/cli/exit_status.h"
#include "vlb/file_lock.h"

namespace {

// Others that change the project at the same time wait for each other, so that no change is lost.
int change_project(std::string const & path, std::vector<std::string> const & assignments,
                   gCommandContext & context) {
  Vlb::gFileLock const lock(path, std::chrono::seconds(20));
  if (!lock.is_free()) {
    context.outside.tell("'" + path + "' is being changed by another process. Try again.");
    return exit_refused;
  }
  if (!load_project(path, context) || !assign_options(assignments, context))
    return exit_refused;
  return save_project(context) ? exit_ok : exit_failed;
}

} // namespace

void add_set(CLI::App & app, gCommandContext & context) {
  struct Arguments {
    std::string project;
    std::vector<std::string> assignments;
  };
  auto const arguments = std::make_shared<Arguments>();
  CLI::App * command = app.add_subcommand("set", "Change options of a project");
  command->add_option("PROJECT", arguments->project, "The project file")->required();
  command
      ->add_option("KEY=VALUE", arguments->assignments, "What to change; VALUE is JSON or a text")
      ->required();
  command->callback([arguments, &context] {
    context.status = change_project(arguments->project, arguments->assignments, context);
  });
}

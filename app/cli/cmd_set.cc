// vellumar set: changes a project file, all of it or nothing.

#include "app/cli/commands.h"
#include "app/cli/exit_status.h"

namespace {

int change_project(std::vector<std::string> const & assignments, gCommandContext & context) {
  for (std::string const & assignment : assignments) {
    if (!assign_option(assignment, context))
      return exit_refused;
  }
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
    context.status = load_project(arguments->project, context)
                         ? change_project(arguments->assignments, context)
                         : exit_refused;
  });
}

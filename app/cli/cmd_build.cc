// vellumar build: an analysis run and the conversions of its result.

#include "app/cli/exit_status.h"
#include "app/cli/run_options.h"

void add_build(CLI::App & app, gCommandContext & context) {
  struct Arguments {
    std::string project;
    std::vector<std::string> targets;
    gRunOptions run;
  };
  auto const arguments = std::make_shared<Arguments>();
  CLI::App * command = app.add_subcommand("build", "Make the documentation of a project");
  command->add_option("PROJECT", arguments->project, "The project file")->required();
  command->add_option("--target", arguments->targets, "A format to write; htm without it")
      ->check(CLI::IsMember({"htm", "rtf", "hlp"}))
      ->allow_extra_args(false);
  arguments->run.add_to(*command);
  command->callback([arguments, &context] {
    if (arguments->targets.empty())
      arguments->targets = {"htm"};
    context.status = load_project(arguments->project, context)
                         ? run_project(arguments->run, arguments->targets, context)
                         : exit_refused;
  });
}

// vellumar analyze: one analysis run.

#include "app/cli/exit_status.h"
#include "app/cli/run_options.h"

void add_analyze(CLI::App & app, gCommandContext & context) {
  struct Arguments {
    std::string project;
    gRunOptions run;
  };
  auto const arguments = std::make_shared<Arguments>();
  CLI::App * command = app.add_subcommand("analyze", "Analyse the sources of a project");
  command->add_option("PROJECT", arguments->project, "The project file")->required();
  arguments->run.add_to(*command);
  command->callback([arguments, &context] {
    context.status = load_project(arguments->project, context)
                         ? run_project(arguments->run, {}, context)
                         : exit_refused;
  });
}

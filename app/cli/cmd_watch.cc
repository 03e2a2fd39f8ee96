// vellumar watch: build that goes on.

#include "app/cli/build_command.h"

void add_watch(CLI::App & app, gCommandContext & context) {
  CLI::App * command = app.add_subcommand(
      "watch", "Make the documentation of a project again whenever a source changes, and serve it");
  auto const arguments = std::make_shared<gBuildArguments>();
  arguments->watch.watch = true;
  arguments->add_to(*command);
  command->callback([arguments, &context] { context.status = build(*arguments, context); });
}

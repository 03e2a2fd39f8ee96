// vellumar get: prints a value of a project.

#include <iostream>

#include "app/cli/commands.h"
#include "app/cli/exit_status.h"
#include "app/options/set_option.h"

void add_get(CLI::App & app, gCommandContext & context) {
  struct Arguments {
    std::string project, key;
  };
  auto const arguments = std::make_shared<Arguments>();
  CLI::App * command = app.add_subcommand("get", "Print an option of a project as JSON");
  command->add_option("PROJECT", arguments->project, "The project file")->required();
  command->add_option("KEY", arguments->key, "A path such as ana/alloc/order; all without it");
  command->callback([arguments, &context] {
    context.status = exit_refused;
    if (!load_project(arguments->project, context))
      return;
    std::string text;
    if (!Vapp::get_option_json(arguments->key, text)) {
      context.outside.tell("There is no option '" + arguments->key +
                           "'; without a key, all of them are printed");
      return;
    }
    std::cout << text << (text.ends_with('\n') ? "" : "\n");
    context.status = exit_ok;
  });
}

// The program vellumar: documentation from sources, without a window system.

#include <algorithm>
#include <csignal>
#include <iostream>

#include "app/cli/commands.h"
#include "app/cli/exit_status.h"
#include "app/cli/interrupts.h"
#include "app/options/defaults.h"
#include "app/options/options.h"
#include "app/options/settings.h"
#include "store/gglobalobj.h"
#include "vlb/gfilesystem.h"
#include "vlb/nearest.h"

namespace {

void prepare(gCommandContext & context) {
  std::string reason;
  if (gFileSystem::get_curdir().empty()) {
    context.outside.tell("The current folder is gone. Change into one that exists.");
    throw CLI::RuntimeError(exit_refused);
  }
  Vapp::build_ini_defaults(Vapp::options_ini);
  if (!Vapp::load_settings(&reason))
    context.outside.tell(reason);
  Global::objects().init_all();
}

// A write that fails is an error to report and not the end of the process.
void ignore_write_signals() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

std::vector<std::string> command_names(CLI::App & app) {
  std::vector<std::string> names = {"help"};
  for (CLI::App const * command : app.get_subcommands([](CLI::App *) { return true; }))
    names.push_back(command->get_name());
  return names;
}

// "help" and "help COMMAND" in the words of the options.
std::vector<std::string> plain_arguments(int argc, char ** argv) {
  std::vector<std::string> words(argv + 1, argv + argc);
  if (!words.empty() && words.front() == "help") {
    words.erase(words.begin());
    words.resize(std::min<std::size_t>(words.size(), 1));
    words.emplace_back("--help");
  }
  return words;
}

// False, and a line that names the nearest one, if the first word is no command.
bool is_command(CLI::App & app, std::string const & word, gCommandContext & context) {
  std::vector<std::string> const names = command_names(app);
  if (word.starts_with('-') || std::ranges::find(names, word) != names.end())
    return true;
  std::string const near = Vlb::nearest(word, names);
  context.outside.tell(
      "'" + word + "' is no command. " +
      (near.empty() ? "'vellumar help' lists them." : "Did you mean 'vellumar " + near + "'?"));
  return false;
}

int run(CLI::App & app, int argc, char ** argv, gCommandContext & context) {
  std::vector<std::string> words = plain_arguments(argc, argv);
  if (!words.empty() && !is_command(app, words.front(), context))
    return exit_refused;
  context.words = words;
  std::ranges::reverse(words); // the parser takes the first from the end
  try {
    app.parse(words);
  } catch (CLI::ParseError const & error) {
    context.status = app.exit(error) == 0 ? exit_ok : exit_refused;
  } catch (std::exception const & fault) {
    context.outside.tell(fault.what());
    context.status = exit_failed;
  }
  if (std::cout.flush())
    return context.status;
  context.outside.tell("Cannot write to standard output");
  return exit_failed;
}

} // namespace

int main(int argc, char ** argv) {
  ignore_write_signals();
  gInterrupts const interrupts;
  gCliOutside outside;
  gCommandContext context{outside, 0, {}};
  CLI::App app("Documentation from C, C++ and Pascal sources", "vellumar");
  app.set_version_flag("--version", "vellumar " VELLUMAR_VERSION);
  app.require_subcommand(1);
  app.parse_complete_callback([&context] { prepare(context); });
  add_new(app, context);
  add_get(app, context);
  add_set(app, context);
  add_check(app, context);
  add_analyze(app, context);
  add_build(app, context);
  add_quick(app, context);
  add_watch(app, context);
  add_facts(app, context);
  add_plan(app, context);
  return run(app, argc, argv, context);
}

// The program vellumar: documentation from sources, without a window system.

#include <csignal>
#include <iostream>

#include "app/cli/commands.h"
#include "app/cli/exit_status.h"
#include "app/options/defaults.h"
#include "app/options/options.h"
#include "app/options/settings.h"
#include "store/gglobalobj.h"

namespace {

void prepare(gCommandContext & context) {
  std::string reason;
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

int run(CLI::App & app, int argc, char ** argv, gCommandContext & context) {
  try {
    app.parse(argc, argv);
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
  gCliOutside outside;
  gCommandContext context{outside};
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
  return run(app, argc, argv, context);
}

// The program vellumar: documentation from sources, without a window system.

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

} // namespace

int main(int argc, char ** argv) {
  gCliOutside outside;
  gCommandContext context{outside};
  CLI::App app("Documentation from C and C++ sources", "vellumar");
  app.set_version_flag("--version", "vellumar " VELLUMAR_VERSION);
  app.require_subcommand(1);
  app.parse_complete_callback([&context] { prepare(context); });
  add_new(app, context);
  add_get(app, context);
  add_set(app, context);
  add_check(app, context);
  add_analyze(app, context);
  try {
    app.parse(argc, argv);
  } catch (CLI::ParseError const & error) {
    return app.exit(error) == 0 ? exit_ok : exit_refused;
  }
  return context.status;
}

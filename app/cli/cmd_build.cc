// vellumar build: an analysis run and the conversions of its result.

#include "app/cli/build_command.h"
#include "app/cli/exit_status.h"
#include "app/options/options.h"

namespace {

// A project that can't be read now is waited for: somebody is changing it.
gWatchedPlaces places_of(gBuildArguments const & arguments, gCommandContext & context) {
  if (load_project(arguments.project, context) && arguments.run.apply(context))
    return places_of_project();
  gWatchedPlaces places;
  places.files = {gRunOptions::absolute(arguments.project)};
  return places;
}

int watch_project(gBuildArguments const & arguments, gCommandContext & context) {
  if (!arguments.run.apply(context))
    return exit_refused;
  return watch(
      arguments.watch, Vapp::option_path("out_dir").append("htm"),
      [&] { return places_of(arguments, context); }, context);
}

} // namespace

void gBuildArguments::add_to(CLI::App & command) {
  command.add_option("PROJECT", project, "The project file")->required();
  command.add_option("--target", targets, "A format to write; htm without it")
      ->check(CLI::IsMember({"htm", "rtf", "hlp"}))
      ->allow_extra_args(false);
  run.add_to(command);
  watch.add_to(command, !watch.watch);
}

int build(gBuildArguments const & arguments, gCommandContext & context) {
  if (!load_project(arguments.project, context))
    return exit_refused;
  if (arguments.watch.watch)
    return watch_project(arguments, context);
  std::vector<std::string> targets = arguments.targets;
  if (targets.empty())
    targets = {"htm"};
  return run_project(arguments.run, targets, context);
}

void add_build(CLI::App & app, gCommandContext & context) {
  CLI::App * command = app.add_subcommand("build", "Make the documentation of a project");
  auto const arguments = std::make_shared<gBuildArguments>();
  arguments->add_to(*command);
  command->callback([arguments, &context] { context.status = build(*arguments, context); });
}

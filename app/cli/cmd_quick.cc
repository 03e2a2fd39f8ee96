// vellumar quick: documentation of any folder of sources, by the built-in project.

#include <chrono>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <sstream>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "app/cli/exit_status.h"
#include "app/cli/run_options.h"
#include "app/cli/watch.h"
#include "app/options/options.h"
#include "app/shell/quick_project.h"
#include "app/shell/run.h"
#include "vlb/gfilesystem.h"

namespace {

struct Arguments {
  std::vector<std::string> sources;
  std::string title;
  bool open = false;
  gRunOptions run;
  gWatchOptions watch;
};

constexpr char const * default_out = "site";
constexpr std::size_t most_stretches = 20; // that are told one by one

gPathstring out_of(Arguments const & arguments) {
  return gRunOptions::absolute(arguments.run.out.empty() ? default_out : arguments.run.out);
}

gQuickProject project_of(Arguments const & arguments, gCommandContext & context) {
  std::vector<gQuickProject::Source> sources;
  for (std::string const & name : arguments.sources)
    sources.push_back({gRunOptions::absolute(name), name});
  auto const tell = [&context](std::string const & text) { context.outside.tell(text); };
  return {std::move(sources), out_of(arguments), arguments.title, {tell, tell}};
}

bool load_built_in(gCommandContext & context) {
  if (load_project(gQuickProject::file(), context))
    return true;
  context.outside.tell("The folder 'ini' that comes with the program belongs beside it.");
  return false;
}

std::string seconds_since(std::chrono::steady_clock::time_point begin) {
  std::chrono::duration<double> const passed = std::chrono::steady_clock::now() - begin;
  std::ostringstream text;
  text << std::fixed << std::setprecision(1) << passed.count();
  return text.str();
}

// By the desktop's own choice of a browser. Without a desktop there is nobody to see it.
void open_page(gPathstring const & page, gCommandContext & context) {
  if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY"))
    return context.outside.tell("There is no display to open the start page on.");
  std::string program = "xdg-open", path = page;
  char * const arguments[] = {program.data(), path.data(), nullptr};
  pid_t child = 0;
  int status = 0;
  bool const started =
      posix_spawnp(&child, program.c_str(), nullptr, nullptr, arguments, environ) == 0;
  if (!started || waitpid(child, &status, 0) != child || status != 0)
    context.outside.tell("The start page couldn't be opened; 'xdg-open' is needed for that.");
}

// The log of the part that failed.
gPathstring failed_log() {
  return Vapp::option_path("out_dir").append(Vapp::ana_success ? "htm.log" : "ana.log");
}

int run(Arguments const & arguments, gCommandContext & context) {
  gQuickProject project = project_of(arguments, context);
  if (!load_built_in(context) || !project.find_sources(Vapp::option_string("ana/cpp_ext") + "; " +
                                                       Vapp::option_string("ana/pas_ext")))
    return exit_refused;
  project.fill_project();
  context.outside.set_limit("WARNING 105", most_stretches);
  auto const begin = std::chrono::steady_clock::now();
  int const status = run_project(arguments.run, {"htm"}, context);
  context.outside.tell_omitted();
  if (status == exit_ok || status == exit_reports) {
    std::cout << project.summary() << "Seconds:    " << seconds_since(begin) << '\n';
    if (arguments.open)
      open_page(gConversionRun::last_result().start, context);
  } else if (status == exit_failed)
    context.outside.tell("No documentation was written. The log tells why: " + failed_log());
  return status;
}

// A file that is written anew may be another one in the same place, so that its folder counts.
gWatchedPlaces places_of(Arguments const & arguments) {
  gWatchedPlaces places;
  for (std::string const & name : arguments.sources) {
    gPathstring const path = gRunOptions::absolute(name);
    if (gFileSystem::file_exists(path))
      places.files.insert(path);
    else
      places.trees.push_back(path);
  }
  places.leave_out = out_of(arguments);
  std::string const extensions =
      Vapp::option_string("ana/cpp_ext") + "; " + Vapp::option_string("ana/pas_ext");
  places.wanted = [extensions](std::string const & name) {
    return has_extension(gPathstring(name), extensions);
  };
  return places;
}

int run_or_watch(Arguments const & arguments, gCommandContext & context) {
  if (!arguments.watch.watch)
    return run(arguments, context);
  if (!load_built_in(context))
    return exit_refused;
  return watch(
      arguments.watch, out_of(arguments).append("htm"), [&] { return places_of(arguments); },
      context);
}

} // namespace

void add_quick(CLI::App & app, gCommandContext & context) {
  auto const arguments = std::make_shared<Arguments>();
  CLI::App * command =
      app.add_subcommand("quick", "Make HTML of folders of sources, without a project");
  command->add_option("SOURCE", arguments->sources, "A folder of sources, or a source")
      ->required()
      ->check(not_empty());
  command->add_option("--title", arguments->title, "The title; the folder's name without it")
      ->allow_extra_args(false);
  command->add_flag("--open", arguments->open, "Open the start page when it is done");
  arguments->run.add_to(*command);
  command->get_option("--out")->description("The output folder, 'site' without it");
  arguments->watch.add_to(*command, true);
  command->callback([arguments, &context] { context.status = run_or_watch(*arguments, context); });
}

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
#include "app/shell/doxyfile_options.h"
#include "app/shell/quick_project.h"
#include "app/shell/run.h"
#include "vlb/gfilesystem.h"

namespace {

struct Arguments {
  std::vector<std::string> sources;
  std::string title, doxyfile;
  bool open = false, verbose = false;
  gRunOptions run;
  gWatchOptions watch;
};

constexpr char const * default_out = "site";
constexpr std::size_t most_stretches = 20; // that are told one by one

// What the command line and a Doxyfile say together.
struct Input {
  std::vector<gQuickProject::Source> sources;
  gPathstring out;
  std::optional<gDoxyfile> doxyfile;
};

gPathstring folder_of_results(gDoxyfile const & file) {
  std::vector<gPathstring> const folders = file.paths("OUTPUT_DIRECTORY");
  return gPathstring(folders.empty() ? file.folder() : folders.front()).append(default_out);
}

// Nothing, with the reason told, if the Doxyfile can't be read.
std::optional<Input> input_of(Arguments const & arguments, gCommandContext & context) {
  Input input;
  if (!arguments.doxyfile.empty()) {
    std::string fault;
    input.doxyfile = gDoxyfile::read(gRunOptions::absolute(arguments.doxyfile), fault);
    if (!input.doxyfile) {
      context.outside.tell(fault);
      return {};
    }
  }
  for (std::string const & name : arguments.sources)
    input.sources.push_back({gRunOptions::absolute(name), name});
  if (input.sources.empty() && input.doxyfile)
    for (gPathstring const & path : Shell::doxyfile_sources(*input.doxyfile))
      input.sources.push_back({path, path});
  input.out = !arguments.run.out.empty() ? gRunOptions::absolute(arguments.run.out)
              : input.doxyfile           ? folder_of_results(*input.doxyfile)
                                         : gRunOptions::absolute(default_out);
  return input;
}

gQuickProject project_of(Input const & input, Arguments const & arguments,
                         gCommandContext & context) {
  auto const tell = [&context](std::string const & text) { context.outside.tell(text); };
  gQuickProject project(input.sources, input.out, arguments.title, {tell, tell});
  if (!input.doxyfile)
    return project;
  project.take_doxyfile(*input.doxyfile);
  if (arguments.verbose)
    for (std::string const & key : input.doxyfile->left_out())
      tell("Not taken over from the Doxyfile: " + key);
  return project;
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
  std::optional<Input> const input = input_of(arguments, context);
  if (!input)
    return exit_refused;
  gQuickProject project = project_of(*input, arguments, context);
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
gWatchedPlaces places_of(Input const & input, Arguments const & arguments) {
  gWatchedPlaces places;
  for (gQuickProject::Source const & source : input.sources) {
    if (gFileSystem::file_exists(source.path))
      places.files.insert(source.path);
    else
      places.trees.push_back(source.path);
  }
  if (!arguments.doxyfile.empty())
    places.files.insert(gRunOptions::absolute(arguments.doxyfile));
  places.leave_out = input.out;
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
  std::optional<Input> const input = input_of(arguments, context);
  if (!input || !load_built_in(context))
    return exit_refused;
  return watch(
      arguments.watch, gPathstring(input->out).append("htm"),
      [&] { return places_of(*input, arguments); }, context);
}

} // namespace

void add_quick(CLI::App & app, gCommandContext & context) {
  auto const arguments = std::make_shared<Arguments>();
  CLI::App * command =
      app.add_subcommand("quick", "Make HTML of folders of sources, without a project");
  CLI::Option * const sources =
      command->add_option("SOURCE", arguments->sources, "A folder of sources, or a source")
          ->check(not_empty());
  CLI::Option * const doxyfile =
      command
          ->add_option("--doxyfile", arguments->doxyfile,
                       "A Doxyfile: its sources, where none are given, and its settings")
          ->check(not_empty())
          ->type_name("FILE")
          ->allow_extra_args(false);
  command->add_flag("-v,--verbose", arguments->verbose,
                    "Tell which settings of the Doxyfile aren't taken over");
  command->add_option("--title", arguments->title, "The title; the folder's name without it")
      ->allow_extra_args(false);
  command->add_flag("--open", arguments->open, "Open the start page when it is done");
  arguments->run.add_to(*command);
  command->get_option("--out")->description("The output folder, 'site' without it");
  arguments->watch.add_to(*command, true);
  command->callback([arguments, sources, doxyfile, &context] {
    if (sources->empty() && doxyfile->empty())
      throw CLI::RequiredError("SOURCE");
    context.status = run_or_watch(*arguments, context);
  });
}

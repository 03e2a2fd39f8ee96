// vellumar facts: reads sources ahead of a run, in any process on any machine.

#include "ana/write_facts.h"
#include "app/cli/exit_status.h"
#include "app/cli/facts_key.h"
#include "app/cli/run_options.h"
#include "app/options/options.h"
#include "app/shell/quick_project.h"
#include "vlb/gfilesystem.h"

namespace {

struct Arguments {
  std::vector<std::string> sources, set;
  std::string project, out;
  bool macros = false;
  int jobs = 0;
};

// The sources of the command line are all that there is where no project names others.
bool load(Arguments const & arguments, gCommandContext & context) {
  if (!load_project(arguments.project.empty() ? std::string(gQuickProject::file())
                                              : arguments.project,
                    context) ||
      !assign_options(arguments.set, context))
    return false;
  if (!Vapp::option({"ana", "facts_line"}))
    Vapp::options.submap("ana").set("facts_line", cat::make(true));
  return true;
}

std::list<gSrcFile> sources_of(Arguments const & arguments, gRunInput const & input) {
  std::list<gSrcFile> sources = input_files_of(input);
  if (arguments.sources.empty())
    return sources;
  sources.clear();
  for (std::string const & name : arguments.sources)
    sources.emplace_back(gRunOptions::absolute(name), "", 0);
  return sources;
}

int run(Arguments const & arguments, gCommandContext & context) {
  if (!load(arguments, context))
    return exit_refused;
  gRunInput input = Vapp::run_input();
  input.facts = gRunOptions::absolute(arguments.out);
  input.facts_key = key_of_reading();
  input.jobs = arguments.jobs;
  if (arguments.project.empty())
    for (std::string const & name : arguments.sources) {
      gPathstring const path = gRunOptions::absolute(name);
      input.groups.push_back({path.dir_name(), path.file_name(), {}});
    }
  if (!input.modern) {
    context.outside.tell("Only the modern dialect reads sources by themselves (ana/dialect).");
    return exit_refused;
  }
  gFileSystem::mk_dirs(input.facts);
  std::string const fault =
      arguments.macros ? write_macros(input) : write_facts(input, sources_of(arguments, input));
  if (!fault.empty())
    context.outside.tell("Cannot read or write " + fault);
  return fault.empty() ? exit_ok : exit_failed;
}

} // namespace

void add_facts(CLI::App & app, gCommandContext & context) {
  auto const arguments = std::make_shared<Arguments>();
  CLI::App * command = app.add_subcommand("facts", "Read sources ahead of a run, for --facts");
  command->add_option("FILE", arguments->sources, "Sources; without any, all of the project's")
      ->check(not_empty());
  command->add_option("--project", arguments->project, "The project whose options count")
      ->check(not_empty());
  command->add_option("-o,--out", arguments->out, "The folder for the facts")
      ->required()
      ->check(not_empty());
  command->add_flag("--macros", arguments->macros,
                    "Only what all sources of the project know of macros, which comes first");
  command->add_option("--set", arguments->set, "Set an option of the project for this run alone")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false);
  command->add_option("-j,--jobs", arguments->jobs, "Threads; one for each core without it")
      ->check(CLI::Range(1, 256))
      ->type_name("N");
  command->callback([arguments, &context] { context.status = run(*arguments, context); });
}

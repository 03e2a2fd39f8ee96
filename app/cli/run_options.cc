// Options hold for one run; nothing of them is saved.

#include "app/cli/run_options.h"

#include "app/options/options.h"
#include "vlb/gfilesystem.h"

// An empty name, as of a variable that isn't set, would be the current folder.
CLI::Validator not_empty() {
  return {[](std::string & text) { return std::string(text.empty() ? "The name is empty" : ""); },
          ""};
}

gPathstring gRunOptions::absolute(std::string const & name) {
  gPathstring path(name);
  path.make_absolute(gFileSystem::get_curdir());
  return path.normalize(true);
}

void gRunOptions::add_to(CLI::App & command) {
  command.add_option("-o,--out", out, "The output folder")
      ->check(not_empty())
      ->allow_extra_args(false);
  command.add_option("--set", set, "Set an option of the project for this run alone")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false);
  command.add_flag("--overwrite", overwrite,
                   "Go on in an output folder that holds other files; they stay");
  command.add_option("--fail-on", fail_on, "Exit with 3 if a report of that severity was made")
      ->check(CLI::IsMember({"warning", "doc_error", "error"}));
  command.add_option("--suppress", suppress, "Numbers of reports that are left out")
      ->type_name("N,N...")
      ->delimiter(',')
      ->allow_extra_args(false);
  command.add_option("--reports", reports, "Write the reports of the run to a file, as JSON lines")
      ->type_name("FILE");
  command.add_option("-j,--jobs", jobs, "Threads of the run; one for each core without it")
      ->check(CLI::Range(1, 256))
      ->type_name("N")
      ->allow_extra_args(false);
  command.add_flag("--no-cache", no_cache,
                   "Make all again, also where nothing has changed since the last run");
  command.add_option("--facts", facts, "A folder with facts of the sources, see 'facts'")
      ->check(not_empty())
      ->type_name("DIR");
  command.add_option("--depfile", depfile, "Write down which files the run goes by, as for make")
      ->check(not_empty())
      ->type_name("FILE");
  command.add_flag("-q,--quiet", quiet, "No reports on standard error");
}

bool gRunOptions::apply(gCommandContext & context) const {
  if (!assign_options(set, context))
    return false;
  if (!out.empty())
    Vapp::options["out_dir"] = cat::make(absolute(out));
  std::string numbers = Vapp::option_string("msg/suppress");
  for (int number : suppress)
    numbers += (numbers.empty() ? "" : ",") + std::to_string(number);
  Vapp::options["msg"]["suppress"] = cat::make(numbers);
  if (jobs > 0)
    Vapp::options_ini["jobs"] = cat::make(jobs);
  return true;
}

gOverwrite gRunOptions::overwrite_policy() const {
  return overwrite                    ? gOverwrite::allow
         : gCliOutside::interactive() ? gOverwrite::ask_foreign
                                      : gOverwrite::refuse_foreign;
}

bool gRunOptions::fails_on(Msg::type worst) const {
  if (fail_on.empty())
    return false;
  return worst >= (fail_on == "warning"     ? Msg::warning
                   : fail_on == "doc_error" ? Msg::doc_error
                                            : Msg::error);
}

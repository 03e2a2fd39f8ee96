// Options hold for one run; nothing of them is saved.

#include "app/cli/run_options.h"

#include "app/options/options.h"

void gRunOptions::add_to(CLI::App & command) {
  command.add_option("--set", set, "Set an option of the project for this run alone")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false);
  command.add_flag("--overwrite", overwrite, "Empty an existing output folder without asking");
  command.add_option("--fail-on", fail_on, "Exit with 3 if a report of that severity was made")
      ->check(CLI::IsMember({"warning", "doc_error", "error"}));
  command.add_option("--suppress", suppress, "Numbers of reports that are left out")
      ->type_name("N,N...")
      ->delimiter(',')
      ->allow_extra_args(false);
  command.add_option("--reports", reports, "Write the reports of the run to a file, as JSON lines")
      ->type_name("FILE");
  command.add_flag("-q,--quiet", quiet, "No reports on standard error");
}

bool gRunOptions::apply(gCommandContext & context) const {
  for (std::string const & assignment : set) {
    if (!assign_option(assignment, context))
      return false;
  }
  std::string numbers = Vapp::option_string("msg/suppress");
  for (int number : suppress)
    numbers += (numbers.empty() ? "" : ",") + std::to_string(number);
  Vapp::options["msg"]["suppress"] = cat::make(numbers);
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

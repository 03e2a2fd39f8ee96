// The options that all commands with an analysis run share, and the run itself.
#pragma once

#include <string>
#include <vector>

#include "ana/ana_start.h"
#include "app/cli/commands.h"

struct gRunOptions {
  std::vector<std::string> set; // KEY=VALUE, for this run alone
  bool overwrite = false;
  std::string fail_on; // a severity; empty for none
  std::vector<int> suppress;
  std::string reports; // a file for them; empty for none
  bool quiet = false;

  void add_to(CLI::App & command);
  // Puts them into the loaded project; false, and a line on standard error, if one is refused.
  bool apply(gCommandContext & context) const;
  gOverwrite overwrite_policy() const;
  // True if reports up to that severity make the command fail.
  bool fails_on(Msg::type worst) const;
};

// Applies the options to the loaded project, runs the analysis and then the conversions to the
// targets ("htm", "rtf", "hlp") in their order. The exit status of the whole.
int run_project(gRunOptions const & options, std::vector<std::string> const & targets,
                gCommandContext & context);

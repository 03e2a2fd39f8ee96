// The options that all commands with an analysis run share, and the run itself.
#pragma once

#include <string>
#include <vector>

#include "ana/ana_start.h"
#include "app/cli/commands.h"

// Refuses an empty name.
CLI::Validator not_empty();

struct gRunOptions {
  std::vector<std::string> set; // KEY=VALUE, for this run alone
  std::string out;              // the output folder, from the current one; empty for the project's
  bool overwrite = false;
  std::string fail_on; // a severity; empty for none
  std::vector<int> suppress;
  std::string reports; // a file for them; empty for none
  bool quiet = false;
  bool no_cache = false;
  std::string facts;   // a folder with what other processes have read; empty for none
  std::string depfile; // a file for what the run goes by; empty for none
  int jobs = 0;        // threads; 0 for what the settings say

  void add_to(CLI::App & command);
  // Puts them into the loaded project; false, and a line on standard error, if one is refused.
  bool apply(gCommandContext & context) const;
  gOverwrite overwrite_policy() const;
  // The folder that `out` or another name given on the command line means.
  static gPathstring absolute(std::string const & name);
  // True if reports up to that severity make the command fail.
  bool fails_on(Msg::type worst) const;
};

// Applies the options to the loaded project, runs the analysis and then the conversions to the
// targets ("htm", "rtf", "hlp") in their order. The exit status of the whole.
int run_project(gRunOptions const & options, std::vector<std::string> const & targets,
                gCommandContext & context);

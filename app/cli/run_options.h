// The options that all commands with an analysis run share.
#pragma once

#include <string>
#include <vector>

#include "app/cli/commands.h"

struct gRunOptions {
  std::vector<std::string> set; // KEY=VALUE, for this run alone
  bool overwrite = false;
  std::string fail_on; // a severity; empty for none
  std::vector<int> suppress;
  bool quiet = false;

  void add_to(CLI::App & command);
};

// Applies the options to the loaded project and runs the analysis. The exit status of the whole.
int run_analysis(gRunOptions const & options, gCommandContext & context);

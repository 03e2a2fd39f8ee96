// What build and watch have in common.
#pragma once

#include "app/cli/run_options.h"
#include "app/cli/watch.h"

struct gBuildArguments {
  std::string project;
  std::vector<std::string> targets;
  gRunOptions run;
  gWatchOptions watch;

  void add_to(CLI::App & command);
};

// The exit status.
int build(gBuildArguments const & arguments, gCommandContext & context);

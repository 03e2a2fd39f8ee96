// Runs that come again whenever an input changes, and a server for what they make.
#pragma once

#include "app/cli/commands.h"
#include "app/cli/folder_watch.h"

struct gWatchOptions {
  bool watch = false;
  int port = 8484; // of the server, or any if another program has it

  void add_to(CLI::App & command, bool switchable);
};

// Until the user stops it. Each run is a process of its own, with the words of this command but for
// those of the watch, so that nothing that happens to it ends the watch. `places` are asked for
// after each run: a project may have changed. `result`: the folder of the pages.
int watch(gWatchOptions const & options, std::string const & result,
          std::function<gWatchedPlaces()> const & places, gCommandContext & context);

// The sources, the script and the project file of the loaded project.
gWatchedPlaces places_of_project();

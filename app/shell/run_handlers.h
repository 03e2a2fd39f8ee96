// Commands that start and stop an analysis.
#pragma once

#include <functional>
#include <memory>

#include "ana/ana_start.h"
#include "app/shell/cmenu_handler.h"

class gAnaStart : public cMenuHandlerBase {
public:
  // Waits for the worker, which uses this.
  ~gAnaStart() override;

  // Checks the project, empties the output folder and starts the run.
  int OnCommand() override;
  int OnUpdateCommand() override;

  // How to treat an output folder with something in it; a menu always asks.
  void set_overwrite(gOverwrite overwrite) { overwrite_ = overwrite; }
  // The folder of the last run, which is locked as long as this lives; null if the run didn't start
  // or release_folder() was called.
  gOutputFolder * folder() const { return folder_.get(); }
  // Whether the lock is given up at the end of the run; else it holds for conversions too.
  void set_keep_folder(bool keep) { keep_folder_ = keep; }
  // Whether the intermediate code tells converters what a project that says nothing about it keeps
  // to itself.
  void set_facts(bool facts) { facts_ = facts; }
  // A folder with what other processes have read, and the key of what they were asked.
  void set_read_ahead(gPathstring folder, std::string key) {
    read_ahead_ = {std::move(folder), std::move(key)};
  }
  // Called behind a run on the thread of the starter, with its success; another worker may be
  // started there.
  void set_finished(std::function<void(bool)> finished) { finished_ = std::move(finished); }

private:
  void end_folder();

  gOverwrite overwrite_ = gOverwrite::ask;
  bool keep_folder_ = false;
  bool facts_ = true;
  std::pair<gPathstring, std::string> read_ahead_;
  std::function<void(bool)> finished_;
  bool started_ = false; // a worker has known this
  std::unique_ptr<gOutputFolder> folder_;
};

// Stops a run.
class gAnaBreakHandler : public cMenuHandlerBase {
public:
  int OnCommand() override;
  int OnUpdateCommand() override;
};

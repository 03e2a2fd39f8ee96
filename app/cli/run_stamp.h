// A run that would find all as an earlier one has found it, and its results as that one has left
// them, needn't be done. What the earlier one has seen and said is kept with the user's caches.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/cli/kept_run.h"
#include "vlb/cache_folder.h"

// The place of a run's stamp: one for each output folder.
class gRunStamp {
public:
  // Of the project as it is loaded now, with the options that hold for this run alone.
  explicit gRunStamp(std::vector<std::string> const & targets);

  // The run that needn't be done again; nothing if there is none, or if another run is at work in
  // the folder.
  std::optional<gKeptRun> find() const;
  void keep(gKeptRun run) const;

  gPathstring const & out_dir() const { return out_dir_; }

private:
  gPathstring out_dir_;
  std::string key_;
  gCacheFolder cache_;
};

// Watches a run for its stamp, and hands its reports to one more taker as they come.
class gRunRecorder : public gReportSink {
public:
  // `next`: null for none. Nothing of the three is owned. Without `keeps` it only hands on, and
  // tells what was read.
  gRunRecorder(gRunStamp const & stamp, gCliOutside & outside, gReportSink * next, bool keeps);
  ~gRunRecorder() override;
  gRunRecorder(gRunRecorder const &) = delete;
  gRunRecorder & operator=(gRunRecorder const &) = delete;

  void take(gReport report) override;
  // A part of the run is done: the analysis, or the conversion to a target. Where what it has left
  // is touched from now on, the run isn't found again.
  void settle(std::string const & target = {});
  // All is done, and went well. The folder of the run is still locked.
  void keep(Msg::type worst);
  // What was read.
  std::set<std::string> files() const { return witness_.files(); }

private:
  gRunStamp const & stamp_;
  gCliOutside & outside_;
  gReportSink * next_;
  bool const keeps_;
  gWitness witness_;
  gKeptRun run_;
  std::size_t reports_ = 0; // all, those for which there was no room, too
};

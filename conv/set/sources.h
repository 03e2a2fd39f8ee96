// The sources that units come from: how they are called, and their text.
#pragma once

#include "conv/atc/document.h"
#include "vlb/greport.h"

class gSources {
public:
  explicit gSources(gDocument const & document);

  // A path without the folders that all sources have in common; of others the name alone.
  std::string_view shown(std::string_view path) const;
  // The bytes of a source, from any thread. False, after a report, if it can't be read or has
  // changed since the analysis, so that its lines are no longer those that were documented.
  bool read(std::string const & path, std::string & text, gReportSink & reports) const;

private:
  std::string common_; // the folder of all sources, with its separator
  gPathstring made_;   // the file of the analysis; what is newer has changed since
};

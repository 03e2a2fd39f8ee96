// The pictures that comments show, copied beside the pages once each.
#pragma once

#include <map>
#include <mutex>
#include <string>

#include "conv/conversion.h"

class gPictures {
public:
  explicit gPictures(gConversion & conversion) : conversion_(conversion) {}

  // Its address, seen from the folder of the pages; empty, after a report, if it can't be read.
  // From any thread.
  std::string href_of(std::string const & path);

private:
  gConversion & conversion_;
  std::mutex mutex_;
  std::map<std::string, std::string> hrefs_; // by paths
};

// A run and a conversion as values go in and come out. Both work on a copy of the options, so these
// may change meanwhile. Progress and reports go through the port of vlb/outside.h, from the
// worker's thread.
#pragma once

#include <functional>

#include "ana/ana_thread.h"
#include "conv/conversion.h"

// An analysis. At its end the options have the path of the intermediate code, Vapp::ana_success and
// Vapp::incomplete_files() tell how it went.
class gRun {
public:
  using Finished = std::function<void(gRunResult const &)>;
  // `behind` is called on the worker's thread, when the run is done but for its result; `finished`
  // on the thread of the starter.
  static void start(gRunInput input, std::function<void()> behind = {}, Finished finished = {});
  // Of the last run that has ended.
  static gRunResult const & last_result();
  // For a run that needn't be done: as if it had ended now.
  static void repeat(gRunResult const & result);
};

class gConversionRun {
public:
  using Converter = gConversionResult (*)(gConversionInput const &);
  using Finished = std::function<void(gConversionResult const &)>;
  static void start(gConversionInput input, Converter converter, Finished finished = {});
  // Of the last conversion that has ended.
  static gConversionResult const & last_result();
  static void repeat(gConversionResult const & result);
};

// The flags and the tree are written by the starter alone: in front of the work, and when its
// result is handed over.

#include "app/shell/run.h"

#include <memory>

#include "app/options/options.h"
#include "app/shell/worker.h"
#include "vlb/caught.h"

namespace {

gConversionResult & last_conversion() {
  static gConversionResult result;
  return result;
}

gRunResult & last_run() {
  static gRunResult result;
  return result;
}

// Nothing stands above a worker's work that could take a fault.
void call_guarded(std::function<void()> const & behind, gRunResult & result) {
  try {
    behind();
  } catch (...) {
    result.success = false;
    Vlb::report_caught();
  }
}

void store(gRunResult const & result) {
  last_run() = result;
  if (!result.atc_file.empty())
    Vapp::options["atc_file"] = cat::make(result.atc_file);
  Vapp::incomplete_files() = result.incomplete;
  Vapp::ana_success = result.success;
  Vapp::ana_active = false;
}

} // namespace

void gRun::start(gRunInput input, std::function<void()> behind, Finished finished) {
  Vapp::user_break = false;
  Vapp::ana_success = false;
  Vapp::incomplete_files().clear();
  Vapp::ana_active = true;
  auto const result = std::make_shared<gRunResult>();
  Shell::start_worker(
      {.work =
           [input = std::move(input), behind = std::move(behind), result]() mutable {
             *result = ana_thread(std::move(input));
             if (behind)
               call_guarded(behind, *result);
           },
       .finished =
           [finished = std::move(finished), result] {
             store(*result);
             if (finished)
               finished(*result);
           }});
}

void gRun::repeat(gRunResult const & result) {
  store(result);
}

gRunResult const & gRun::last_result() {
  return last_run();
}

void gConversionRun::start(gConversionInput input, Converter converter, Finished finished) {
  Vapp::user_break = false;
  Vapp::output_active = true;
  last_conversion() = {};
  Conv::open_log(input);
  auto const result = std::make_shared<gConversionResult>();
  Shell::start_worker(
      {.work = [input = std::move(input), converter, result] { *result = converter(input); },
       .finished =
           [finished = std::move(finished), result] {
             last_conversion() = *result;
             Vapp::output_active = false;
             if (finished)
               finished(*result);
           }});
}

void gConversionRun::repeat(gConversionResult const & result) {
  last_conversion() = result;
}

gConversionResult const & gConversionRun::last_result() {
  return last_conversion();
}

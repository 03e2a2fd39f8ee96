// The work is that of the commands of the menu, which start a worker thread. The main thread waits
// for it. The output folder stays locked until the last conversion is done.

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "app/cli/exit_status.h"
#include "app/cli/interrupts.h"
#include "app/cli/run_options.h"
#include "app/cli/run_stamp.h"
#include "app/options/options.h"
#include "app/shell/run.h"
#include "app/shell/run_handlers.h"
#include "app/shell/worker.h"
#include "store/greportfile.h"
#include "vlb/gmsghandler.h"

namespace {

char const * driver_of(std::string const & target) {
  return target == "htm" ? "gOutHTML" : target == "rtf" ? "gOutRTF" : "gOutHLP";
}

class Run {
public:
  // `recorder`: null for none.
  Run(gRunOptions const & options, gRunRecorder * recorder)
      : options_(options),
        recorder_(recorder) {
    start_.set_overwrite(options.overwrite_policy());
    start_.set_keep_folder(true);
    start_.set_facts(false);
  }

  int analyze() {
    if (!start_.OnUpdateCommand() || !start_.OnCommand() || !start_.folder())
      return exit_refused;
    wait();
    if (recorder_)
      recorder_->settle();
    return status_of(Vapp::ana_success);
  }

  // Goes on with the next target if one fails, but not if the user stops it.
  int convert(std::vector<std::string> const & targets) {
    int status = exit_ok;
    for (std::string const & target : targets) {
      status = std::max<int>(status, convert(target));
      if (status == exit_interrupted)
        break;
    }
    return status;
  }

  // Notes for later runs how this one went.
  void keep() {
    if (recorder_)
      recorder_->keep(worst_);
  }

  // Why it failed, in one line; empty if only refusals were told.
  std::string reason() const { return reason_; }
  Msg::type worst() const { return worst_; }

private:
  int convert(std::string const & target) {
    std::unique_ptr<cMenuHandlerBase> const driver = make_handler(driver_of(target));
    if (!driver->OnUpdateCommand() || !driver->OnCommand())
      return exit_failed;
    wait();
    start_.folder()->record_contents();
    if (recorder_)
      recorder_->settle(target);
    return status_of(gConversionRun::last_result().success);
  }

  void wait() {
    interrupts_.working();
    Shell::wait_for_worker();
    worst_ = std::max(worst_, Msg::log.worst());
    std::string const reason = Msg::log.last_error();
    if (!reason.empty())
      reason_ = reason;
  }

  int status_of(bool success) const {
    return success ? exit_ok : interrupts_.seen() ? exit_interrupted : exit_failed;
  }

  gRunOptions const & options_;
  gRunRecorder * const recorder_;
  gInterrupts interrupts_;
  gAnaStart start_;
  Msg::type worst_ = Msg::all;
  std::string reason_; // of the part that ran last
};

// The file of --reports.
class ReportCopy {
public:
  ReportCopy(std::string const & path, gCommandContext & context) : path_(path), context_(context) {
    if (!path.empty())
      good_ = file_.open(path) ||
              refuse(errno == EEXIST ? "It exists, and holds other things" : system_text(errno));
  }
  ReportCopy(ReportCopy const &) = delete;
  ReportCopy & operator=(ReportCopy const &) = delete;

  bool good() const { return good_; }
  // Who takes the reports; null if nobody asked for them.
  gReportSink * sink() { return path_.empty() ? nullptr : &file_; }
  bool close() { return path_.empty() || file_.close() || refuse(system_text(errno)); }

private:
  static std::string system_text(int error) { return std::generic_category().message(error); }
  bool refuse(std::string const & reason) {
    context_.outside.tell("Cannot write the reports to '" + path_ + "': " + reason);
    return false;
  }

  std::string path_;
  gCommandContext & context_;
  gReportFile file_;
  bool good_ = true;
};

// Nothing has changed since an earlier run: its answer is given again.
int repeat(gKeptRun const & kept, ReportCopy & copy, gCommandContext & context, Msg::type & worst) {
  gRun::repeat(kept.analysis);
  gConversionRun::repeat(kept.last);
  for (gShownLine const & line : kept.lines)
    context.outside.show(line);
  if (copy.sink())
    for (gReport const & report : kept.reports)
      copy.sink()->take(report);
  worst = kept.worst;
  context.outside.show({false, "Nothing has changed since the last run."});
  return exit_ok;
}

int run_all(gRunOptions const & options, std::vector<std::string> const & targets,
            gRunStamp const & stamp, ReportCopy & copy, gCommandContext & context,
            Msg::type & worst) {
  std::optional<gRunRecorder> recorder;
  if (!options.no_cache)
    recorder.emplace(stamp, context.outside, copy.sink());
  else
    Msg::log.copy_to(copy.sink());
  Run run(options, recorder ? &*recorder : nullptr);
  int status = run.analyze();
  if (status == exit_ok)
    status = run.convert(targets);
  if (status == exit_ok)
    run.keep();
  recorder.reset();
  Msg::log.copy_to(nullptr);
  worst = run.worst();
  // Without the reports the reason would be nowhere on the screen.
  if (status == exit_failed && options.quiet && !run.reason().empty())
    context.outside.tell(run.reason());
  return status;
}

} // namespace

int run_project(gRunOptions const & options, std::vector<std::string> const & targets,
                gCommandContext & context) {
  if (!options.apply(context))
    return exit_refused;
  if (!ana_check_project()) {
    context.outside.tell("'vellumar set' or --set changes inputfiles, vls_file and out_dir.");
    return exit_refused;
  }
  context.outside.set_quiet(options.quiet);
  // The converters are told what a run of the analysis alone keeps to itself.
  if (!targets.empty() && !Vapp::option({"ana", "facts_line"}))
    Vapp::options.submap("ana").set("facts_line", cat::make(true));
  gRunStamp const stamp(targets);
  std::optional<gKeptRun> const kept = options.no_cache ? std::nullopt : stamp.find();
  ReportCopy copy(options.reports, context);
  if (!copy.good())
    return exit_refused;
  Msg::type worst = Msg::all;
  int status = kept ? repeat(*kept, copy, context, worst)
                    : run_all(options, targets, stamp, copy, context, worst);
  if (!copy.close())
    status = std::max<int>(status, exit_failed);
  return status == exit_ok && options.fails_on(worst) ? exit_reports : status;
}

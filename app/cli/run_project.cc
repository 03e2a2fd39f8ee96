// The work is that of the commands of the menu, which start a worker thread. The main thread waits
// for it. The output folder stays locked until the last conversion is done.

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "app/cli/exit_status.h"
#include "app/cli/facts_key.h"
#include "app/cli/interrupts.h"
#include "app/cli/run_options.h"
#include "app/cli/run_stamp.h"
#include "app/options/options.h"
#include "app/shell/run.h"
#include "app/shell/run_handlers.h"
#include "app/shell/worker.h"
#include "store/greportfile.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"

namespace {

char const * driver_of(std::string const & target) {
  return target == "htm" ? "gOutHTML" : target == "rtf" ? "gOutRTF" : "gOutHLP";
}

class Run {
public:
  // `facts_key`: of facts that were read ahead, if the options name any.
  Run(gRunOptions const & options, std::string const & facts_key, gRunRecorder & recorder)
      : recorder_(recorder) {
    start_.set_overwrite(options.overwrite_policy());
    start_.set_keep_folder(true);
    start_.set_facts(false);
    if (!options.facts.empty())
      start_.set_read_ahead(gRunOptions::absolute(options.facts), facts_key);
  }

  int analyze() {
    if (!start_.OnUpdateCommand() || !start_.OnCommand() || !start_.folder())
      return exit_refused;
    wait();
    recorder_.settle();
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
    recorder_.settle(target);
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

  gRunRecorder & recorder_;
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

// As make and Ninja read it: the name without ".d" needs the files.
bool write_depfile(std::string const & name, std::set<std::string> const & files,
                   gCommandContext & context) {
  if (name.empty())
    return true;
  auto const add_escaped = [](std::string & text, std::string_view path) {
    for (char const c : path)
      (text += c == ' ' || c == '#' || c == '\\' ? "\\" : c == '$' ? "$" : "") += c;
  };
  std::string const target = name.ends_with(".d") ? name.substr(0, name.size() - 2) : name;
  std::string text;
  add_escaped(text, target);
  text += ':';
  for (std::string const & file : files)
    add_escaped(text += " \\\n  ", file);
  text += '\n';
  if (gFileSystem::write_file_atomic(gRunOptions::absolute(name), text))
    return true;
  context.outside.tell("Cannot write '" + name + "'");
  return false;
}

int run_all(gRunOptions const & options, std::vector<std::string> const & targets,
            gRunStamp const & stamp, ReportCopy & copy, gCommandContext & context,
            Msg::type & worst, std::set<std::string> & files) {
  std::string const facts_key = options.facts.empty() ? std::string() : key_of_reading();
  gRunRecorder recorder(stamp, context.outside, copy.sink(), !options.no_cache);
  Run run(options, facts_key, recorder);
  int status = run.analyze();
  if (status == exit_ok)
    status = run.convert(targets);
  worst = run.worst();
  if (status == exit_ok)
    recorder.keep(worst);
  files = recorder.files();
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
  std::set<std::string> files = kept ? gWitness::files(kept->sights) : std::set<std::string>();
  int status = kept ? repeat(*kept, copy, context, worst)
                    : run_all(options, targets, stamp, copy, context, worst, files);
  if (!copy.close() || (status == exit_ok && !write_depfile(options.depfile, files, context)))
    status = std::max<int>(status, exit_failed);
  return status == exit_ok && options.fails_on(worst) ? exit_reports : status;
}

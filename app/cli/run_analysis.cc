// The run takes place in a worker thread. The main thread waits for it and takes the signals: the
// first interrupt stops the run at its next item, a second one ends the process at once.

#include <csignal>
#include <thread>

#include <unistd.h>

#include "ana/ana_start.h"
#include "ana/ana_thread.h"
#include "app/cli/exit_status.h"
#include "app/cli/run_options.h"
#include "app/options/options.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"

namespace {

extern "C" void on_interrupt(int) {
  if (!Vapp::user_break.exchange(true))
    return;
  gFileSystem::end_temp_files();
  _exit(exit_interrupted);
}

extern "C" void on_terminate(int signal) {
  gFileSystem::end_temp_files();
  _exit(128 + signal);
}

// Signal handlers for the time of a run.
class SignalGuard {
public:
  SignalGuard() {
    set(SIGINT, on_interrupt, old_[0]);
    set(SIGTERM, on_terminate, old_[1]);
    set(SIGHUP, on_terminate, old_[2]);
  }
  ~SignalGuard() {
    sigaction(SIGINT, &old_[0], nullptr);
    sigaction(SIGTERM, &old_[1], nullptr);
    sigaction(SIGHUP, &old_[2], nullptr);
  }

private:
  static void set(int signal, void (*handler)(int), struct sigaction & old) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, &old);
    // A caller that ignores a signal, as nohup does, wants it ignored.
    if (old.sa_handler == SIG_IGN)
      sigaction(signal, &old, nullptr);
  }
  struct sigaction old_[3];
};

Msg::type severity(std::string const & name) {
  return name == "warning" ? Msg::warning : name == "doc_error" ? Msg::doc_error : Msg::error;
}

bool apply_settings(gRunOptions const & options, gCommandContext & context) {
  for (std::string const & assignment : options.set) {
    if (!assign_option(assignment, context))
      return false;
  }
  std::string numbers = Vapp::option_string("msg/suppress");
  for (int number : options.suppress)
    numbers += (numbers.empty() ? "" : ",") + std::to_string(number);
  Vapp::options["msg"]["suppress"] = cat::make(numbers);
  return true;
}

gOverwrite overwrite_policy(gRunOptions const & options) {
  return options.overwrite            ? gOverwrite::allow
         : gCliOutside::interactive() ? gOverwrite::ask_foreign
                                      : gOverwrite::refuse_foreign;
}

int outcome(gRunOptions const & options) {
  if (!Vapp::ana_success)
    return Vapp::user_break ? exit_interrupted : exit_failed;
  bool const reached = !options.fail_on.empty() && Msg::log.worst() >= severity(options.fail_on);
  return reached ? exit_reports : exit_ok;
}

} // namespace

void gRunOptions::add_to(CLI::App & command) {
  command.add_option("--set", set, "Set an option of the project for this run alone")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false);
  command.add_flag("--overwrite", overwrite, "Empty an existing output folder without asking");
  command.add_option("--fail-on", fail_on, "Exit with 3 if a report of that severity was made")
      ->check(CLI::IsMember({"warning", "doc_error", "error"}));
  command.add_option("--suppress", suppress, "Numbers of reports that are left out")
      ->type_name("N,N...")
      ->delimiter(',')
      ->allow_extra_args(false);
  command.add_flag("-q,--quiet", quiet, "No reports on standard error");
}

int run_analysis(gRunOptions const & options, gCommandContext & context) {
  if (!apply_settings(options, context))
    return exit_refused;
  if (!ana_check_project()) {
    context.outside.tell("'vellumar set' or --set changes inputfiles, vls_file and out_dir.");
    return exit_refused;
  }
  std::unique_ptr<gOutputFolder> const folder = ana_prepare_folder(overwrite_policy(options));
  if (!folder)
    return exit_refused;
  context.outside.set_quiet(options.quiet);
  Vapp::user_break = false;
  {
    SignalGuard const signals;
    std::thread(ana_thread).join();
  }
  folder->record_contents();
  return outcome(options);
}

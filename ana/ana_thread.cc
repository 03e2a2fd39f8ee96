// The frame of a run: state before and after it, the log, the two passes over the script. The
// stages happen inside the second pass, when the parser meets @document.

#include "ana/ana_thread.h"

#include "ana/anadat/tables.h"
#include "ana/modern_input.h"
#include "ana/parser/script/mdf_parse.h"
#include "ana/parser/script/mpre_scan.h"
#include "ana/progress.h"
#include "ana/stages.h"
#include "vlb/caught.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"
#include "vlb/outside.h"

namespace {

constexpr int scanner_size = 1024;

bool abort_script(gMessage const & message) {
  Msg::log(message);
  Msg::log(Msg::aborting);
  return false;
}

// Runs a pass over the script; a result other than 0 and a fatal error both end the run.
template <class Pass>
bool guarded(gPathstring const & script, gMessage const & failure, Pass pass) {
  try {
    return pass() == 0 || abort_script(failure);
  } catch (gExcFatalErr const &) {
    Vlb::report_caught(script);
    Msg::log(Msg::aborting);
    return false;
  }
}

bool preprocess_script(gPathstring const & script, gPathstring const & copy) {
  return guarded(script, Msg::preprocessing_failed, [&] {
    mpre_scan scanner(scanner_size);
    scanner.open_infile(gSrcFile(script, "", 0));
    scanner.open_outfile(gSrcFile(copy, script, 0));
    int const result = scanner.scan();
    if (scanner.close_outfile() == 0)
      return result;
    Msg::log(Msg::cannot_close, copy);
    return 1;
  });
}

bool parse_script(gPathstring const & script, gPathstring const & copy) {
  gStages stages;
  bool const parsed = guarded(script, Msg::script_failed, [&] {
    mdf_parse parser(stages);
    parser.set_input(gSrcFile(copy, script, 0));
    return parser.parse();
  });
  return parsed && !stages.failed();
}

bool run_project() {
  gPathstring script = gInput->script;
  script.normalize(true);
  return ana_run_script(script);
}

// What a run leaves open when it was broken off.
void clean_up() {
  Msg::log.close_logfile();
  gFileSystem::remove_temp_files();
  Global::objects().reset_all();
}

} // namespace

bool ana_open_log() {
  Msg::log.reset_suppressed();
  Msg::log.suppress(gInput->messages.suppressed);
  Msg::log.reset_counts();
  Msg::log.err_max = gInput->messages.err_max;
  Msg::log.minlvl_disp(Msg::all);
  Msg::log.minlvl_file(Msg::all);
  gPathstring path = gInput->out_dir;
  path.append("ana.log");
  bool const opened = Msg::log.open_logfile(path);
  // The head of the log stands there at every level.
  Msg::log(Msg::status) << std::endl;
  Msg::log.put_time();
  Msg::log(Msg::status) << std::endl;
  Msg::log.minlvl_disp(Msg::type(gInput->messages.lvl_disp));
  Msg::log.minlvl_file(Msg::type(gInput->messages.lvl_file));
  if (!opened)
    Msg::log(Msg::cannot_write, path);
  return opened;
}

bool ana_run_script(gPathstring const & script) {
  gStatusLine restore;
  bool const logged = ana_open_log();
  Msg::log.stage(gRunStage::script);
  Msg::log(Msg::analyzing_input);
  Msg::log(Msg::analyzing_script);
  Msg::log(Msg::status) << "  " << script << std::endl;
  gPathstring const copy = gFileSystem::get_temp_file_name("~vl");
  if (copy.empty())
    Msg::log(Msg::cannot_write, gFileSystem::temp_dir());
  bool const done = !copy.empty() && preprocess_script(script, copy) && parse_script(script, copy);
  if (!copy.empty() && !gFileSystem::remove(copy))
    Msg::log(Msg::cannot_remove, copy);
  bool const log_complete = Msg::log.close_logfile();
  if (logged && !log_complete)
    Msg::log(Msg::cannot_write, gPathstring(gInput->out_dir).append("ana.log"));
  return done && logged && log_complete;
}

gRunResult ana_thread(gRunInput input) {
  gStatusLine restore;
  gRunResult result;
  bool const modern = input.modern;
  try {
    ana_take_input(std::move(input));
    gFindings.reset();
    Msg::cur_errtaglist().reset();
    gCounters.units = 0;
    result.success = run_project();
  } catch (...) {
    Vlb::report_caught();
  }
  result.atc_file = gFindings.atc_file;
  result.incomplete = std::move(gFindings.incomplete);
  try {
    if (modern)
      result.read = ana_read_words(gFindings.declarations, gFindings.skipped.size());
  } catch (...) {
    Vlb::report_caught(); // memory may be short again
  }
  clean_up();
  return result;
}

// The loop that all stages over files share.
#pragma once

#include <list>

#include "ana/progress.h"
#include "app/options/options.h"
#include "vlb/gexception.h"
#include "vlb/gmsghandler.h"
#include "vlb/gsrcfile.h"
#include "vlb/messages.h"

// " (C/C++)", " (Pascal/Delphi)" or " (Text)", as the log shows it behind a path.
char const * language_label(gLanguage language);

inline void log_file(gSrcFile const & file, char const * label) {
  Msg::log(Msg::status) << "  " << file.opath() << label << std::endl;
}

// What a stage over files is called, in each of its places.
struct gFileStage {
  gMessage const & progress;
  gMessage const & failure; // a file that didn't go through
  gRunStage stage;
};

// The report of a fatal error in a file; where the place isn't known, the file is told.
inline gReport fatal_report(gExcFatalErr const & fault, gSrcFile const & file) {
  gReport report = fault.report();
  if (report.place.empty())
    report.place = file.opath();
  return report;
}

// Does `work` on one file; its reports are in the list then. A fatal error costs that file alone.
template <class Work>
void read_guarded(gSrcFile const & file, gFileStage const & stage, gReportList & reports,
                  Work work) {
  try {
    if (work(file, reports) == 0)
      return;
    reports(stage.failure);
  } catch (gExcFatalErr const & fault) {
    if (Msg::log.limit_reached())
      throw; // too many errors end the run, not the file
    reports.take(fatal_report(fault, file));
  }
  Vapp::incomplete_files().insert(file.opath());
  reports(Msg::next_file);
}

// Does `work` on each file, with a list for its reports. It answers 0 when the file went through;
// anything else reports the stage's failure. `label` gives the text behind the path in the log, or
// null for a file that the stage passes over.
template <class Label, class Work>
void file_loop(std::list<gSrcFile> const & files, gFileStage const & stage, Label label,
               Work work) {
  gProgress progress(stage.progress, files.size());
  for (gSrcFile const & file : files) {
    Vapp::poll_break();
    if (char const * text = label(file)) {
      log_file(file, text);
      gReportList reports(stage.stage, &Msg::log);
      read_guarded(file, stage, reports, work);
      reports.hand_on(Msg::log);
    }
    progress.step();
  }
}

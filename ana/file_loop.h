// The loop that all stages over files share.
#pragma once

#include "ana/anadat/gfilefacts.h"
#include "ana/anadat/input_table.h"
#include "ana/progress.h"
#include "app/options/run_flags.h"
#include "vlb/gexception.h"
#include "vlb/gmsghandler.h"
#include "vlb/gsrcfile.h"
#include "vlb/messages.h"
#include "vlb/ordered.h"

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
    if (work() == 0)
      return;
    reports(stage.failure);
  } catch (gExcFatalErr const & fault) {
    if (Msg::log.limit_reached())
      throw; // too many errors end the run, not the file
    reports.take(fatal_report(fault, file));
  }
  gFindings.incomplete.insert(file.opath());
  reports(Msg::next_file);
}

// The file of an item.
inline gSrcFile const & file_of(gSrcFile const & file) {
  return file;
}
inline gSrcFile const & file_of(gFileFacts const & facts) {
  return facts.file;
}

// The work of a stage on a file that has been read: hands its reports on, and answers as the loop
// wants it.
inline int finish_reading(gReportList & list, gReadEnd const & end, gReportSink & reports) {
  list.hand_on(reports);
  if (end.fatal)
    throw gExcFatalErr(*end.fatal->message, end.fatal->argument, end.fatal->place);
  return end.failed ? 1 : 0;
}

// Does `work` on each file, with a list for its reports. It answers 0 when the file went through;
// anything else reports the stage's failure. `label` gives the text behind the path in the log, or
// null for a file that the stage passes over.
template <class Files, class Label, class Work>
void file_loop(Files & files, gFileStage const & stage, Label label, Work work) {
  gProgress progress(stage.progress, files.size());
  for (auto & item : files) {
    Vapp::poll_break();
    if (char const * text = label(item)) {
      log_file(file_of(item), text);
      gReportList reports(stage.stage, &Msg::log);
      read_guarded(file_of(item), stage, reports, [&] { return work(item, reports); });
      reports.hand_on(Msg::log);
    }
    progress.step();
  }
}

// Does `read` for each file on the run's threads, and `work` with what it gave on this one, in the
// order of the files. `work` gets the item, a function that answers the result or raises what
// `read` has raised, and the list of reports; all else is as in file_loop().
template <class Result, class Files, class Label, class Read, class Work>
void read_files(Files & files, gFileStage const & stage, Label label, Read read, Work work) {
  using Item = std::remove_reference_t<decltype(*files.begin())>;
  std::vector<Item *> wanted;
  for (Item & item : files)
    if (label(item))
      wanted.push_back(&item);
  Vlb::gOrdered<Result> results(Vlb::thread_count(gInput->jobs), wanted.size(),
                                [&](unsigned worker, std::size_t i) {
                                  Vapp::poll_break();
                                  return read(worker, *wanted[i]);
                                });
  file_loop(files, stage, label, [&](Item & item, gReportSink & reports) {
    return work(
        item, [&results] { return results.next(); }, reports);
  });
}

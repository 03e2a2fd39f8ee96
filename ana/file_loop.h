// The loop that all stages over files share.
#pragma once

#include <list>

#include "ana/anadat/input_table.h"
#include "ana/progress.h"
#include "app/options/run_flags.h"
#include "vlb/gexception.h"
#include "vlb/gmsghandler.h"
#include "vlb/gsrcfile.h"
#include "vlb/messages.h"

// " (C/C++)", " (Pascal/Delphi)" or " (Text)", as the log shows it behind a path.
char const * language_label(gLanguage language);

inline void log_file(gSrcFile const & file, char const * label) {
  Msg::log(Msg::status) << "  " << file.opath() << label << std::endl;
}

// Does `work` on each file. It answers 0 when the file went through; anything else reports
// `failure`, and a fatal error its own text. Both cost that file alone. `label` gives the text
// behind the path in the log, or null for a file that the stage passes over.
template <class Label, class Work>
void file_loop(std::list<gSrcFile> const & files, gMessage const & stage, gMessage const & failure,
               Label label, Work work) {
  gProgress progress(stage, files.size());
  for (gSrcFile const & file : files) {
    Vapp::poll_break();
    if (char const * text = label(file)) {
      log_file(file, text);
      try {
        if (work(file) != 0) {
          gFindings.incomplete.insert(file.opath());
          Msg::log(failure);
          Msg::log(Msg::next_file);
        }
      } catch (gExcFatalErr const & fault) {
        if (Msg::log.limit_reached())
          throw; // too many errors end the run, not the file
        gFindings.incomplete.insert(file.opath());
        Msg::log() << fault.text() << std::endl;
        Msg::log(Msg::next_file);
      }
    }
    progress.step();
  }
}

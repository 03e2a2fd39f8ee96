// Reads gSrcFiles. Fills gTmpFiles and gInputFiles.
// Each source becomes a temporary file, line for line parallel to it, with its comments marked.

#include <cerrno>
#include <system_error>

#include "ana/anadat/tables.h"
#include "ana/file_loop.h"
#include "ana/foreign.h"
#include "ana/parser/pre/cpre_scan.h"
#include "ana/parser/pre/ppre_scan.h"
#include "ana/stages.h"
#include "vlb/gfilesystem.h"
#include "vlb/parse/output_file.h"
#include "vlb/source_bytes.h"

namespace {

constexpr int scanner_size = 1024;

class Preprocessor {
public:
  // 0 if the file went through, as for every scanner.
  int run(gSrcFile const & file, gReportSink & reports);
  bool write_failed() const { return write_failed_; }

private:
  int mark_comments(gPreScanBase & scanner, gSrcFile const & file, gSrcFile const & copy);
  void wrap_text(gSrcFile const & file, gSrcFile const & copy);
  bool write_copy(gSrcFile const & copy, std::initializer_list<std::string_view> parts);
  bool adopt(gSrcFile const & copy);
  void give_up(gMessage const & message, gPathstring const & path);
  void give_up_writing(gMessage const & message, gPathstring const & path);

  cpre_scan cpp_{scanner_size};
  ppre_scan pascal_{scanner_size};
  gReportSink * reports_ = nullptr; // of the file in hand
  int number_ = 0;
  bool write_failed_ = false;
  bool foreign_tags_ = gInput->comments.foreign;
};

// Reports a fault in the environment; the next file is taken.
void Preprocessor::give_up(gMessage const & message, gPathstring const & path) {
  (*reports_)(message, path);
  (*reports_)(Msg::next_file);
}

// A full disk stops every file behind the first; it is told once, with the reason.
void Preprocessor::give_up_writing(gMessage const & message, gPathstring const & path) {
  std::string const reason = std::generic_category().message(errno);
  if (!std::exchange(write_failed_, true))
    (*reports_)(message, path + ": " + reason);
}

int Preprocessor::run(gSrcFile const & file, gReportSink & reports) {
  reports_ = &reports;
  gPathstring const path = gFileSystem::get_temp_file_name("~vl");
  ++number_;
  if (path.empty()) {
    give_up_writing(Msg::cannot_write, gFileSystem::temp_dir());
    return 0;
  }
  gTmpFiles.push_back(path);
  gSrcFile const copy(path, file.opath(), number_);
  switch (file.language()) {
  case gLanguage::cpp:
    return mark_comments(cpp_, file, copy);
  case gLanguage::pascal:
    return mark_comments(pascal_, file, copy);
  case gLanguage::text:
    wrap_text(file, copy);
  }
  return 0;
}

int Preprocessor::mark_comments(gPreScanBase & scanner, gSrcFile const & file,
                                gSrcFile const & copy) {
  scanner.reset();
  scanner.report_to(*reports_);
  if (scanner.close_infile() != 0)
    scanner.error(Msg::cannot_close, scanner.cur_infile().opath());
  scanner.open_infile(file);
  // A file that broke off in the middle may have left its copy open; that copy is of no use.
  scanner.close_outfile();
  scanner.open_outfile(copy);
  if (int const result = scanner.scan())
    return result;
  if (scanner.close_outfile() != 0) {
    give_up_writing(Msg::cannot_write, copy.path());
    return 0;
  }
  if (!foreign_tags_ || adopt(copy))
    gInputFiles.push_back(copy);
  return 0;
}

// Comments in the mark-up of other systems become text units.
bool Preprocessor::adopt(gSrcFile const & copy) {
  std::string text;
  if (gFileSystem::read_file(copy.path(), text))
    return write_copy(copy, {adopt_comments(text, copy.language())});
  give_up(Msg::cannot_read, copy.path());
  return false;
}

bool Preprocessor::write_copy(gSrcFile const & copy,
                              std::initializer_list<std::string_view> parts) {
  gOutputFile out;
  bool const opened = out.open(copy.path());
  for (std::string_view part : parts)
    out.put(part);
  if (opened && out.close())
    return true;
  give_up_writing(Msg::cannot_write, copy.path());
  return false;
}

// A text file is one single comment.
void Preprocessor::wrap_text(gSrcFile const & file, gSrcFile const & copy) {
  std::string text;
  if (!Vlb::read_source(file.path(), text)) {
    give_up(Msg::cannot_read, file.path());
    return;
  }
  if (write_copy(copy, {"@_vlbcom ", text, "@_vlecom\n"}))
    gInputFiles.push_back(copy);
}

} // namespace

char const * language_label(gLanguage language) {
  switch (language) {
  case gLanguage::cpp:
    return " (C/C++)";
  case gLanguage::pascal:
    return " (Pascal/Delphi)";
  case gLanguage::text:
    break;
  }
  return " (Text)";
}

bool ana_preprocess(std::list<gSrcFile> const & files) {
  Msg::log(Msg::preprocessing);
  Preprocessor preprocessor;
  file_loop(
      files, {Msg::preprocessing, Msg::preprocessing_failed, gRunStage::preprocess},
      [](gSrcFile const & file) { return language_label(file.language()); },
      [&](gSrcFile const & file, gReportSink & reports) {
        return preprocessor.run(file, reports);
      });
  return !preprocessor.write_failed();
}

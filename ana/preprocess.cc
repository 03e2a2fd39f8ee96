// Reads gSrcFiles. Fills gTmpFiles and gInputFiles.
// Each source becomes a temporary file, line for line parallel to it, with its comments marked.

#include <fstream>

#include "ana/anadat/tables.h"
#include "ana/file_loop.h"
#include "ana/parser/cpre_scan.h"
#include "ana/stages.h"
#include "vlb/gfilesystem.h"

namespace {

constexpr int scanner_size = 1024;

class Preprocessor {
public:
  // 0 if the file went through, as for every scanner.
  int run(gSrcFile const & file);
  bool write_failed() const { return write_failed_; }

private:
  int mark_comments(gSrcFile const & file, gSrcFile const & copy);
  void wrap_text(gSrcFile const & file, gSrcFile const & copy);
  void give_up(gMessage const & message, gPathstring const & path);

  cpre_scan cpp_{scanner_size};
  int number_ = 0;
  bool write_failed_ = false;
};

// Reports a fault in the environment; the next file is taken.
void Preprocessor::give_up(gMessage const & message, gPathstring const & path) {
  Msg::log(Msg::error, message, path);
  Msg::log(Msg::err_hint, Msg::next_file);
}

int Preprocessor::run(gSrcFile const & file) {
  gPathstring const path = gFileSystem::get_temp_file_name("~vl");
  ++number_;
  if (path.empty()) {
    write_failed_ = true;
    give_up(Msg::cannot_write, gFileSystem::temp_dir());
    return 0;
  }
  gTmpFiles.push_back(path);
  gSrcFile const copy(path, file.opath(), number_);
  switch (file.language()) {
  case gLanguage::cpp:
    return mark_comments(file, copy);
  case gLanguage::pascal:
    return 1; // there is no reader for this language yet
  case gLanguage::text:
    wrap_text(file, copy);
  }
  return 0;
}

int Preprocessor::mark_comments(gSrcFile const & file, gSrcFile const & copy) {
  cpp_.reset();
  if (cpp_.close_infile() != 0)
    cpp_.error(Msg::error, Msg::cannot_close, cpp_.cur_infile().opath());
  cpp_.open_infile(file);
  // A file that broke off in the middle may have left its copy open; that copy is of no use.
  cpp_.close_outfile();
  cpp_.open_outfile(copy);
  if (int const result = cpp_.scan())
    return result;
  if (cpp_.close_outfile() != 0) {
    write_failed_ = true;
    give_up(Msg::cannot_close, copy.path());
    return 0;
  }
  gInputFiles.push_back(copy);
  return 0;
}

// A text file is one single comment.
void Preprocessor::wrap_text(gSrcFile const & file, gSrcFile const & copy) {
  std::string text;
  if (!gFileSystem::read_file(file.path(), text)) {
    give_up(Msg::cannot_read, file.path());
    return;
  }
  if (text.starts_with("\xEF\xBB\xBF"))
    text.erase(0, 3);
  std::ofstream out(copy.path(), std::ios::binary | std::ios::trunc);
  out << "@_vlbcom " << text << "@_vlecom\n";
  out.close();
  if (!out) {
    write_failed_ = true;
    give_up(Msg::cannot_write, copy.path());
    return;
  }
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
  Msg::log(Msg::status, Msg::preprocessing);
  Preprocessor preprocessor;
  file_loop(
      files, Msg::preprocessing, Msg::preprocessing_failed,
      [](gSrcFile const & file) { return language_label(file.language()); },
      [&](gSrcFile const & file) { return preprocessor.run(file); });
  return !preprocessor.write_failed();
}

// An input file, and a position in it.
#pragma once

#include "vlb/gpathstring.h"

// The languages of a source, told by its extension.
enum class gLanguage { cpp = 0, pascal = 1, text = 2 };

// What every scanner, parser and position refers to: the file that is read and the file that the
// user knows. A value that is cheap to copy: the copies share one constant record.
class gSrcFile {
public:
  // No file: empty paths, plain text.
  gSrcFile() = default;
  // `path`: the file as it is read. `opath`: the user's file if `path` is a temporary copy, else
  // empty. `number`: running number of an input file, 0 for others.
  gSrcFile(gPathstring const & path, gPathstring const & opath, int number);
  // A file that is part of another: its language is that one's, whatever its extension.
  gSrcFile(gPathstring const & path, gSrcFile const & by);

  gPathstring const & path() const { return record().path; }
  // The name of the file as the user gave it: the second path or, without one, the path.
  gPathstring const & opath() const {
    Record const & one = record();
    return one.opath.empty() ? one.path : one.opath;
  }
  int number() const { return record().number; }
  gLanguage language() const { return record().language; }
  // The qualifier between a scope and a member: "::" in C/C++, "." in Pascal.
  gString const & name_sep() const;
  // The language as a word for messages.
  gString type_string() const;

  // By the user's path without regard to case; paths that differ in case alone are two files, in
  // byte order. (The names of temporary copies are random, so they never decide an order.)
  bool operator<(gSrcFile const & other) const;

  // The extensions of the languages, as lists like "c; cpp; h". They hold for files made from
  // then on.
  static void set_cpp_ext(gString const & list);
  static void set_pas_ext(gString const & list);

private:
  struct Record : cShared {
    gPathstring path, opath;
    int number = 0;
    gLanguage language = gLanguage::text;
  };
  Record const & record() const { return record_ ? *record_ : no_record(); }
  static Record const & no_record();
  cRef<Record const> record_; // null for no file
};

// A line of a file; lines count from 1, 0 stands for the file as a whole.
class gLoc {
public:
  gLoc() = default;
  // A negative line raises gExcInternalErr.
  gLoc(gSrcFile const & file, int line);

  gSrcFile const & file() const { return file_; }
  int line() const { return line_; }
  // "path:line" with the user's path.
  gString make_string() const;

private:
  gSrcFile file_;
  int line_ = 0;
};

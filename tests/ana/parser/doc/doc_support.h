// A small vocabulary of units and subentries, and readers that print what the scanner and the
// parser make of a text.
#pragma once

#include <string>

#include "ana/read/read_file.h"
#include "support/test_outside.h"

// Fills the options and keywords that the text units need, and leaves all tables empty behind it.
class DocWorld {
public:
  DocWorld();
  ~DocWorld();

  // A source for the tests: the first lines of `input` may be "%pascal", which makes it one, and
  // "%off KEY", which switches an option of the analysis off. Both are cut off.
  gSrcFile prepare(std::string & input);

  TestOutside outside;
};

// A marked comment as one: "/*" stands for the mark of its beginning and "*/" for that of its end.
std::string marked(std::string text);

// All tokens in one line, then the reports.
std::string tokens_of(std::string input);
// Reads the text of a file by itself; passes its reports and a fatal error on.
gFileFacts read_text(gFileReader & reader, gSrcFile const & file, std::string_view text);
// The tables after a parse of the text, then the reports.
std::string units_of(std::string input);

// Pieces with "|" between them, line feeds as "\n".
std::string show(gStrList const & pieces);

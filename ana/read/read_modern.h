// The modern dialect: one look at a source gives its declarations, its comments, and which of them
// belong together.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "ana/anadat/gfilefacts.h"
#include "ana/anadat/input_table.h"
#include "ana/comments/translate.h"
#include "ana/decl/readers.h"
#include "ana/parser/doc/doc_parse.h"
#include "ana/read/example_files.h"

// What the reading of all files has in common.
struct gModernInput {
  Decl::gMacroTable macros; // of all inputs
  // The keywords that begin a comment in own mark-up, with the type of unit that each opens.
  std::map<std::string, gString, std::less<>> unit_words;
  gCommentOptions comments;
  gExampleFiles examples, pictures;
};

// A file that a Pascal source takes in, to be read as if it stood there; or that a class of C++
// takes in, whose declarations are its members.
struct gIncludeRequest {
  std::string name; // as written
  gSrcFile by;      // who includes it
  gStrList scope;   // names around the place
  Decl::gPascalContext context;
};

// A word of comments that means nothing here: a command that nobody knows, a file that isn't there.
struct gUnknownWord {
  std::string word; // a command with its first character
  std::size_t count = 0;
  int line = 0; // of the comment that has it first
};

struct gModernFile {
  gFileFacts facts;
  std::vector<gIncludeRequest> includes;
  std::size_t declarations = 0; // found
  std::vector<gSkippedLines> skipped;
  std::vector<gUnknownWord> unknown; // commands, each once
  std::vector<gUnknownWord> missing; // files that comments show, the same
  bool shows_files = false;          // so that what it says depends on more than its own text
};

// Reads sources one after the other; a thread has a reader of its own.
class gModernReader {
public:
  // Input and templates have to outlive the reader.
  gModernReader(gModernInput const & input, gTableTemplates const & tables)
      : input_(input),
        tables_(tables) {}

  // `text`: the whole file, UTF-8 with line feeds. What it says depends on file, text and input
  // alone. `scope` and `context` are those of the place that includes it.
  gModernFile read(gSrcFile const & file, std::string_view text, gStrList const & scope = {},
                   Decl::gPascalContext const & context = {});
  // A file of text: all of it is one comment in own mark-up.
  gModernFile read_comment(gSrcFile const & file, std::string const & text);

private:
  class File;
  // A unit without text, with numbers counted from its own, and how many of each it takes.
  struct PlainUnit {
    gUnitFacts unit;
    int units = 0, labels = 0;
  };
  gModernInput const & input_;
  gTableTemplates const & tables_;
  doc_parse doc_{gParseBase::standard_stack_size};
  std::optional<PlainUnit> plain_unit_; // made at first need
};

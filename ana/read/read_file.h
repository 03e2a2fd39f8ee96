// From one file to its facts.
#pragma once

#include "ana/anadat/gfilefacts.h"
#include "ana/anadat/table_template.h"
#include "ana/parser/cpp/cpp_parse.h"
#include "ana/parser/doc/doc_parse.h"
#include "ana/parser/pascal/pas_parse.h"

// What the readers need to know beside the file. Nothing changes it while files are read.
struct gReadInput {
  gTableTemplates tables; // of the script
};

// Reads marked copies of sources, one after the other; a thread has a reader of its own. Faults of
// a file, fatal ones too, end up in its facts; only a stop by the user passes through. What is read
// depends on the file and the input alone.
class gFileReader {
public:
  // The input has to outlive the reader.
  explicit gFileReader(gReadInput const & input) : input_(input) {}

  // Reads all of a file from the bytes of its copy.
  gFileFacts read_file(gSrcFile const & file, std::string_view bytes);

  // Reads one part of facts.file: from `bytes` or, if they are null, from the file itself. The
  // other part stays as it is. Names that are taken are refused as if they stood twice in the file.
  void read_text(gFileFacts & facts, gTakenNames const & taken = {},
                 std::string_view const * bytes = nullptr);
  // Needs the lines of the text units. Files without program code have none of it.
  void read_code(gFileFacts & facts, std::string_view const * bytes = nullptr);

private:
  gReadInput const & input_;
  doc_parse doc_{gParseBase::standard_stack_size};
  cpp_parse cpp_{gParseBase::standard_stack_size};
  pas_parse pascal_{gParseBase::standard_stack_size};
};

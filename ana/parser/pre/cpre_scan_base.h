// The C/C++ comment preprocessor: writes a source again with its comments marked, without
// directives and without branches that start with #else or #elif, line for line parallel.
#pragma once

#include "ana/parser/pre/cpp_macros.h"
#include "ana/parser/pre/pre_scan_base.h"

class cpre_scan_base : public gPreScanBase {
public:
  explicit cpre_scan_base(int size);

  void reset() override;
  void load_options() override;

  enum Condition {
    CODE = 0,           // in code
    MACROARGS = 2,      // directly in front of the argument list of a known macro
    CMT_TEXT = 4,       // in a comment line, behind the frame at its head
    CMT_LINEHEAD = 6,   // at the head of a comment line: is the whole line decoration?
    CMT_FRAMESKIP = 8,  // at the head of a comment line, removing frame characters
    CMT_FRAMETAIL = 10, // in a run of frame characters that may be the line's tail
    CMT_AFTER = 12,     // behind a comment's end, with close_text_ held back
    SKIP_BRANCH = 14,   // in an #else or #elif branch
    DIRECTIVE = 16,     // on a directive's line
    PLAIN_CODE = 18,    // as CODE, where no macro is known
    TAIL_ELSE = 20,     // on the rest of an #else or #elif line
    TAIL_ENDIF = 22,    // on the rest of the #endif line that ends a branch
  };

  // What the rules call. Code, directives and branches:
  int drop() { return scan_go_on; }
  int plain_code();
  int drop_and_enter(int condition);
  int continue_directive();
  int end_directive();
  int end_tail();

  // Macros:
  int macro_call();
  int macro_name();
  int macro_arguments();

  // Comments:
  int open_comment(bool line_comment, std::string_view opener);
  int open_star_comment();
  int open_slash_comment();
  int block_end();
  int line_end();
  int next_comment();
  int after_comment();

private:
  // The condition of code that suits the macros of the project.
  int code() const { return macros_.empty() ? PLAIN_CODE : CODE; }

  gCppMacroTable macros_;
  bool line_comment_ = false; // the comment being read is a // comment
  int macro_action_ = 0;      // of the macro whose argument list is being read
};

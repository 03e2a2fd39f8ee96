// The Pascal comment preprocessor: writes a source again with its comments marked, line for line
// parallel. Directives are comments to it.
#pragma once

#include "ana/parser/pre/pre_scan_base.h"

class ppre_scan_base : public gPreScanBase {
public:
  explicit ppre_scan_base(int size);

  void reset() override;
  void load_options() override;

  enum Condition {
    CODE = 0,          // in code
    CMT_TEXT = 2,      // in a comment line, behind the frame at its head
    CMT_LINEHEAD = 4,  // at the head of a comment line: is the whole line decoration?
    CMT_FRAMESKIP = 6, // at the head of a comment line, removing frame characters
    CMT_FRAMETAIL = 8, // in a run of frame characters that may be the line's tail
    CMT_AFTER = 10,    // behind a comment's end, with close_text_ held back
  };
  enum Delimiter { PAREN, BRACE, LINE }; // (* *), { }, // to the end of the line

  // What the rules call. In code:
  int open_comment(Delimiter delimiter, std::string_view mark);
  int open_star_comment();
  int open_slash_comment();

  // Delimiters inside a comment, and at the head of a line, where they are held back and counted
  // on trial:
  int inner_opener(Delimiter delimiter);
  int inner_closer(Delimiter delimiter);
  int held_opener(Delimiter delimiter);
  int held_closer(Delimiter delimiter);
  int line_end();

  // Behind a comment:
  int next_comment(Delimiter delimiter);
  int next_line();
  int after_comment();

protected:
  void give_head_back() override;

private:
  // What is open in a comment.
  struct Nesting {
    int paren_depth = 0;
    int brace_depth = 0;
    bool in_line_comment = false;

    void enter(Delimiter delimiter);
    void leave(Delimiter delimiter);
    bool is_over() const { return paren_depth == 0 && brace_depth == 0 && !in_line_comment; }
  };
  int begin_comment(Delimiter delimiter);
  int begin_line();

  Nesting nesting_;
  Nesting head_; // at the head of the comment line, which may be read twice
};

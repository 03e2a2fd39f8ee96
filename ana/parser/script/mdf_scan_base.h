// State of the script's scanner, and what its rules do.
#pragma once

#include "ana/parser/script/mdf_tokens.h"
#include "vlb/parse/scan_base.h"

class mdf_scan_base : public gScanBase {
public:
  enum Condition {
    INITIAL = 0,     // definitions and commands
    REFS = 2,        // a list of references between double quote marks
    PARAM = 4,       // behind a command or a parameter: whether more parameters follow
    ATTR = 6,        // between < and >
    CODE = 8,        // code text between quote marks
    TEXT_PARAM = 10, // between { and }
    XE = 12,         // an index entry
  };

  explicit mdf_scan_base(int size);
  void reset() override;
  mdf_value & token_value() { return token_value_; }

  // Operations of the rules; most answer a token.
  int text_token(gString text);
  int enter(int condition, int token);
  // Enters a condition that ends by going back to the present level: 0 for commands, 1 for text.
  int call(int level, int condition, int token);
  // Goes back to the level that the parameters, the index entry or the quotes began in.
  void end_call();
  // The end of code text or references, which stand within a text only.
  int end_quotes(int token);
  // An escaped bracket ends the parameters and is read as text or a character of its own.
  int escaped_bracket();
  // A bare word where definitions and commands stand.
  int word();
  // A word with "@" inside a text.
  int text_command();
  int variable();
  int code_piece();
  // One blank; the first line break in a script is reported.
  int line_break(gMessage const & warning);
  int line_directive();

private:
  void go_to_level(int level);

  bool warn_line_break_ = true; // reported once for all files that this scanner reads
  std::vector<int> levels_;
  mdf_value token_value_;
};

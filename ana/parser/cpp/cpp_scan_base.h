// The C/C++ scanner: reads the marked copy of a source, keeps its comments out of the tokens and
// records where they stand.
#pragma once

#include "ana/anadat/gfilefacts.h"
#include "ana/parser/cpp/cpp_tokens.h"
#include "ana/parser/cpp/cpp_value.h"
#include "ana/parser/pre/cpp_macros.h"
#include "vlb/parse/scan_base.h"

class cpp_scan_base : public gScanBase {
public:
  explicit cpp_scan_base(int size) : gScanBase(size) {}

  void reset() override;

  // Where the places of comments go; null for nowhere.
  void record_comments(std::vector<gCommentFacts> * comments) { comments_ = comments; }
  // The value of the last token; the parser moves it away.
  cpp_value & token_value() { return value_; }

  // What the parser is about to skip: the brackets of one kind, or everything up to a comma, a
  // semicolon or a closing brace.
  enum class Skip { braces, parens, brackets, angles, initial_value };
  // While the parser skips, white space is a token, "(" is always a plain "(", and the text of the
  // source without comments is that of the tokens, one behind the other. Tokens have no value then.
  // With no macro known, long stretches are one token (PIECE).
  void begin_collect(Skip skip);
  void end_collect();

  enum Condition {
    CODE = 0,       // in code
    COMMENT = 2,    // in a marked comment
    MACROARGS = 4,  // in front of the argument list of a known macro
    PLAIN_CODE = 6, // as CODE, where no macro is known
    // Skipping where no macro is known.
    SKIP_BRACES = 8,
    SKIP_PARENS = 10,
    SKIP_BRACKETS = 12,
    SKIP_ANGLES = 14,
    SKIP_VALUE = 16,
  };

  // What the rules call.
  int token_with_text(int token);
  int character() const { return static_cast<unsigned char>(token().front()); }
  int white_space() const { return collect_ ? int(BLANKS) : scan_go_on; }
  int pointer_paren() const { return collect_ ? '(' : int(PTR_PAREN); }
  int scope_name();
  int identifier();
  int piece();
  int macro_call();
  int macro_name(int otherwise);
  int macro_arguments();
  int begin_comment();
  int end_comment();

private:
  int code() const { return macros_.empty() ? PLAIN_CODE : CODE; }
  int classify(int otherwise);
  int macro_token(int code, gString && text);

  cpp_value value_;
  bool collect_ = false;
  gCppMacroTable macros_;
  int macro_code_ = 0; // of the macro whose argument list is being read
  gString macro_name_;
  int comment_line_ = 0;  // where the comment being skipped began
  int after_comment_ = 0; // the condition that it interrupted
  std::vector<gCommentFacts> * comments_ = nullptr;
};

// The Pascal scanner: reads the marked copy of a source, keeps its comments out of the tokens and
// records where they stand.
#pragma once

#include "ana/anadat/gfilefacts.h"
#include "ana/parser/pascal/pas_tokens.h"
#include "ana/parser/pascal/pas_value.h"
#include "vlb/parse/scan_base.h"

class pas_scan_base : public gScanBase {
public:
  explicit pas_scan_base(int size) : gScanBase(size) {}

  void reset() override;

  // Where the places of comments go; null for nowhere.
  void record_comments(std::vector<gCommentFacts> * comments) { comments_ = comments; }
  // The value of the last token; the parser moves it away.
  pas_value & token_value() { return value_; }

  // While the parser skips, the text of the source without comments is that of the tokens, one
  // behind the other. Tokens have no value then, and what no skip stops or counts at is a PIECE.
  void begin_collect() { begin(SKIP); }
  void end_collect() { begin(CODE); }

  enum Condition {
    CODE = 0,    // in declarations
    COMMENT = 2, // in a marked comment
    SKIP = 4,    // in what the parser skips
  };

  // What the rules call.
  int token_with_text(int token);
  int character() const { return static_cast<unsigned char>(token().front()); }
  int word();
  int begin_comment();
  int end_comment();

private:
  pas_value value_;
  gString lower_word_;
  int comment_line_ = 0;  // where the comment being skipped began
  int after_comment_ = 0; // the condition that it interrupted
  std::vector<gCommentFacts> * comments_ = nullptr;
};

// What the rules of the Pascal scanner do.
#include "ana/parser/pascal/pas_scan_base.h"

#include "ana/cmdpar/keywords.h"

void pas_scan_base::reset() {
  gScanBase::reset();
  value_ = pas_value();
  comment_line_ = 0;
  comments_ = nullptr;
  begin(CODE);
}

int pas_scan_base::token_with_text(int token) {
  value_.set(gString(this->token()));
  return token;
}

int pas_scan_base::word() {
  lower_word_.assign(token());
  lower_word_.tolower();
  int const * keyword = gPasKeywords.lookup(lower_word_);
  return keyword ? *keyword : token_with_text(Pas::IDENTIFIER);
}

int pas_scan_base::begin_comment() {
  comment_line_ = line();
  after_comment_ = condition();
  begin(COMMENT);
  return scan_go_on;
}

int pas_scan_base::end_comment() {
  begin(after_comment_);
  if (comments_)
    comments_->push_back({{comment_line_}, line()});
  return scan_go_on;
}

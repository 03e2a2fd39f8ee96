// The state of one file's parse, and the joining of text.
#include "ana/parser/doc/doc_parse_base.h"

void doc_parse_base::reset() {
  gTextParseBase::reset();
  scanner_.reset();
  cur_unit_ = nullptr;
  for (List * list : {&enum_, &num_}) {
    list->style.clear();
    list->is_new = true;
  }
  text_pending_ = false;
  cite_name_.clear();
  cite_line_ = 0;
  table_ = {};
}

gStrList doc_parse_base::joined(gStrList & text, gStrList & more) {
  text.append(std::move(more));
  return std::move(text);
}

gStrList doc_parse_base::joined_text(gStrList & text, Doc::Text & more) {
  text.push_back(std::move(more));
  take_texts([&](Doc::Text & next) { text.push_back(std::move(next)); });
  return std::move(text);
}

// The state of one file's parse, and the joining of text.
#include "ana/parser/doc/doc_parse_base.h"

void doc_parse_base::reset() {
  gTextParseBase::reset();
  scanner_.reset();
  cur_unit_ = {};
  for (List * list : {&enum_, &num_}) {
    list->style.clear();
    list->is_new = true;
  }
  text_pending_ = false;
  cite_name_.clear();
  cite_line_ = 0;
  table_ = {};
}

void doc_parse_base::read_into(gTextFacts & facts, gTakenNames const & taken,
                               gTableTemplates const & tables) {
  facts_ = &facts;
  table_templates_ = &tables;
  bookmarks_ = {taken.bookmarks.begin(), taken.bookmarks.end()};
  citations_ = {taken.citations.begin(), taken.citations.end()};
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

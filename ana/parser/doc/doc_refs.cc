// Bookmarks, which references may point at, and citations of the source.
#include "ana/anadat/pieces.h"
#include "ana/parser/doc/doc_parse_base.h"

namespace {

// A letter, then letters, digits and "_", 35 characters at most.
bool is_bookmark_name(gString const & name) {
  if (name.size() > 35 || !Vlb::is_letter(name[0]))
    return false;
  for (char c : name)
    if (!Vlb::is_word(c))
      return false;
  return true;
}

} // namespace

gStrList doc_parse_base::bookmark(gString const & command, gString const & kind,
                                  gParamList & params) {
  if (!check_params(command, params))
    return {};
  gString name = params.word(0);
  if (name.empty()) {
    error(Msg::empty_identifier);
    return {};
  }
  if (!is_bookmark_name(name)) {
    error(Msg::invalid_bookmark, name);
    return {};
  }
  name.toupper();
  if (!bookmarks_.insert(name).second) {
    error(Msg::repeated_bookmark, name);
    return {};
  }
  facts_->bookmarks.push_back(name);
  gStrList pieces(Vlb::placeholder(gPiece::bookmark));
  pieces.push_back(std::move(name));
  pieces.push_back(piece(kind));
  return pieces;
}

gStrList doc_parse_base::help_alias(gParamList & params) {
  if (!check_params("hidalias", params))
    return {};
  gString name = params.word(0);
  name.toupper();
  if (name.empty()) {
    error(Msg::empty_identifier);
    return {};
  }
  gStrList pieces(Vlb::placeholder(gPiece::alias));
  pieces.push_back(std::move(name));
  return pieces;
}

void doc_parse_base::begin_citation(gParamList & params) {
  if (check_params("b_cite", params))
    cite_name_ = params.word(0);
  else
    cite_line_ = 0;
}

// The line of @e_cite itself is left out.
void doc_parse_base::end_citation() {
  if (cite_line_ == 0) {
    error(Msg::no_citation_open);
    return;
  }
  if (citations_.insert(cite_name_).second)
    facts_->citations.push_back({cite_name_, cite_line_, cur_line() - 1});
  else
    error(Msg::repeated_citation, cite_name_);
  cite_line_ = 0;
}

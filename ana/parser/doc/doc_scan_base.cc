// Comments: what lies outside them, where they begin and end, and what in them is free text. Most
// of a source is code, and most comments hold no unit.
#include "ana/parser/doc/doc_scan_base.h"

#include "ana/anadat/input_table.h"
#include "vlb/messages.h"

using namespace Doc;

namespace {

// What stands for a keyword in comments with a special opener.
Keyword marked_keyword(cRef<gUnitPattern> const & pattern) {
  static gKwd const row = [] {
    gKwd row;
    row.name = "@_vlukwd";
    row.kind = gKwd::synt_unit;
    return row;
  }();
  return pattern ? Keyword{&row, pattern.get()} : Keyword();
}

} // namespace

doc_scan_base::doc_scan_base(int size) : gScanBase(size), blank_(make_ref<gString>(" ")) {
  shield_quotes(true);
}

void doc_scan_base::reset() {
  auto_num_ = gInput->text.auto_num;
  auto_enum_ = gInput->text.auto_enum;
  start_on_par_ = gInput->text.start_on_par;
  translated_ = false;
  in_table_ = at_entry_ = verbatim_ = in_subject_ = false;
  warn_linebreak_ = true;
  subject_lines_ = angle_depth_ = 0;
  keyword_line_ = 1;
  return_stack_.clear();
  unit_type_.clear();
  cur_pattern_ = nullptr;
  value_ = Value();
  pool_.clear();
  blank_ = make_ref<gString>(" ");
  index_keywords();
  star_keyword_ = marked_keyword(gUEKeywords.star_pattern());
  slash_keyword_ = marked_keyword(gUEKeywords.slash_pattern());
  gScanBase::reset();
}

void doc_scan_base::read_translated() {
  auto_num_ = auto_enum_ = start_on_par_ = false;
  translated_ = true;
}

int doc_scan_base::leave_for(int condition) {
  begin(condition);
  back();
  return scan_go_on;
}

int doc_scan_base::begin_comment() {
  begin(FIRST);
  return BCOM;
}

// The pattern takes more than the word, so that no longer match of another rule comes first.
int doc_scan_base::end_comment() {
  cut_to(static_cast<int>(token().find("@_vlecom") + std::string_view("@_vlecom").size()));
  begin(OUTSIDE);
  in_subject_ = false;
  return ECOM;
}

int doc_scan_base::begin_citation() {
  push(Return::free);
  begin(PARAMS);
  return B_CITE;
}

int doc_scan_base::end_citation() {
  begin(FREE);
  return E_CITE;
}

// The first words of nearly every comment come here. If no keyword begins like them, none of the
// shorter matches can be one, and the comment is free.
int doc_scan_base::first_words(bool with_separator) {
  if (!may_be_keyword(token(), units))
    return leave_for(FREE);
  return keyword_or_reject(units, with_separator);
}

int doc_scan_base::marked_comment(Keyword const & keyword) {
  if (keyword)
    return open_unit(keyword);
  begin(FREE);
  return scan_go_on;
}

int doc_scan_base::unknown_keyword() {
  error(Msg::not_a_unit_keyword, value());
  begin(FREE);
  return scan_go_on;
}

// Words behind an empty line. An "@" behind them is never taken: it may begin a keyword or end the
// comment.
int doc_scan_base::free_paragraph(bool with_separator) {
  std::size_t const first = token().find_first_not_of(" \t\n");
  if (start_on_par_ && may_be_keyword(token().substr(first), units))
    return keyword_or_reject(units, with_separator);
  if (with_separator && token().back() == '@')
    cut_to(length() - 1);
  return scan_go_on;
}

// A run of empty lines keeps its last two line feeds for the words behind them. If there are too
// many blanks for that, it goes as it is.
int doc_scan_base::free_empty_lines() {
  std::size_t const last = token().rfind('\n');
  std::size_t const before = last ? token().rfind('\n', last - 1) : 0;
  if (before != 0 && before != std::string_view::npos)
    cut_to(static_cast<int>(before));
  return scan_go_on;
}

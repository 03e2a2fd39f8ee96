// Behind the keyword of a unit: its identifier, or the declaration that names it, up to the subject
// line or the text.
#include "ana/parser/doc/doc_scan_base.h"
#include "vlb/messages.h"

using namespace Doc;

namespace {

void remove_space(gString & text) {
  std::erase_if(text, [](char c) { return Vlb::is_space(c); });
}

} // namespace

int doc_scan_base::begin_subject() {
  begin(BODY);
  in_subject_ = true;
  subject_lines_ = 1;
  return SUBJECT_BEGIN;
}

int doc_scan_base::begin_text() {
  begin(BODY);
  return max_subject_lines() < 1 ? int(scan_go_on) : begin_subject();
}

bool doc_scan_base::in_slsep(char c) const {
  return cur_pattern_ && cur_pattern_->slsep.find(c) != gString::npos;
}

int doc_scan_base::choose_identifier() {
  back();
  switch (cur_pattern_ ? cur_pattern_->idspec : gUnitPattern::none) {
  case gUnitPattern::unqualified:
    begin(IDENT);
    return scan_go_on;
  case gUnitPattern::complex:
    begin(DECL);
    return scan_go_on;
  default:
    return begin_text();
  }
}

int doc_scan_base::plain_identifier() {
  begin(AFTERID);
  value_.set(value());
  return PLAIN_ID;
}

int doc_scan_base::missing_identifier() {
  error(Msg::missing_identifier);
  error(Msg::treating_as_unnamed);
  return leave_for(AFTERID);
}

int doc_scan_base::behind_identifier() {
  if (max_subject_lines() < 1 || !in_slsep(token().back()))
    back();
  return begin_text();
}

int doc_scan_base::head_keyword_or_reject(gLanguage language, Token token) {
  return cur_infile().language() == language ? int(token) : scan_reject;
}

int doc_scan_base::head_identifier(std::string_view text) {
  value_.set(gString(text));
  return ID;
}

int doc_scan_base::operator_symbol() {
  gString name = value();
  remove_space(name);
  value_.set(std::move(name));
  return ID;
}

// One blank between words; brackets at the end belong to the last one.
int doc_scan_base::operator_words(std::string_view brackets) {
  gString name = value();
  bool const has_brackets = name.ends_with(brackets[1]);
  if (has_brackets)
    name.resize(name.rfind(brackets[0]));
  name.wsp_norm();
  if (has_brackets)
    name += brackets;
  value_.set(std::move(name));
  return ID;
}

int doc_scan_base::head_separator_or_reject() {
  return in_slsep(token()[0]) ? begin_subject() : scan_reject;
}

int doc_scan_base::head_line_end() {
  return !cur_pattern_ || cur_pattern_->slsep.empty() ? begin_text() : scan_go_on;
}

int doc_scan_base::begin_template() {
  begin(TEMPLATE);
  angle_depth_ = 1;
  return scan_go_on;
}

int doc_scan_base::template_bracket(int step) {
  angle_depth_ += step;
  if (angle_depth_ > 0)
    return scan_go_on;
  begin(DECL);
  return TEMPLATE_END;
}

int doc_scan_base::bases_separator_or_reject() {
  if (!in_slsep(token()[0]))
    return scan_reject;
  leave_for(DECL);
  return HEAD_END;
}

int doc_scan_base::bases_line_end() {
  if (cur_pattern_ && !cur_pattern_->slsep.empty())
    return scan_go_on;
  leave_for(DECL);
  return HEAD_END;
}

int doc_scan_base::text_unit_name() {
  begin(BODY);
  value_.set(value().wsp_norm());
  return ID;
}

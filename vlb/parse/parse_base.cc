// The report of a token that the grammar has no place for.
#include "vlb/parse/parse_base.h"

#include "vlb/messages.h"

void gParseBase::report_syntax_error(std::string_view name) const {
  constexpr std::size_t shown_length = 20;
  gString text = lookahead_ == 0 ? gString() : scanner().value();
  if (text.size() > shown_length) {
    text.resize(shown_length);
    text += "...";
  }
  gString shown = "#" + std::to_string(lookahead_) + " \"" + text + "\"";
  if (text.wsp_only() && !name.empty()) {
    shown += " (";
    shown += name;
    shown += ')';
  }
  error(Msg::syntax_error, shown);
}

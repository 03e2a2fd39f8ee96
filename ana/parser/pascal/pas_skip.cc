// Stretches of source that the grammar doesn't look into: statements, values and bounds.
#include <algorithm>

#include "ana/parser/pascal/pas_parse_base.h"
#include "vlb/gexception.h"
#include "vlb/messages.h"

// Collect mode, which falls back when a skip throws too.
class pas_parse_base::Collecting {
public:
  explicit Collecting(pas_scan & scanner) : scanner_(scanner) { scanner_.begin_collect(); }
  ~Collecting() { scanner_.end_collect(); }
  Collecting(Collecting const &) = delete;
  Collecting & operator=(Collecting const &) = delete;

private:
  pas_scan & scanner_;
};

namespace {

gString normalised(gString & text) {
  text.wsp_norm();
  return std::move(text);
}

} // namespace

// A look-ahead that the parser holds comes first: its text is still the scanner's.
int pas_parse_base::next_skipped() {
  int token = lookahead();
  if (token == no_token)
    token = scanner_.scan();
  clearin();
  if (token == 0)
    throw gExcFatalErr(Msg::unexpected_end, "", scanner_.place());
  return token;
}

gString pas_parse_base::skip_balanced(char open, char close) {
  Collecting const collecting(scanner_);
  gString text;
  for (int depth = 1; depth > 0;) {
    int const token = next_skipped();
    text += scanner_.token();
    depth += (token == open) - (token == close);
  }
  return normalised(text);
}

// Records and assembler blocks don't count, so one inside another takes its "end".
template <class Use> void pas_parse_base::each_of_block(Use use) {
  Collecting const collecting(scanner_);
  for (int depth = 1; depth > 0;) {
    int const token = next_skipped();
    use(scanner_.token());
    depth += token == Pas::KW_BEGIN || token == Pas::KW_CASE || token == Pas::KW_TRY;
    depth -= token == Pas::KW_END;
  }
}

gString pas_parse_base::skip_block() {
  gString text;
  each_of_block([&](std::string_view token) { text += token; });
  return normalised(text);
}

void pas_parse_base::drop_block() {
  each_of_block([](std::string_view) {});
}

gString pas_parse_base::skip_until(Tokens set) {
  Collecting const collecting(scanner_);
  for (gString text;;) {
    int const token = next_skipped();
    if (std::find(set.begin(), set.end(), token) != set.end()) {
      set_lookahead(token);
      return text;
    }
    text += scanner_.token();
  }
}

gString pas_parse_base::text_until_end(gString const & head) {
  gString text = skip_until({';'});
  return head + normalised(text);
}

gString pas_parse_base::skip_until_outside(int stopper) {
  Collecting const collecting(scanner_);
  int depth = 0;
  for (gString text;;) {
    int const token = next_skipped();
    if (token == stopper && depth == 0) {
      set_lookahead(token);
      return normalised(text);
    }
    text += scanner_.token();
    if (token == '(')
      ++depth;
    else if (token == ')' && depth > 0)
      --depth;
  }
}

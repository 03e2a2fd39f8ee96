// Stretches of source that the grammar doesn't look into: they end where their brackets are closed.
#include "ana/parser/cpp/cpp_parse_base.h"
#include "vlb/gexception.h"
#include "vlb/messages.h"

// Collect mode, which falls back when a skip throws too.
class cpp_parse_base::Collecting {
public:
  Collecting(cpp_scan & scanner, cpp_scan::Skip skip) : scanner_(scanner) {
    scanner_.begin_collect(skip);
  }
  ~Collecting() { scanner_.end_collect(); }
  Collecting(Collecting const &) = delete;
  Collecting & operator=(Collecting const &) = delete;

private:
  cpp_scan & scanner_;
};

namespace {

cpp_scan::Skip skip_of(char open) {
  switch (open) {
  case '(':
    return cpp_scan::Skip::parens;
  case '[':
    return cpp_scan::Skip::brackets;
  case '<':
    return cpp_scan::Skip::angles;
  default:
    return cpp_scan::Skip::braces;
  }
}

// The depth in each kind of bracket; a closing one too many doesn't count.
class Depths {
public:
  bool outside() const { return parens_ == 0 && brackets_ == 0 && braces_ == 0; }
  void count(int token) {
    switch (token) {
    case '(':
      ++parens_;
      break;
    case '[':
      ++brackets_;
      break;
    case '{':
      ++braces_;
      break;
    case ')':
      lower(parens_);
      break;
    case ']':
      lower(brackets_);
      break;
    case '}':
      lower(braces_);
      break;
    }
  }

private:
  static void lower(int & depth) { depth -= depth > 0; }
  int parens_ = 0, brackets_ = 0, braces_ = 0;
};

} // namespace

// A look-ahead that the parser holds comes first: its text is still the scanner's.
int cpp_parse_base::next_skipped() {
  int token = lookahead();
  if (token == no_token)
    token = scanner_.scan();
  clearin();
  if (token == 0)
    throw gExcFatalErr(Msg::unexpected_end, "", scanner_.place());
  return token == PTR_PAREN ? '(' : token;
}

gString cpp_parse_base::skip_balanced(char open, char close) {
  Collecting const collecting(scanner_, skip_of(open));
  gString text;
  for (int depth = 1; depth > 0;) {
    int const token = next_skipped();
    text += scanner_.token();
    if (token == open)
      ++depth;
    else if (token == close)
      --depth;
  }
  return text;
}

void cpp_parse_base::skip_body() {
  Collecting const collecting(scanner_, cpp_scan::Skip::braces);
  for (int depth = 1; depth > 0;) {
    int const token = next_skipped();
    depth += (token == '{') - (token == '}');
  }
}

gString cpp_parse_base::skip_until(std::string_view set) {
  Collecting const collecting(scanner_, cpp_scan::Skip::initial_value);
  Depths depths;
  for (gString text;;) {
    int const token = next_skipped();
    bool const single = token < 256;
    if (single && depths.outside() && set.find(static_cast<char>(token)) != set.npos) {
      set_lookahead(token);
      return text;
    }
    text += scanner_.token();
    depths.count(token);
  }
}

gString cpp_parse_base::skipped(char open, char close) {
  gString text = skip_balanced(open, close);
  text.wsp_norm();
  return text;
}

gString cpp_parse_base::value_until(std::string_view set) {
  gString text = skip_until(set);
  text.wsp_norm();
  return text;
}

#include "ana/parser/pre/cpre_naive.h"

#include <algorithm>
#include <regex>
#include <utility>
#include <vector>

namespace {

enum State { code, macro_args, text, line_head, frame_skip, frame_tail, after, skip, directive };

struct Naive {
  std::string const & in;
  NaiveOptions const & options;
  std::size_t at = 0;
  std::string out{}, close{}, frame{};
  State condition = code;
  char previous = '\n';
  bool line_comment = false, keep_args = false;

  std::string run() {
    while (at < in.size())
      step();
    return out + close + frame;
  }
  void step();

  // What actions do; they answer false for reject.
  bool drop(std::string const & token, State next) {
    condition = next;
    at += token.size();
    previous = in[at - 1];
    return true;
  }
  bool echo(std::string const & token, State next) {
    out += token;
    return drop(token, next);
  }
  bool hold(std::string const & token, State next) {
    frame += token;
    return drop(token, next);
  }
  bool open(std::string const & token, bool is_line_comment, std::string const & mark) {
    line_comment = is_line_comment;
    out += mark;
    return drop(token, line_head);
  }
  bool in_frame(std::string const & token) const { return options.frame.find(token) != token.npos; }
  bool in_line(std::string const & token) const { return options.line.find(token) != token.npos; }
};

using N = Naive;
using T = std::string const;

struct Rule {
  std::vector<State> conditions;
  bool at_line_head;
  char const * pattern;
  std::size_t context; // length of what the pattern looks at behind the match
  bool (*act)(N &, T &);
};

#define ESCAPE R"re(\\(?:['"?\\abfnrtv]|[0-7]{1,3}|x[0-9A-Fa-f]+))re"
#define REST_OF_LINE R"re((?:[^\n\\]|\\\n|\\)*)re"

template <State next> bool drop(N & n, T & t) {
  return n.drop(t, next);
}
template <State next> bool echo(N & n, T & t) {
  return n.echo(t, next);
}
template <State next> bool drop_but_line(N & n, T & t) {
  n.out += '\n';
  return n.drop(t, next);
}
bool hold(N & n, T & t) {
  return n.hold(t, n.condition);
}
bool word(N & n, T & t) {
  return n.options.macros && t == "GONE" ? n.drop(t, code) : n.echo(t, code);
}
bool open_stars(N & n, T & t) {
  return n.open(t, false, n.options.star ? "@_vlbcom @_vlukwd " : "@_vlbcom ");
}
bool open_slashes(N & n, T & t) {
  return n.open(t, true, n.options.slash ? "@_vlbcom  @_vlukwd " : "@_vlbcom ");
}
bool open_plain(N & n, T & t) {
  return n.open(t, t == "//", "@_vlbcom ");
}
bool open_again(N & n, T & t) {
  return n.open(t, t.back() == '/', t.substr(0, t.size() - 2) + "  ");
}
bool text_character(N & n, T & t) {
  return n.in_frame(t) ? n.hold(t, frame_tail) : n.echo(t, text);
}
bool skip_character(N & n, T & t) {
  if (!n.in_frame(t))
    return n.echo(t, text);
  n.out += ' ';
  return n.drop(t, frame_skip);
}
bool close_block(N & n, T & t) {
  if (n.line_comment)
    return false;
  n.frame.clear();
  n.close = "@_vlecom ";
  return n.drop(t, after);
}
bool end_line(N & n, T & t) {
  n.frame.clear();
  if (!n.line_comment)
    return n.echo(t, line_head);
  n.close = "@_vlecom ";
  n.condition = after;
  return true;
}
bool line_head_character(N & n, T & t) {
  n.hold(t, line_head);
  if (!n.in_line(t)) {
    n.at -= std::exchange(n.frame, "").size();
    n.condition = frame_skip;
  }
  return true;
}
bool tail_character(N & n, T & t) {
  n.hold(t, n.in_frame(t) ? frame_tail : text);
  if (n.condition == text)
    n.out += std::exchange(n.frame, "");
  return true;
}
bool macro_call(N & n, T & t) {
  n.keep_args = t == "ARGS";
  return n.options.macros && (t == "CALL" || n.keep_args) && n.drop(t, macro_args);
}
bool macro_arguments(N & n, T & t) {
  if (n.keep_args)
    n.out += t.substr(1, t.size() - 2);
  return n.drop(t, code);
}
bool not_followed(N & n, T &) {
  n.out += std::exchange(n.close, "");
  n.condition = code;
  return true;
}

std::vector<State> const comment = {text, line_head, frame_skip, frame_tail};
Rule const rules[] = {
    {{code}, true, "[ \t]*#[ \t]*el(?:if|se)" REST_OF_LINE, 0, drop<skip>},
    {{code}, true, "[ \t]*#", 0, drop<directive>},
    {{directive}, false, R"(\\\n)", 0, drop_but_line<directive>},
    {{directive}, false, "[^\n]", 0, drop<directive>},
    {{directive}, false, "\n", 0, echo<code>},
    {{skip}, true, "[ \t]*#endif" REST_OF_LINE, 0, drop<code>},
    {{skip}, false, "[^\n]", 0, drop<skip>},
    {{skip}, false, "\n", 0, echo<skip>},
    {{code}, false, R"re(L?'(?:[^'\\\n]|)re" ESCAPE ")*'", 0, echo<code>},
    {{code}, false, R"re(L?"(?:[^"\\\n]|)re" ESCAPE ")*\"", 0, echo<code>},
    {{code}, false, R"re([A-Za-z_][A-Za-z_0-9]*(?=\())re", 1, macro_call},
    {{code}, false, "[A-Za-z_][A-Za-z_0-9]*", 0, word},
    {{macro_args}, false, R"re(\([^)]*\))re", 0, macro_arguments},
    {{code}, false, R"re(/\*\*(?=[ \t\n]))re", 1, open_stars},
    {{code}, false, R"(/\*)", 0, open_plain},
    {{code}, false, R"re(///(?=[ \t\n]))re", 1, open_slashes},
    {{code}, false, "//", 0, open_plain},
    {{code}, false, "[^]", 0, echo<code>},
    {comment, false, R"([ \t]*\*/)", 0, close_block},
    {comment, false, "[ \t]*\n", 0, end_line},
    {{text}, false, "[^]", 0, text_character},
    {{line_head, frame_tail}, false, "[ \t]+", 0, hold},
    {{line_head}, false, "[^]", 0, line_head_character},
    {{frame_skip}, false, "[ \t]+", 0, echo<frame_skip>},
    {{frame_skip}, false, "[^]", 0, skip_character},
    {{frame_tail}, false, "[^]", 0, tail_character},
    {{after}, false, R"([ \t]*\n?[ \t]*/[*/])", 0, open_again},
    {{after}, false, "[^]", 0, not_followed},
};

std::regex const & compiled(std::size_t rule) {
  static std::vector<std::regex> const all = [] {
    std::vector<std::regex> patterns;
    for (Rule const & one : rules)
      patterns.emplace_back(one.pattern);
    return patterns;
  }();
  return all[rule];
}

// The length that a rule takes with its context; 0 if it doesn't match.
std::size_t match(Naive const & n, std::size_t rule) {
  Rule const & one = rules[rule];
  bool const holds = std::count(one.conditions.begin(), one.conditions.end(), n.condition) > 0;
  std::smatch found;
  if (!holds || (one.at_line_head && n.previous != '\n') ||
      !std::regex_search(n.in.begin() + static_cast<std::ptrdiff_t>(n.at), n.in.end(), found,
                         compiled(rule), std::regex_constants::match_continuous))
    return 0;
  return static_cast<std::size_t>(found.length()) + one.context;
}

void Naive::step() {
  std::vector<bool> rejected(std::size(rules));
  for (;;) {
    std::size_t best = 0, best_length = 0;
    for (std::size_t rule = 0; rule < std::size(rules); ++rule)
      if (std::size_t const length = rejected[rule] ? 0 : match(*this, rule);
          length > best_length) {
        best = rule;
        best_length = length;
      }
    if (best_length == 0) {
      drop(in.substr(at, 1), condition);
      return;
    }
    if (rules[best].act(*this, in.substr(at, best_length - rules[best].context)))
      return;
    rejected[best] = true;
  }
}

} // namespace

std::string naive_preprocess(std::string const & source, NaiveOptions const & options) {
  return Naive{.in = source, .options = options}.run();
}

// The Pascal comment preprocessor read character by character: slow, and free of everything that
// makes the real one fast.
#pragma once

#include <string>
#include <utility>

struct NaiveOptions {
  bool star = false, slash = false;
  std::string frame = "/*|", line = "*-+=";
};

struct Naive {
  std::string const & in;
  NaiveOptions const & options;
  std::size_t at = 0;
  std::string out{}, close{}, frame{};
  enum { code, text, head, skip, tail, after } condition = code;
  struct Open {
    int paren = 0, brace = 0;
    bool line = false;
    bool none() const { return !paren && !brace && !line; }
  } open{}, head_open{};

  std::string run() {
    while (at < in.size())
      string() || opener() || closer() || line_end() || character();
    return out + close + frame;
  }
  static bool has(std::string const & set, char c) { return set.find(c) != set.npos; }
  bool sees(char const * word, std::size_t place) const {
    return place < in.size() && in.compare(place, std::string(word).size(), word) == 0;
  }
  std::size_t behind_blanks(std::size_t place) const { return in.find_first_not_of(" \t", place); }
  bool in_comment() const { return condition != code && condition != after; }
  std::string taken(std::size_t end) {
    std::size_t const begin = std::exchange(at, end);
    return in.substr(begin, end - begin);
  }
  bool finish() {
    condition = after;
    close = "@_vlecom ";
    frame.clear();
    return true;
  }

  bool string() {
    std::size_t const end = in.find_first_of("'\n", at + 1);
    if (condition == head || condition == after || in[at] != '\'' || !sees("'", end))
      return false;
    out += taken(end + 1);
    return true;
  }
  bool opener() {
    bool const paren = sees("(*", at), line = sees("//", at), brace = in[at] == '{';
    if (!paren && !line && !brace)
      return false;
    bool const special = (sees("(**", at) || sees("///", at)) && has(" \t\n", in[at + 3]);
    bool const in_line = in_comment();
    std::string const word = taken(at + (special && condition == code ? 3 : brace ? 1 : 2));
    if (in_line)
      (condition == head ? frame : out) += condition == head || brace ? word : "  ";
    else if (condition == after)
      out += std::exchange(frame, "") + std::string(word.size(), ' ');
    else if (special && (paren ? options.star : options.slash))
      out += paren ? "@_vlbcom @_vlukwd " : "@_vlbcom  @_vlukwd ";
    else
      out += "@_vlbcom ";
    open = {open.paren + paren, open.brace + brace, line || (open.line && in_line)};
    if (!in_line) {
      head_open = open;
      condition = head;
    }
    return true;
  }
  bool closer() {
    std::size_t const place = condition == head ? at : behind_blanks(at);
    bool const paren = sees("*)", place);
    if (!in_comment() || (!paren && !sees("}", place)))
      return false;
    at = place + (paren ? 2 : 1);
    int & depth = paren ? open.paren : open.brace;
    depth -= depth > 0;
    if (open.none())
      return finish();
    (condition == head ? frame : out) += !paren ? "}" : condition == head ? "*)" : "  ";
    return true;
  }
  bool line_end() {
    std::size_t const end = behind_blanks(at);
    if (!in_comment() || !sees("\n", end))
      return false;
    open.line = false;
    if (open.none())
      return finish();
    frame.clear();
    head_open = open;
    condition = head;
    out += taken(end + 1);
    return true;
  }
  bool character() {
    char const c = in[at];
    bool const blank = has(" \t", c), in_frame = has(options.frame, c);
    if (condition == after) {
      if (!blank && (c != '\n' || sees("\n", behind_blanks(at + 1)))) {
        out += std::exchange(close, "") + std::exchange(frame, "");
        condition = code;
      } else {
        frame += taken(at + 1);
      }
      return true;
    }
    ++at;
    if (condition == head) {
      frame += c;
      if (blank || has(options.line, c))
        return true;
      at -= std::exchange(frame, "").size();
      open = head_open;
      condition = skip;
    } else if ((condition == tail && (blank || in_frame)) || (condition == text && in_frame)) {
      frame += c;
      condition = tail;
    } else if (condition == skip && (blank || in_frame)) {
      out += blank ? c : ' ';
    } else {
      out += (condition == tail ? std::exchange(frame, "") : "") + c;
      condition = condition == code ? code : text;
    }
    return true;
  }
};

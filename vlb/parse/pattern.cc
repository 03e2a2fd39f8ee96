// A descent over the grammar of patterns, with one function for each level of binding.
#include "vlb/parse/pattern.h"

#include <cstring>

#include "vlb/gexception.h"

namespace {

constexpr int nesting_limit = 100; // also ends definitions that name themselves
constexpr int count_limit = 255;   // counted parts are copied, so large counts make huge automata

// No pattern matches NUL: it ends the text for the walk.
gByteSet without_nul(gByteSet bytes) {
  bytes.reset(0);
  return bytes;
}

int hex_digit(char c) {
  char const * digits = "0123456789abcdef";
  char const lower = c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c;
  char const * at = c ? std::strchr(digits, lower) : nullptr;
  return at ? static_cast<int>(at - digits) : -1;
}

class Reader {
public:
  Reader(gPattern & pattern, std::string_view text, std::span<gScanDefinition const> definitions,
         int depth = 0)
      : pattern_(pattern),
        whole_(text),
        text_(text),
        definitions_(definitions),
        depth_(depth) {}

  void rule() {
    pattern_.run = taken("\\R");
    pattern_.line_head = taken("^");
    check(!at('/')); // a token can't be empty
    pattern_.head = choice();
    if (taken("/"))
      pattern_.tail = choice();
    check(text_.empty());
  }

  int definition() {
    int const node = choice();
    check(text_.empty());
    return node;
  }

private:
  void check(bool good) const {
    if (!good)
      throw gExcInternalErr("Malformed pattern: ", gString(whole_), "");
  }
  bool at(char c) const { return !text_.empty() && text_.front() == c; }
  bool taken(std::string_view part) {
    bool const found = text_.starts_with(part);
    if (found)
      text_.remove_prefix(part.size());
    return found;
  }
  char take() {
    check(!text_.empty());
    char const c = text_.front();
    text_.remove_prefix(1);
    return c;
  }

  int add(gPatternNode const & node) {
    pattern_.nodes.push_back(node);
    return static_cast<int>(pattern_.nodes.size()) - 1;
  }
  int add_set(gByteSet const & bytes) {
    gPatternNode node;
    node.kind = gPatternNode::set;
    node.bytes = without_nul(bytes);
    return add(node);
  }
  int add_byte(char c) { return add_set(gByteSet().set(static_cast<unsigned char>(c))); }
  int add_pair(gPatternNode::Kind kind, int left, int right) {
    gPatternNode node;
    node.kind = kind;
    node.left = left;
    node.right = right;
    return add(node);
  }

  int choice() {
    check(++depth_ < nesting_limit);
    int node = sequence();
    while (taken("|"))
      node = add_pair(gPatternNode::choice, node, sequence());
    --depth_;
    return node;
  }

  int sequence() {
    int node = -1;
    while (!text_.empty() && !at('|') && !at(')') && !at('/')) {
      int const next = repetition();
      node = node < 0 ? next : add_pair(gPatternNode::sequence, node, next);
    }
    return node < 0 ? add({}) : node;
  }

  int repetition() {
    int node = atom();
    for (;;) {
      if (taken("*"))
        node = add_repeat(node, 0, gPatternNode::unlimited);
      else if (taken("+"))
        node = add_repeat(node, 1, gPatternNode::unlimited);
      else if (taken("?"))
        node = add_repeat(node, 0, 1);
      else if (at('{') && text_.size() > 1 && text_[1] >= '0' && text_[1] <= '9')
        node = counted(node);
      else
        return node;
    }
  }

  int add_repeat(int body, int low, int high) {
    gPatternNode node;
    node.kind = gPatternNode::repeat;
    node.left = body;
    node.low = low;
    node.high = high;
    return add(node);
  }

  int counted(int body) {
    take();
    int const low = number();
    int high = low;
    if (taken(","))
      high = at('}') ? gPatternNode::unlimited : number();
    check(taken("}") && (high < 0 || low <= high));
    return add_repeat(body, low, high);
  }

  int number() {
    check(!text_.empty() && text_.front() >= '0' && text_.front() <= '9');
    int value = 0;
    while (!text_.empty() && text_.front() >= '0' && text_.front() <= '9') {
      value = value * 10 + (take() - '0');
      check(value <= count_limit);
    }
    return value;
  }

  int atom() {
    char const c = take();
    switch (c) {
    case '(':
      return group();
    case '[':
      return byte_class();
    case '"':
      return quoted();
    case '{':
      return named();
    case '.':
      return add_set(gByteSet().set().reset('\n'));
    case '\\':
      return add_byte(escaped());
    case '*':
    case '+':
    case '?':
    case '^':
    case '$':
    case ']':
    case '}':
      check(false); // as a character of the text it has to be escaped
    }
    return add_byte(c);
  }

  int group() {
    int const node = choice();
    check(taken(")"));
    return node;
  }

  int quoted() {
    int node = -1;
    while (!taken("\"")) {
      char const c = take();
      int const next = add_byte(c == '\\' ? escaped() : c);
      node = node < 0 ? next : add_pair(gPatternNode::sequence, node, next);
    }
    return node < 0 ? add({}) : node;
  }

  int named() {
    std::size_t const end = text_.find('}');
    check(end != text_.npos);
    std::string_view const name = text_.substr(0, end);
    text_.remove_prefix(end + 1);
    for (gScanDefinition const & one : definitions_)
      if (name == one.name)
        return Reader(pattern_, one.pattern, definitions_, depth_).definition();
    check(false);
    return -1;
  }

  char escaped() {
    char const c = take();
    char const * letters = "ntrfvab";
    if (char const * at = c ? std::strchr(letters, c) : nullptr)
      return "\n\t\r\f\v\a\b"[at - letters];
    if (c != 'x')
      return c;
    int value = 0;
    check(!text_.empty() && hex_digit(text_.front()) >= 0);
    for (int i = 0; i < 2 && !text_.empty() && hex_digit(text_.front()) >= 0; ++i)
      value = value * 16 + hex_digit(take());
    return static_cast<char>(value);
  }

  int byte_class() {
    bool const negated = taken("^");
    gByteSet bytes;
    for (bool first = true; first || !at(']'); first = false) {
      auto const low = static_cast<unsigned char>(class_byte());
      auto high = low;
      if (text_.size() > 1 && text_[0] == '-' && text_[1] != ']') {
        take();
        high = static_cast<unsigned char>(class_byte());
      }
      check(low <= high);
      for (int c = low; c <= high; ++c)
        bytes.set(static_cast<std::size_t>(c));
    }
    take();
    return add_set(negated ? ~bytes : bytes);
  }
  char class_byte() {
    char const c = take();
    return c == '\\' ? escaped() : c;
  }

  gPattern & pattern_;
  std::string_view whole_, text_;
  std::span<gScanDefinition const> definitions_;
  int depth_;
};

} // namespace

gPattern parse_pattern(std::string_view text, std::span<gScanDefinition const> definitions) {
  gPattern pattern;
  Reader(pattern, text, definitions).rule();
  return pattern;
}

int gPattern::fixed_length(int index) const {
  gPatternNode const & node = nodes[static_cast<std::size_t>(index)];
  int const left = node.left < 0 ? 0 : fixed_length(node.left);
  int const right = node.right < 0 ? 0 : fixed_length(node.right);
  switch (node.kind) {
  case gPatternNode::empty:
    return 0;
  case gPatternNode::set:
    return 1;
  case gPatternNode::sequence:
    return left < 0 || right < 0 ? -1 : left + right;
  case gPatternNode::choice:
    return left == right ? left : -1;
  case gPatternNode::repeat:
    return left < 0 || node.low != node.high ? -1 : left * node.low;
  }
  return -1;
}

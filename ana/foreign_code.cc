// Braces are told apart by the words in front of them. A wrong guess costs a comment, no more.
#include "ana/foreign_code.h"

#include <algorithm>
#include <iterator>

#include "ana/comments/foreign_text.h"
#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

constexpr std::size_t longest_head = 4000;
constexpr std::size_t longest_scope = 300; // names of namespaces and classes in a row
constexpr std::size_t deepest = 100;       // and their number

bool has_word(std::string_view text, std::string_view word) {
  for (std::size_t at = 0; (at = text.find(word, at)) != std::string_view::npos; ++at) {
    std::size_t const end = at + word.size();
    if ((at == 0 || !Vlb::is_word(text[at - 1])) &&
        (end == text.size() || !Vlb::is_word(text[end])))
      return true;
  }
  return false;
}

bool begins_with_word(std::string_view text, std::string_view word) {
  return text.starts_with(word) && (text.size() == word.size() || !Vlb::is_word(text[word.size()]));
}

// "template<...>" in front, however nested.
std::string_view without_template(std::string_view text) {
  while (begins_with_word(text, "template")) {
    std::size_t at = text.find('<');
    int depth = 0;
    for (; at < text.size(); ++at) {
      depth += text[at] == '<' ? 1 : text[at] == '>' ? -1 : 0;
      if (depth == 0)
        break;
    }
    text = at < text.size() ? trimmed(text.substr(at + 1)) : std::string_view();
  }
  return text;
}

// What may stand between a parameter list and a body.
bool is_function_tail(std::string_view tail) {
  for (std::string_view rest = trimmed(tail); !rest.empty(); rest = trimmed(rest)) {
    std::size_t end = 0;
    while (end < rest.size() && Vlb::is_word(rest[end]))
      ++end;
    std::string_view const word = rest.substr(0, end);
    if (end == 0)
      return rest[0] == ':' || rest[0] == '-' || rest[0] == '&';
    if (word != "const" && word != "noexcept" && word != "override" && word != "final" &&
        word != "volatile" && word != "try" && word != "requires")
      return false;
    rest.remove_prefix(end);
  }
  return true;
}

std::string last_word(std::string_view text) {
  text = trimmed(text);
  std::size_t begin = text.size();
  while (begin > 0 && (Vlb::is_word(text[begin - 1]) || text[begin - 1] == ':'))
    --begin;
  return std::string(text.substr(begin));
}

// The name behind the key of a class or namespace, up to its bases.
std::string scope_name(std::string_view head) {
  std::size_t end = head.size();
  for (std::size_t i = 1; i + 1 < head.size() && end == head.size(); ++i)
    if (head[i] == ':' && head[i - 1] != ':' && head[i + 1] != ':')
      end = i;
  head = trimmed(head.substr(0, end));
  if (head.ends_with("final"))
    head = trimmed(head.substr(0, head.size() - 5));
  return last_word(head);
}

std::string without_arguments(std::string_view name) {
  std::string result;
  int depth = 0;
  for (char c : name) {
    depth += c == '<' ? 1 : 0;
    if (depth == 0)
      result += c;
    depth -= c == '>' ? 1 : 0;
  }
  return result;
}

// The declared name in the head of a function, as far as it is a scoped one.
std::string scoped_declarator(std::string_view head) {
  head = without_template(head);
  std::size_t const op = head.find("operator");
  std::size_t const parens = head.find('(', op == std::string_view::npos ? 0 : op + 9);
  if (parens == std::string_view::npos)
    return {};
  std::string_view const before = trimmed(head.substr(0, parens));
  std::size_t begin = std::min(op, before.size());
  int depth = 0;
  while (begin > 0) {
    char const c = before[begin - 1];
    depth += c == '>' ? 1 : c == '<' ? -1 : 0;
    if (depth < 0 || (depth == 0 && c != '<' && !Vlb::is_word(c) && c != ':' && c != '~'))
      break;
    --begin;
  }
  std::string name = without_arguments(before.substr(begin, std::min(op, before.size()) - begin));
  if (op != std::string_view::npos)
    name += before.substr(op);
  return name.find("::") == std::string::npos || name.starts_with("::") ? std::string() : name;
}

} // namespace

// Empty where it would be longer than any real one.
std::string gForeignCode::scoped(std::string const & name) const {
  std::string result;
  for (Level const & level : scopes_) {
    if (scopes_.size() > deepest || result.size() > longest_scope)
      return {};
    if (!level.name.empty())
      result += level.name + "::";
  }
  return result + name;
}

void gForeignCode::end_head() {
  last_begin_ = head_begin_;
  head_.clear();
}

void gForeignCode::open(std::size_t at) {
  if (scope() == body) {
    ++inner_;
    return end_head();
  }
  std::string_view const head = without_template(trimmed(head_));
  std::size_t const parens = head.rfind(')');
  bool const function =
      parens != std::string_view::npos && is_function_tail(head.substr(parens + 1));
  Level level{body, {}, false};
  if (parentheses_ > 0) {
    // whatever it is, it is no declaration
  } else if (!function && has_word(head, "enum")) {
    level.kind = enumerators;
    std::string const name = scope_name(head);
    enumeration_ = {at, !name.empty() && name != "enum" && name != "class" && name != "struct"};
    enumerator_open_ = true;
    enumerator_.clear();
  } else if (!function && (has_word(head, "namespace") || has_word(head, "class") ||
                           has_word(head, "struct") || has_word(head, "union"))) {
    level.kind = declarations;
    level.name = scope_name(head);
    if (level.name == "namespace" || level.name == "struct" || level.name == "union")
      level.name.clear();
  } else if (!function && begins_with_word(head, "extern")) {
    level.kind = declarations;
  } else if (std::string const name = scoped_declarator(trimmed(head_)); !name.empty()) {
    hidden_.push_back({head_begin_, 0, scoped(name)});
    level.defines = true;
  }
  scopes_.push_back(std::move(level));
  end_head();
}

void gForeignCode::close(std::size_t at) {
  if (inner_ > 0) {
    --inner_;
  } else if (!scopes_.empty()) {
    if (scopes_.back().defines)
      hidden_.back().end = at + 1;
    scopes_.pop_back();
  }
  end_head();
}

void gForeignCode::take(char c, std::size_t at) {
  last_ = c;
  feeds_ = 0;
  line_ += c;
  if (c == '{')
    return open(at);
  if (c == '}')
    return close(at);
  parentheses_ = std::max(0, parentheses_ + (c == '(' ? 1 : c == ')' ? -1 : 0));
  if (c == ';') {
    parentheses_ = 0;
    if (scope() == declarations && begins_with_word(head_, "static_assert"))
      hidden_.push_back({head_begin_, at + 1, {}});
    return end_head();
  }
  if (c == ':' && (head_ == "public" || head_ == "protected" || head_ == "private"))
    return end_head();
  if (scope() == enumerators && parentheses_ == 0) {
    if (c == '=')
      enumerator_open_ = false;
    if (c == ',') {
      enumerator_open_ = true;
      return end_head();
    }
    if (Vlb::is_word(c) && enumerator_open_) {
      if (head_.empty() || !Vlb::is_word(head_.back()))
        enumerator_.clear();
      enumerator_ += c;
    }
  }
  if (head_.empty())
    head_begin_ = at;
  if (head_.size() < longest_head)
    head_ += c;
}

void gForeignCode::read(std::string_view text, std::size_t begin, std::size_t end) {
  for (std::size_t at = begin; at < end; ++at) {
    char const c = text[at];
    if (quote_) {
      if (!escaped_ && (c == quote_ || c == '\n'))
        quote_ = 0;
      escaped_ = !escaped_ && c == '\\';
      if (c != '\n')
        continue;
    }
    if (c == '\n') {
      ++feeds_;
      line_.clear();
    }
    if (Vlb::is_space(c)) {
      if (!head_.empty() && head_.back() != ' ')
        head_ += ' ';
      continue;
    }
    bool const digit_separator = c == '\'' && at > begin && Vlb::is_word(text[at - 1]);
    if (c == '"' || (c == '\'' && !digit_separator)) {
      quote_ = c;
      escaped_ = false;
    }
    take(c, at);
  }
}

void gForeignCode::skip(std::string_view comment) {
  if (comment.find('\n') != std::string_view::npos)
    line_.clear();
  if (!head_.empty() && head_.back() != ' ')
    head_ += ' ';
}

bool declares_something(std::string_view code) {
  code = trimmed(code);
  if (code.empty() ||
      (!Vlb::is_word(code[0]) && code[0] != '~' && code[0] != ':' && code[0] != '['))
    return false;
  static constexpr std::string_view others[] = {
      "namespace", "using",   "friend",    "static_assert", "return",
      "public",    "private", "protected", "signals",       "slots",
      "Q_SIGNALS", "Q_SLOTS", "case",      "default",       "asm"};
  if (std::any_of(std::begin(others), std::end(others),
                  [&](std::string_view word) { return begins_with_word(code, word); }))
    return false;
  code = without_template(code);
  std::string_view const head = trimmed(code.substr(0, code.find_first_of(";{")));
  bool const ends = head.size() < code.size() && code[code.find_first_of(";{")] == ';';
  if (begins_with_word(code, "extern") && code.find('"') < head.size() && !ends)
    return false;
  std::string_view keys[] = {"class", "struct", "union", "enum"};
  bool const keyed = std::any_of(std::begin(keys), std::end(keys),
                                 [&](std::string_view key) { return begins_with_word(head, key); });
  if (!keyed)
    return true;
  // A declaration in advance, and an enumeration without a name, make no element.
  if (ends && head.find_first_of("(=*&,[") == std::string_view::npos)
    return std::count(head.begin(), head.end(), ' ') > 2;
  return !begins_with_word(head, "enum") || head != "enum";
}

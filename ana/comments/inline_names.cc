// Which words of running text name something of the program, or a place of the web.
#include <algorithm>
#include <cctype>

#include "ana/comments/inline_commands.h"
#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

constexpr std::size_t npos = std::string_view::npos;

// A word of the preprocessor is no name.
bool is_directive(std::string_view word) {
  static constexpr std::string_view words[] = {"include", "define", "if",    "ifdef", "ifndef",
                                               "else",    "elif",   "endif", "undef", "pragma",
                                               "error",   "line",   "import"};
  return std::ranges::find(words, word) != std::end(words);
}

// Whether a word by itself looks like a name of a program: it has humps, or both "_" and letters.
bool has_humps(std::string_view word) {
  bool lower = false, hump = false;
  for (char c : word) {
    auto const byte = static_cast<unsigned char>(c);
    hump = hump || (lower && std::isupper(byte));
    lower = std::islower(byte) != 0;
  }
  return hump && word.size() > 3;
}

} // namespace

std::string reference_target(std::string_view word) {
  while (!word.empty() && is_one_of(word.front(), "#:%"))
    word.remove_prefix(1);
  word = word.substr(0, word.find('('));
  std::string target;
  for (char c : word)
    target += c == '#' ? std::string("::") : std::string(1, c);
  bool const is_name = target.find("//") == npos && !target.empty() && target.size() < 300 &&
                       (is_letter(target[0]) || target[0] == '_') &&
                       std::all_of(target.begin(), target.end(),
                                   [](char c) { return Vlb::is_word(c) || is_one_of(c, ":.~-/"); });
  return is_name && target.back() != ':' && target.back() != '.' ? target : std::string();
}

namespace {

// The end of a name that may be that of an operator.
std::size_t end_of_name(std::string_view text) {
  std::size_t end = std::min(text.find_first_of(" \t\n("), text.size());
  std::size_t const word = text.substr(0, end).rfind("operator");
  bool const is_operator = word != npos && (word == 0 || text[word - 1] == ':') &&
                           !Vlb::is_word((std::string(text) + ' ')[word + 8]);
  if (!is_operator)
    return end;
  if (text.substr(word + 8).starts_with("()"))
    return word + 10;
  std::size_t const sign = std::min(text.find_first_not_of(' ', word + 8), text.size());
  return std::min(text.find_first_of(" \t\n(", sign), text.size());
}

// "(int, char *) const" without its blanks; "" if the text doesn't begin with a bracket that ends.
std::string brackets_at(std::string_view text, std::size_t & length) {
  constexpr std::size_t longest = 500;
  length = 0;
  if (!text.starts_with('('))
    return {};
  int depth = 0;
  std::size_t end = 0;
  for (std::size_t i = 0; i < std::min(text.size(), longest) && end == 0; ++i) {
    depth += text[i] == '(' ? 1 : text[i] == ')' ? -1 : 0;
    end = depth == 0 ? i + 1 : 0;
  }
  if (end == 0)
    return {};
  std::string_view const behind = text.substr(end);
  for (std::string_view const word : {"const", " const"})
    if (behind.starts_with(word) && !Vlb::is_word((std::string(behind) + ' ')[word.size()]))
      end += word.size();
  length = end;
  return std::string(text.substr(0, end));
}

} // namespace

std::string overload_target(std::string_view text, std::size_t & length) {
  std::size_t const front = std::min(text.find_first_not_of(" \t"), text.size());
  std::string_view const rest = text.substr(front);
  std::size_t end = end_of_name(rest);
  std::size_t brackets = 0;
  std::string const parameters = brackets_at(rest.substr(end), brackets);
  length = front + end + brackets;
  while (brackets == 0 && end > 1 && is_one_of(rest[end - 1], ".,;:!?)'\""))
    --end;
  std::string_view const name = rest.substr(0, end);
  std::size_t const word = name.find("operator");
  std::string target = word == npos ? reference_target(name) : std::string();
  if (word != npos && name.size() < 100)
    for (char const c : name.substr(std::min(name.find_first_not_of("#:"), word)))
      target += c == '#' ? std::string("::") : c == ' ' ? std::string() : std::string(1, c);
  if (brackets == 0)
    length = front + end;
  return target.empty() ? target : target + parameters;
}

// "#name"
bool gInlineCommands::hash_name() {
  if (!behind_blank() || (!is_letter(at(at_ + 1)) && at(at_ + 1) != '_'))
    return false;
  std::size_t end = at_ + 1;
  while (Vlb::is_word(at(end)) ||
         (at(end) == ':' && at(end + 1) == ':' && is_letter(at(end + 2))) ||
         (at(end) == ':' && at(end - 1) == ':'))
    ++end;
  std::string const word(text_.substr(at_ + 1, end - at_ - 1));
  if (is_directive(word))
    return false;
  std::size_t const from = at_;
  at_ = end + (at(end) == '(' && at(end + 1) == ')' ? 2 : 0);
  put({gToken::guess, word, std::string(text_.substr(from + 1, at_ - from - 1)), {}}, from);
  return true;
}

// "Klass::meth()", "f()", "Klass", "TFoo.Bar"; copies all other words as they are.
bool gInlineCommands::name() {
  std::size_t end = at_;
  bool scoped = false;
  bool const pascal = hints_ && hints_->pascal;
  for (;;) {
    while (Vlb::is_word(at(end)))
      ++end;
    bool const more =
        (at(end) == ':' && at(end + 1) == ':' && (is_letter(at(end + 2)) || at(end + 2) == '_')) ||
        (pascal && at(end) == '.' && is_letter(at(end + 1)));
    if (!more)
      break;
    scoped = true;
    end += at(end) == ':' ? 2 : 1;
  }
  std::size_t const from = at_;
  std::string_view const word = text_.substr(from, end - from);
  bool const call = at(end) == '(' && at(end + 1) == ')';
  bool const between = from > 0 && is_one_of(text_[from - 1], "@\\.-/&$~\x02");
  if (between || word.size() > 200 || (!scoped && !call && !has_humps(word)) ||
      (at(end) == '<' || at(end) == '@' || at(end) == '/') ||
      std::isdigit(static_cast<unsigned char>(word[0]))) {
    out_ += word;
    at_ = end;
    return true;
  }
  at_ = end + (call ? 2 : 0);
  put({gToken::guess, std::string(word), std::string(text_.substr(from, at_ - from)), {}}, from);
  return true;
}

// "@name" of a parameter.
bool gInlineCommands::parameter() {
  if (!hints_ || text_[at_] != '@')
    return false;
  std::size_t end = at_ + 1;
  while (Vlb::is_word(at(end)))
    ++end;
  std::string_view const name = text_.substr(at_ + 1, end - at_ - 1);
  if (!hints_->parameters.contains(name))
    return false;
  std::size_t const from = at_;
  at_ = end;
  put({gToken::code, std::string(name), {}, {}}, from);
  return true;
}

// What stands in an address is no command.
bool gInlineCommands::address() {
  std::string_view const rest = text_.substr(at_);
  if (behind_word() || !(rest.starts_with("http://") || rest.starts_with("https://")))
    return false;
  std::size_t end = at_;
  while (!ends_word(at(end)) && !is_one_of(at(end), "<>\"`") && at(end) != '\x01')
    ++end;
  int depth = 0;
  std::size_t last = at_;
  for (std::size_t i = at_; i < end; ++i) { // a bracket that was opened outside ends it
    depth += text_[i] == '(' ? 1 : text_[i] == ')' ? -1 : 0;
    if (depth < 0 || (text_[i] == ']' && i + 1 < end && text_[i + 1] == '('))
      break;
    last = i + 1;
  }
  while (last > at_ && is_one_of(text_[last - 1], ".,;:!?'}]*"))
    --last;
  std::size_t const from = at_;
  std::string_view const whole = text_.substr(from, last - from);
  at_ = last;
  bool const in_link = from > 0 && is_one_of(text_[from - 1], "(<") &&
                       (from < 2 || text_[from - 2] == ']' || text_[from - 1] == '<');
  bool const defines = from > 2 && text_.substr(from - 3, 3) == "]: ";
  if (in_link || defines || whole.size() < 9)
    out_ += whole;
  else
    put({gToken::link, std::string(whole), {}, {}}, from);
  return true;
}

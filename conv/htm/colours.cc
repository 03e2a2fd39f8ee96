// Line by line, with one number for what goes on in the next line, so that every line of a source
// page is a complete piece of its own.

#include "conv/htm/colours.h"

#include <algorithm>
#include <array>

#include "conv/htm/html_text.h"
#include "vlb/gstring.h"

namespace {

// What a line may begin in.
enum : gColours::gState { plain, block_comment, brace_comment, directive };

constexpr std::string_view names[] = {"",       "",          "keyword",   "comment", "string",
                                      "number", "directive", "differing", "arrow"};

bool is_word_start(char c) {
  return Vlb::is_letter(c) || c == '_' || static_cast<unsigned char>(c) >= 128;
}
bool is_word(char c) {
  return is_word_start(c) || Vlb::is_digit(c);
}

// One line on its way.
class gScan {
public:
  gScan(std::string_view line, std::vector<gColoured> & out) : line_(line), out_(out) {}

  bool done() const { return at_ >= line_.size(); }
  std::string_view rest() const { return line_.substr(at_); }
  bool at_start() const { return line_.find_first_not_of(" \t") == at_; }
  void take(std::size_t length, gColour colour) {
    length = std::min(length, line_.size() - at_);
    std::string_view const text = line_.substr(at_, length);
    at_ += length;
    if (!out_.empty() && out_.back().colour == colour &&
        out_.back().text.data() + out_.back().text.size() == text.data())
      out_.back().text = {out_.back().text.data(), out_.back().text.size() + length};
    else if (length > 0)
      out_.push_back({colour, text});
  }
  // Up to and with the text, or to the end of the line; false if it isn't there.
  bool take_to(std::string_view end, std::size_t from, gColour colour) {
    std::size_t const found = rest().find(end, from);
    take(found == std::string_view::npos ? rest().size() : found + end.size(), colour);
    return found != std::string_view::npos;
  }

private:
  std::string_view line_;
  std::vector<gColoured> & out_;
  std::size_t at_ = 0;
};

std::size_t word_length(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::find_if_not(text, is_word) - text.begin());
}

std::size_t number_length(std::string_view text) {
  std::size_t i = 1;
  while (i < text.size()) {
    bool const sign = (text[i] == '+' || text[i] == '-') && (Vlb::lower(text[i - 1]) == 'e') &&
                      !text.starts_with("0x");
    bool const separator = text[i] == '\'' && i + 1 < text.size() && is_word(text[i + 1]);
    if (!is_word(text[i]) && text[i] != '.' && !sign && !separator)
      break;
    if (text.substr(i).starts_with("..")) // a range
      break;
    ++i;
  }
  return i;
}

// A quoted text that ends on its line.
std::size_t quoted_length(std::string_view text, bool escapes) {
  for (std::size_t i = 1; i < text.size(); ++i)
    if (escapes && text[i] == '\\')
      ++i;
    else if (text[i] == text[0])
      return i + 1;
  return text.size();
}

// Signs that begin nothing but themselves, in any language.
constexpr auto is_sign = [] {
  std::array<bool, 256> signs{};
  for (char const c : std::string_view(" \t,;:)=<>&*+-!?|~^%[]"))
    signs[static_cast<unsigned char>(c)] = true;
  return signs;
}();

std::size_t signs_length(std::string_view text) {
  std::size_t length = 0;
  while (length < text.size() && is_sign[static_cast<unsigned char>(text[length])])
    ++length;
  return length;
}

bool starts_number(std::string_view text) {
  return Vlb::is_digit(text[0]) || (text[0] == '.' && text.size() > 1 && Vlb::is_digit(text[1]));
}

// Comments and quotes of C/C++; false if the line goes on with something else.
bool take_cpp(gScan & scan, gColours::gState & state) {
  std::string_view const rest = scan.rest();
  if (rest.starts_with("//")) {
    scan.take(rest.size(), gColour::comment);
  } else if (rest.starts_with("/*")) {
    state = scan.take_to("*/", 2, gColour::comment) ? plain : block_comment;
  } else if (rest[0] == '"' || rest[0] == '\'') {
    scan.take(quoted_length(rest, true), gColour::string);
  } else if (rest[0] == '#' && scan.at_start()) {
    std::size_t const word = std::min(rest.find_first_not_of(" \t", 1), rest.size());
    std::size_t const length = word + word_length(rest.substr(word));
    bool const include = rest.substr(word).starts_with("include");
    scan.take(length, gColour::directive);
    if (include)
      scan.take(scan.rest().find("//"), gColour::string);
  } else {
    return false;
  }
  return true;
}

bool take_pascal(gScan & scan, gColours::gState & state) {
  std::string_view const rest = scan.rest();
  if (rest.starts_with("//"))
    scan.take(rest.size(), gColour::comment);
  else if (rest.starts_with("{$") || rest.starts_with("(*$"))
    state = scan.take_to(rest[0] == '{' ? "}" : "*)", 2, gColour::directive) ? plain : directive;
  else if (rest[0] == '{')
    state = scan.take_to("}", 1, gColour::comment) ? plain : brace_comment;
  else if (rest.starts_with("(*"))
    state = scan.take_to("*)", 2, gColour::comment) ? plain : block_comment;
  else if (rest[0] == '\'')
    scan.take(quoted_length(rest, false), gColour::string);
  else if (rest[0] == '$' && rest.size() > 1 && is_word(rest[1]))
    scan.take(1 + word_length(rest.substr(1)), gColour::number);
  else
    return false;
  return true;
}

void go_on(gScan & scan, gLanguage language, gColours::gState & state) {
  std::string_view end = language == gLanguage::cpp ? "*/" : "*)";
  if (state == brace_comment ||
      (state == directive && scan.rest().find("}") < scan.rest().find(end)))
    end = "}";
  if (scan.take_to(end, 0, state == directive ? gColour::directive : gColour::comment))
    state = plain;
}

} // namespace

gColours::gColours(gVltRules const & rules) {
  words_[0] = rules.setting("keywords_cpp");
  words_[1] = rules.setting("keywords_pas");
  for (int i = 0; i < 2; ++i)
    for (std::size_t at = 0; at < words_[i].size();) {
      std::size_t const end = std::min(words_[i].find(' ', at), words_[i].size());
      keywords_[i].insert(std::string_view(words_[i]).substr(at, end - at));
      at = end + 1;
    }
  // A rule that is one frame around its text is used once here instead of for each word.
  for (std::size_t i = static_cast<std::size_t>(gColour::keyword); i < colour_count; ++i) {
    std::string text;
    gVltValues values;
    values.set(gVltValue::text, "\1").set(gVltValue::name, names[i]);
    rules.apply(gVltRule::colour, names[i], values, text);
    std::size_t const mark = std::min(text.find('\1'), text.size());
    frames_[i] = {text.substr(0, mark), text.substr(std::min(mark + 1, text.size()))};
  }
}

gLanguage gColours::language_of(std::string_view path) {
  std::string const extension = Vlb::to_lower(path.substr(path.rfind('.') + 1));
  for (std::string_view const known : {"pas", "p", "pp", "dpr", "dpk", "lpr", "inc"})
    if (extension == known)
      return gLanguage::pascal;
  return gLanguage::cpp;
}

bool gColours::is_keyword(gLanguage language, std::string_view word) const {
  if (word.size() > 24)
    return false;
  if (language == gLanguage::cpp)
    return keywords_[0].contains(word);
  return keywords_[1].contains(Vlb::to_lower(word));
}

void gColours::split(gLanguage language, std::string_view line, gState & state,
                     std::vector<gColoured> & out) const {
  out.clear();
  gScan scan(line, out);
  if (state != plain)
    go_on(scan, language, state);
  while (!scan.done()) {
    if (language == gLanguage::cpp ? take_cpp(scan, state) : take_pascal(scan, state))
      continue;
    std::string_view const rest = scan.rest();
    if (std::size_t const signs = signs_length(rest); signs > 0) {
      scan.take(signs, gColour::none);
    } else if (is_word_start(rest[0])) {
      std::size_t const length = word_length(rest);
      scan.take(length,
                is_keyword(language, rest.substr(0, length)) ? gColour::keyword : gColour::word);
    } else if (starts_number(rest)) {
      scan.take(number_length(rest), gColour::number);
    } else {
      // Two points are a range, and no part of the number behind them.
      scan.take(rest.starts_with("..") ? 2 : 1, gColour::none);
    }
  }
}

void gColours::set(gColoured const & stretch, std::string & out) const {
  out += before(stretch.colour);
  Html::escape(stretch.text, out);
  out += behind(stretch.colour);
}

void gColours::set(gLanguage language, std::string_view text, std::string & out) const {
  std::vector<gColoured> stretches;
  gState state = plain;
  for (std::size_t at = 0; at <= text.size();) {
    std::size_t const end = std::min(text.find('\n', at), text.size());
    split(language, text.substr(at, end - at), state, stretches);
    for (gColoured const & stretch : stretches)
      set(stretch, out);
    if (end < text.size())
      out += '\n';
    at = end + 1;
  }
}

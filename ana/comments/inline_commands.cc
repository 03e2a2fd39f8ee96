// One pass over the text. Each place is tried as what its character may begin; what it isn't stays
// for Markdown. Closing words are searched a limited stretch ahead, so time is linear.
#include "ana/comments/inline_commands.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "ana/comments/html_elements.h"
#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

constexpr std::size_t npos = std::string_view::npos;

// "name}{ ... ", as it stands behind "\f{".
std::string environment(std::string_view text) {
  std::size_t const end = std::min(text.find('}'), text.size());
  std::string const name(text.substr(0, end));
  std::string_view body = trimmed(text.substr(std::min(end + 1, text.size())));
  body.remove_prefix(body.starts_with('{'));
  return "\\begin{" + name + "}" + std::string(body) + "\\end{" + name + "}";
}

// "0xE9" and "233" as HTML has them.
std::string character_name(std::string_view number) {
  bool const hexadecimal = number.starts_with("0x") || number.starts_with("0X");
  return hexadecimal ? "&#x" + std::string(number.substr(2)) + ";"
                     : "&#" + std::string(number) + ";";
}

bool is_text_format(std::string_view target) {
  return target == "b" || target == "em" || target == "tt";
}

} // namespace

bool gInlineCommands::behind_word() const {
  return at_ > 0 && Vlb::is_word(text_[at_ - 1]);
}

bool gInlineCommands::behind_blank() const {
  return at_ == 0 || ends_word(text_[at_ - 1]) || is_one_of(text_[at_ - 1], "([{\"'>,;/|*_-");
}

void gInlineCommands::put(gToken token, std::size_t from) {
  token.raw = text_.substr(from, at_ - from);
  out_ += tokens_.add(std::move(token));
}

// The word behind blanks of one line; punctuation at its end stays outside.
std::string_view gInlineCommands::take_word() {
  std::size_t begin = at_;
  while (at(begin) == ' ' || at(begin) == '\t')
    ++begin;
  if (at(begin) == '\n' && !ends_word(at(begin + 1))) // the word may stand in the next line
    while (ends_word(at(begin)) && begin < text_.size())
      ++begin;
  std::size_t end = begin;
  while (!ends_word(at(end)))
    ++end;
  while (end > begin + 1 && is_one_of(text_[end - 1], ".,;:!?)'\"") &&
         !text_.substr(begin, end - begin).ends_with("()") &&
         !(text_[end - 1] == ')' && text_.substr(begin, end - begin).find('(') != npos))
    --end;
  at_ = end;
  return text_.substr(begin, end - begin);
}

// "{text}" right here, without its braces; the text is empty if there is none.
std::string_view gInlineCommands::braced() {
  if (at(at_) != '{')
    return {};
  int depth = 0;
  for (std::size_t i = at_; i < std::min(text_.size(), at_ + farthest); ++i) {
    depth += text_[i] == '{' ? 1 : text_[i] == '}' ? -1 : 0;
    if (depth == 0) {
      std::string_view const inner = text_.substr(at_ + 1, i - at_ - 1);
      at_ = i + 1;
      return trimmed(inner);
    }
  }
  return {};
}

// The words of toolkits stand in braces, with or without a blank in front.
bool gInlineCommands::at_braces(gCommand const & command) const {
  std::size_t const open = at_ + (at(at_) == ' ');
  bool const may = command.kind == gCommandKind::brace || command.kind == gCommandKind::bracket ||
                   command.where.find('q') != npos || command.where == "c";
  return may && at(open) == '{' && at(open + 1) != '}' && at(open + 1) != '@' &&
         text_.substr(open, 400).find('}') != npos;
}

std::string_view gInlineCommands::braced_words() {
  at_ += at(at_) == ' ';
  return braced();
}

bool gInlineCommands::word_format(gCommand const & command, std::size_t end) {
  std::size_t const from = at_;
  at_ = end;
  std::string_view word = at_braces(command) ? braced_words() : take_word();
  if (command.target == "second" && at_braces(command)) // what it looks like stood in front
    word = braced_words();
  if (word.empty()) {
    at_ = from;
    return false;
  }
  std::string const words(word);
  switch (command.kind) {
  case gCommandKind::code_word:
    put({gToken::code, tokens_.plain(words), {}, {}}, from);
    break;
  case gCommandKind::em_word:
    put({gToken::format, words, "em", {}}, from);
    break;
  case gCommandKind::bold_word:
    put({gToken::format, words, "b", {}}, from);
    break;
  case gCommandKind::bracket:
    put({gToken::format, words, std::string(command.target), {}}, from);
    break;
  case gCommandKind::brace:
    if (command.target == "character") {
      std::size_t length = 0;
      std::string const shown = Html::entity_at(character_name(word), length);
      put({gToken::text, length > 0 ? shown : words, {}, {}}, from);
      break;
    }
    put({command.target.empty() || command.target == "second" ? gToken::text : gToken::format,
         words,
         std::string(command.target),
         {}},
        from);
    break;
  case gCommandKind::anchor:
    put({gToken::anchor, words, {}, {}}, from);
    break;
  default:
    put({gToken::text, words, {}, {}}, from);
    break;
  }
  return true;
}

// Up to a closing command.
bool gInlineCommands::closed(gCommand const & command, std::size_t end) {
  std::size_t const from = at_;
  std::string close = std::string(1, text_[at_]) + std::string(command.target);
  std::size_t begin = end;
  std::string language;
  if (command.name != "f{" && at(begin) == '{') { // "@code{.cpp}"
    std::size_t const brace = text_.find('}', begin);
    if (brace != npos && brace < begin + 40) {
      language = text_.substr(begin + 1, brace - begin - 1);
      begin = brace + 1;
    }
  }
  std::size_t const slot = command.kind == gCommandKind::formula ? 0
                           : command.kind == gCommandKind::link  ? 1
                                                                 : 2;
  std::size_t const found =
      no_close_[slot] > begin ? npos : text_.substr(0, begin + farthest).find(close, begin);
  if (found == npos) {
    no_close_[slot] = begin + farthest / 2;
    return false;
  }
  std::string_view inner = text_.substr(begin, found - begin);
  at_ = found + close.size();
  if (command.kind == gCommandKind::formula) {
    std::string const source = command.name == "f{" ? environment(inner) : std::string(inner);
    bool const display = command.name == "f[" || command.name == "f{";
    put({display ? gToken::display : gToken::formula, tokens_.plain(source), {}, {}}, from);
  } else if (command.kind == gCommandKind::link) {
    inner = trimmed(inner);
    std::size_t const space = std::min(inner.find_first_of(" \t\n"), inner.size());
    std::string const name = reference_target(inner.substr(0, space));
    std::string const shown(trimmed(inner.substr(space)));
    put({name.empty() ? gToken::text : gToken::reference_text,
         name.empty() ? shown : name,
         shown.empty() ? name : shown,
         {}},
        from);
  } else if (command.kind == gCommandKind::block) {
    put({gToken::code, std::string(trimmed(inner)), {}, {}}, from);
  }
  return true;
}

// "\ref name "text"", "\l{target}{text}"
bool gInlineCommands::reference(gCommand const & command, std::size_t end) {
  std::size_t const from = at_;
  at_ = end;
  bool const in_braces = at(at_) == '{' || (at(at_) == ' ' && at(at_ + 1) == '{');
  std::string_view target, shown;
  if (in_braces && command.kind == gCommandKind::target) {
    at_ += at(at_) == ' ';
    target = braced();
    if (at(at_) == '[') // the place of the target
      at_ = std::min(text_.find(']', at_), text_.size() - 1) + 1;
    shown = at(at_ + (at(at_) == ' ')) == '{' ? braced_words() : std::string_view();
  } else {
    target = take_word();
    std::size_t const quote = at_ + (at(at_) == ' ');
    std::size_t const last =
        at(quote) == '"' ? text_.substr(0, quote + farthest).find('"', quote + 1) : npos;
    if (last != npos && command.kind == gCommandKind::ref) {
      shown = text_.substr(quote + 1, last - quote - 1);
      at_ = last + 1;
    }
  }
  if (target.empty()) {
    at_ = from;
    return false;
  }
  bool const title = command.kind == gCommandKind::target && target.find(' ') != npos;
  std::string const name = title ? title_id(target) : reference_target(target);
  if (command.name == "subpage")
    pages_below_.emplace_back(target);
  std::string const words(shown.empty() ? target : shown);
  if (is_web_address(target))
    put({gToken::link, std::string(target), words, {}}, from);
  else if (name.empty())
    put({gToken::text, words, {}, {}}, from);
  else if (shown.empty() && !title)
    put({gToken::reference, name, words, {}}, from);
  else
    put({gToken::reference_text, name, words, {}}, from);
  return true;
}

// "@copydoc ns::f(int)"; "@inheritDoc" has no name.
bool gInlineCommands::copy(gCommand const & command, std::size_t end) {
  std::size_t const from = at_;
  std::size_t length = 0;
  std::string target;
  if (command.target != "base")
    target = overload_target(text_.substr(end, farthest), length);
  at_ = end + length;
  if (target.empty() && command.target != "base")
    return true;
  gToken::Does const does = command.target == "brief"     ? gToken::copy_brief
                            : command.target == "details" ? gToken::copy_details
                                                          : gToken::copy_all;
  put({does, std::move(target), {}, {}}, from);
  return true;
}

bool gInlineCommands::known(gCommand const & command, std::size_t behind) {
  using enum gCommandKind;
  std::size_t const from = at_;
  switch (command.kind) {
  case code_word:
  case em_word:
  case bold_word:
  case word:
  case anchor:
    return (ends_word(at(behind)) || at(behind) == '{') && word_format(command, behind);
  case bracket:
    if (!ends_word(at(behind)) && at(behind) != '{')
      return false;
    if (is_text_format(command.target))
      return word_format(command, behind);
    at_ = behind;
    return true;
  case brace:
    return word_format(command, behind);
  case ref:
    return ends_word(at(behind)) && reference(command, behind);
  case target:
    return reference(command, behind);
  case link:
  case formula:
  case block:
  case dropped:
    return closed(command, behind);
  case line_end:
    // A quoted "\n" is a character and ends no line.
    if (!ends_word(at(behind)) || (at_ > 0 && is_one_of(text_[at_ - 1], "'\"(`")))
      return false;
    at_ = behind;
    put({gToken::line_break, {}, {}, {}}, from);
    return true;
  case gCommandKind::copy:
    return ends_word(at(behind)) && this->copy(command, behind);
  case image:
    return (ends_word(at(behind)) || at(behind) == '{') && picture(command, behind);
  case line:
  case group:
  case file:
    if (!ends_word(at(behind)))
      return false;
    at_ = behind;
    take_word();
    return true;
  case none:
  case about:
  case topic:
    return false;
  default: // what begins a part stands in the middle of a line
    if (!ends_word(at(behind)))
      return false;
    at_ = behind;
    return true;
  }
}

// "\@", "@{" and their kin.
bool gInlineCommands::symbol() {
  char const next = at(at_ + 1);
  bool const backslash = text_[at_] == '\\';
  if (next == '{' || next == '}') {
    // Alone it brackets a group; within text it is meant as it stands.
    bool const alone = (at_ == 0 || ends_word(text_[at_ - 1])) && ends_word(at(at_ + 2));
    if (!alone && !backslash)
      return false;
    at_ += 2;
    if (!alone)
      put({gToken::text, std::string(1, next), {}, {}}, at_ - 2);
    return true;
  }
  if (text_.substr(at_ + 1).starts_with("::")) {
    at_ += 3;
    out_ += "::";
    return true;
  }
  // Two of them are one; of the others Markdown knows what a backslash does.
  if (is_one_of(next, "@\\&$#<>%\".=|~") && (!backslash || next == '@' || next == '%') &&
      !(next == '\\' && backslash) && !Vlb::is_word(at(at_ + 2))) {
    at_ += 2;
    put({gToken::text, std::string(1, next), {}, {}}, at_ - 2);
    return true;
  }
  return false;
}

bool gInlineCommands::command() {
  if (hints_ && hints_->pascal && text_[at_] == '\\')
    return false;
  if (symbol())
    return true;
  if (at_ > 0 && text_[at_ - 1] == '\\')
    return false;
  if (behind_word()) { // "H\sub{2}O"
    std::size_t const open = std::min(text_.find('{', at_), at_ + 20);
    gCommand const inside = Commands::find(text_.substr(at_ + 1, open - at_ - 1));
    return text_[at_] == '\\' && inside.kind == gCommandKind::brace && known(inside, open);
  }
  if (parameter())
    return true;
  std::size_t end = at_ + 1;
  while (is_letter(at(end)))
    ++end;
  if (end == at_ + 2 && at(at_ + 1) == 'f' && is_one_of(at(end), "$[{("))
    ++end;
  while (end > at_ + 2 && std::isdigit(static_cast<unsigned char>(at(end)))) // "\section1"
    ++end;
  std::string_view const word = text_.substr(at_ + 1, end - at_ - 1);
  if (word.empty())
    return false;
  gCommand const found = Commands::find(word);
  if (found.kind != gCommandKind::none && known(found, end))
    return true;
  bool const is_word = word.size() > 1 && (ends_word(at(end)) || is_one_of(at(end), ".,:"));
  if (found.kind == gCommandKind::none && is_word && behind_blank() && text_[at_] != '@')
    ++unknown_[std::string(text_.substr(at_, end - at_))];
  return false;
}

// Between words it is a product, or a pointer.
bool gInlineCommands::star() const {
  bool const before = at_ > 0 && (Vlb::is_word(text_[at_ - 1]) || text_[at_ - 1] == ')');
  return before && (Vlb::is_word(at(at_ + 1)) || at(at_ + 1) == '(');
}

bool gInlineCommands::step() {
  char const c = text_[at_];
  if (Vlb::is_word(c) && !behind_word())
    return address() || name();
  switch (c) {
  case '@':
  case '\\':
    return command();
  case '{':
    return braced_command();
  case '`':
    return program_text();
  case '<':
    return element();
  case '#':
    return hash_name();
  case '*':
    if (!star())
      return false;
    put({gToken::text, "*", {}, {}}, at_);
    ++at_;
    return true;
  case '~': // a destructor strikes nothing through
    if (at(at_ + 1) == '~' || (at_ > 0 && text_[at_ - 1] == '~'))
      return false;
    put({gToken::text, "~", {}, {}}, at_);
    ++at_;
    return true;
  case '%': { // keeps a word from being a reference
    std::size_t end = at_ + 1;
    while (Vlb::is_word(at(end)))
      ++end;
    if (behind_word() || end < at_ + 5 || !is_letter(at(at_ + 1)))
      return false;
    out_ += text_.substr(at_ + 1, end - at_ - 1);
    at_ = end;
    return true;
  }
  default:
    return false;
  }
}

std::string gInlineCommands::read(std::string_view text) {
  text_ = text;
  at_ = 0;
  std::fill(std::begin(no_close_), std::end(no_close_), 0);
  out_.clear();
  while (at_ < text_.size()) {
    std::size_t const from = at_;
    if (text_[at_] == '\x01') { // set aside before
      at_ = std::min(text_.find('\x02', at_), text_.size() - 1) + 1;
      out_ += text_.substr(from, at_ - from);
    } else if (!step()) {
      out_ += text_[at_++];
    }
  }
  return std::move(out_);
}

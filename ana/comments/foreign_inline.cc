// Running text is copied character by character, with what the mark-up of text units would take for
// its own protected; tags, elements of HTML and XML, and a little of Markdown become formats.
#include <algorithm>
#include <cctype>
#include <iterator>

#include "ana/comments/foreign_tags.h"
#include "ana/comments/foreign_text.h"
#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

// Braces hold less than a token's length; a longer text stays without its format.
constexpr std::size_t longest_format = 600;
// A word is broken there, since a token is limited; writing systems without blanks have longer
// ones.
constexpr std::size_t longest_word = 300, longest_other_word = 800;
constexpr std::size_t longest_mark = 10; // of backticks

bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

class InlineText {
public:
  explicit InlineText(std::string_view text) : text_(text) {}
  std::string translate();
  std::string plain(bool break_words);

private:
  char at(std::size_t i) const { return i < text_.size() ? text_[i] : '\0'; }
  std::string_view rest() const { return text_.substr(at_); }
  bool behind_word() const { return at_ > 0 && Vlb::is_word(text_[at_ - 1]); }
  // The stretch from `begin` to the next `close`, as far as a format may hold it.
  std::size_t find_close(std::string_view close, std::size_t begin) const;
  std::string_view take_word();

  void put(char c);
  void put_next() {
    put(text_[at_]);
    ++at_;
  }
  void break_word(char c);
  void put_markup(std::string const & markup);
  bool format(std::string_view command, std::size_t begin, std::string_view close);

  bool tag();
  bool known_tag(gForeignTag const & tag, std::size_t length);
  bool link(std::string_view target, std::string_view close);
  bool quoted_reference();
  bool braced_tag();
  bool ticks();
  bool stars();
  bool bracket_link();
  bool element();
  std::string_view shown_by_element(std::string const & name, std::string_view target);
  bool known_element(std::string const & name, std::string_view attributes, std::size_t end);
  bool entity();
  bool step();

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t word_ = 0; // where the word at the end of the output begins
  bool break_words_ = true;
  std::string out_;
};

std::size_t InlineText::find_close(std::string_view close, std::size_t begin) const {
  std::size_t const found = text_.substr(0, begin + longest_format).find(close, begin);
  return found == begin ? std::string_view::npos : found;
}

// Bytes that go on with a character of UTF-8 aren't parted from it.
void InlineText::break_word(char c) {
  auto const byte = static_cast<unsigned char>(c);
  std::size_t const length = out_.size() - word_;
  bool const at_end = byte < 0x80    ? length > longest_word
                      : byte >= 0xC0 ? length > longest_other_word
                                     : length > longest_other_word + 10;
  if (!at_end || !break_words_)
    return;
  out_ += ' ';
  word_ = out_.size();
}

void InlineText::put(char c) {
  if (is_blank(c)) {
    out_ += ' ';
    word_ = out_.size();
    return;
  }
  break_word(c);
  // The acute accent would open code text: in UTF-8 it goes, in other encodings it is protected.
  if (c == '\xB4' && out_.ends_with('\xC2')) {
    out_.back() = '\'';
    return;
  }
  bool const after_ascii = out_.empty() || static_cast<unsigned char>(out_.back()) < 0x80;
  bool const quote = c == '\xB4' || (c == '\xEF' && static_cast<unsigned char>(at(at_ + 1)) < 0x80);
  if (std::string_view("\\@${}<").find(c) != std::string_view::npos || (quote && after_ascii))
    out_ += '\\';
  out_ += c;
}

void InlineText::put_markup(std::string const & markup) {
  out_ += markup;
  word_ = markup.starts_with('@') ? out_.size() : std::max(word_, out_.rfind(' ') + 1);
}

std::string_view InlineText::take_word() {
  while (at_ < text_.size() && is_blank(text_[at_]))
    ++at_;
  std::size_t const begin = at_;
  while (at_ < text_.size() && !is_blank(text_[at_]))
    ++at_;
  while (at_ > begin + 1 &&
         std::string_view(".,;:!?)'\"").find(text_[at_ - 1]) != std::string_view::npos &&
         !text_.substr(begin, at_ - begin).ends_with("()"))
    --at_;
  return text_.substr(begin, at_ - begin);
}

bool InlineText::format(std::string_view command, std::size_t begin, std::string_view close) {
  std::size_t const end = find_close(close, begin);
  if (end == std::string_view::npos)
    return false;
  std::string_view const inner = text_.substr(begin, end - begin);
  put_markup(command == "tt" ? code_text(inner) : formatted_text(command, inner));
  at_ = end + close.size();
  return true;
}

bool InlineText::link(std::string_view target, std::string_view close) {
  std::size_t const end = find_close(close, at_);
  if (end == std::string_view::npos)
    return false;
  std::string_view const text = trimmed(text_.substr(at_, end - at_));
  put_markup(reference_to(target, text.empty() ? target : text));
  at_ = end + close.size();
  return true;
}

bool InlineText::quoted_reference() {
  std::string_view const target = take_word();
  if (at(at_) == ' ' && at(at_ + 1) == '"') {
    std::size_t const end = find_close("\"", at_ + 2);
    if (end != std::string_view::npos) {
      put_markup(reference_to(target, text_.substr(at_ + 2, end - at_ - 2)));
      at_ = end + 1;
      return true;
    }
  }
  put_markup(reference_to(target, target));
  return true;
}

bool InlineText::known_tag(gForeignTag const & tag, std::size_t length) {
  std::size_t const begin = at_;
  at_ += length;
  switch (tag.kind) {
  case gTagKind::code_word:
    put_markup(code_text(take_word()));
    return true;
  case gTagKind::em_word:
    put_markup(formatted_text("em", take_word()));
    return true;
  case gTagKind::bold_word:
    put_markup(formatted_text("b", take_word()));
    return true;
  case gTagKind::ref:
    return quoted_reference();
  case gTagKind::link:
    if (link(take_word(), std::string(1, text_[begin]) + std::string(tag.target)))
      return true;
    break;
  case gTagKind::formula:
    if (format("tt", at_, text_.substr(begin, length)))
      return true;
    break;
  case gTagKind::block:
    if (at(at_) == '{') // the language, as in "@code{.cpp}"
      at_ = std::min(text_.find('}', at_), text_.size() - 1) + 1;
    if (format("tt", at_, std::string(1, text_[begin]) + std::string(tag.target)))
      return true;
    break;
  case gTagKind::line_end:
    put_markup("@endl ");
    return true;
  case gTagKind::line:
    take_word();
    return true;
  case gTagKind::ignored:
    return true;
  default:
    break;
  }
  at_ = begin;
  return false;
}

bool InlineText::tag() {
  char const next = at(at_ + 1);
  bool const backslash = text_[at_] == '\\';
  if (next == '{' || next == '}') {
    // Alone it brackets a group; within text it is meant as it stands.
    bool const alone = (at_ == 0 || is_blank(text_[at_ - 1])) &&
                       (at_ + 2 >= text_.size() || is_blank(text_[at_ + 2]));
    at_ += 2;
    if (backslash && !alone)
      put(next);
    return true;
  }
  if (backslash && std::string_view("\\@&$#<>%\".").find(next) != std::string_view::npos &&
      next != '\0' && !Vlb::is_word(at(at_ + 2))) {
    at_ += 2;
    put(next);
    return true;
  }
  if (behind_word() || (at_ > 0 && text_[at_ - 1] == '\\'))
    return false;
  std::size_t end = at_ + 1;
  while (is_letter(at(end)))
    ++end;
  if (end == at_ + 2 && next == 'f' &&
      std::string_view("$[{").find(at(end)) != std::string_view::npos)
    ++end;
  gForeignTag const found = find_foreign_tag(text_.substr(at_ + 1, end - at_ - 1));
  // One letter with nothing behind it is part of a path or an escape, as in "\n" or "\a".
  bool const word_follows = is_blank(at(end)) || found.kind == gTagKind::formula ||
                            found.kind == gTagKind::block || found.kind == gTagKind::line_end ||
                            (found.kind == gTagKind::ignored && end == text_.size());
  if (found.kind == gTagKind::none || !word_follows)
    return false;
  // A quoted "\n" is a character and ends no line.
  if (found.kind == gTagKind::line_end &&
      ((end < text_.size() && !is_blank(at(end))) ||
       (at_ > 0 && std::string_view("'\"(`").find(text_[at_ - 1]) != std::string_view::npos)))
    return false;
  return known_tag(found, end - at_);
}

// {@link Name text}, {@code text}
bool InlineText::braced_tag() {
  std::size_t const end = find_close("}", at_ + 1);
  std::size_t name_end = at_ + 2;
  while (is_letter(at(name_end)))
    ++name_end;
  if (end == std::string_view::npos || name_end > end)
    return false;
  std::string_view const name = text_.substr(at_ + 2, name_end - at_ - 2);
  std::string_view const inner = trimmed(text_.substr(name_end, end - name_end));
  if (name == "link" || name == "linkplain") {
    std::string_view const target = inner.substr(0, inner.find_first_of(" \t\n"));
    std::string_view const text = trimmed(inner.substr(target.size()));
    put_markup(reference_to(target, text.empty() ? target : text));
  } else if (name == "code" || name == "literal") {
    put_markup(code_text(inner));
  }
  at_ = end + 1;
  return true;
}

bool InlineText::ticks() {
  std::size_t const count = std::min(text_.find_first_not_of('`', at_), text_.size()) - at_;
  std::string_view const mark = text_.substr(at_, count);
  if (count < longest_mark && (format("tt", at_ + count, mark) || format("tt", at_ + count, "'")))
    return true;
  for (std::size_t i = 0; i < count; ++i)
    put_next();
  return true;
}

bool InlineText::stars() {
  std::size_t const count = at(at_ + 1) == '*' ? 2 : 1;
  std::size_t const begin = at_ + count;
  if (behind_word() || is_blank(at(begin)) || at(begin) == '*')
    return false;
  std::size_t const end = find_close(std::string(count, '*'), begin);
  if (end == std::string_view::npos || is_blank(text_[end - 1]) || Vlb::is_word(at(end + count)))
    return false;
  if (text_.substr(begin, end - begin).find_first_of("*()/;=") != std::string_view::npos)
    return false;
  return format(count == 2 ? "b" : "em", begin, std::string(count, '*'));
}

// [text](address)
bool InlineText::bracket_link() {
  std::size_t const middle = find_close("](", at_ + 1);
  std::size_t const end = middle == std::string_view::npos ? middle : find_close(")", middle + 2);
  if (end == std::string_view::npos ||
      text_.substr(at_, middle - at_).find('\n') != std::string_view::npos)
    return false;
  std::string_view const address = text_.substr(middle + 2, end - middle - 2);
  if (address.find_first_of(" \t\n") != std::string_view::npos ||
      address.find("//") == std::string_view::npos)
    return false;
  put_markup(translate_inline(text_.substr(at_ + 1, middle - at_ - 1)) + " (" +
             translate_inline(address) + ")");
  at_ = end + 1;
  return true;
}

std::string_view attribute_of(std::string_view attributes, std::string_view name) {
  std::size_t begin = attributes.find(std::string(name) + "=\"");
  if (begin == std::string_view::npos)
    return {};
  begin += name.size() + 2;
  return attributes.substr(begin, attributes.find('"', begin) - begin);
}

// Behind the opening of an element: the text up to its end, which is passed over; the target
// itself if there is none near.
std::string_view InlineText::shown_by_element(std::string const & name, std::string_view target) {
  constexpr std::size_t near = 400;
  std::string const close = "</" + name + ">";
  std::string_view const behind = rest().substr(0, near);
  std::size_t const end = text_[at_ - 2] == '/' ? std::string_view::npos : behind.find(close);
  if (end == std::string_view::npos)
    return target;
  at_ += end + close.size();
  std::string_view const inner = trimmed(behind.substr(0, end));
  return inner.empty() ? target : inner;
}

bool InlineText::known_element(std::string const & name, std::string_view attributes,
                               std::size_t end) {
  if (name == "see" || name == "seealso" || name == "paramref" || name == "typeparamref") {
    std::string_view target = attribute_of(attributes, "cref");
    for (char const * other : {"langword", "href", "name"})
      if (target.empty())
        target = attribute_of(attributes, other);
    at_ = end;
    put_markup(name.starts_with("see") ? reference_to(target, shown_by_element(name, target))
                                       : code_text(target));
    return true;
  }
  bool const closing = name[0] == '/';
  std::string_view const bare = std::string_view(name).substr(closing ? 1 : 0);
  gForeignElement const * const found = find_foreign_element(bare);
  if (!found) {
    bool const ends_reference = closing && (bare == "see" || bare == "seealso");
    if (ends_reference)
      at_ = end;
    return ends_reference;
  }
  bool const is_format = found->open == "b" || found->open == "em" || found->open == "tt";
  if (!closing && is_format && format(found->open, end, "</" + std::string(bare) + ">")) {
    put_markup(std::string(found->close));
    return true;
  }
  if (!is_format)
    put_markup(std::string(closing ? found->close : found->open));
  at_ = end;
  return true;
}

bool InlineText::element() {
  std::size_t name_end = at_ + 1;
  if (at(name_end) == '/')
    ++name_end;
  while (std::isalnum(static_cast<unsigned char>(at(name_end))))
    ++name_end;
  std::size_t const end = find_close(">", at_ + 1);
  char const behind = at(name_end);
  if (end == std::string_view::npos || name_end < at_ + 2 ||
      (at(at_ + 1) != '/' && behind_word()) ||
      (behind != '>' && behind != '/' && !is_blank(behind)))
    return false;
  std::string const name = Vlb::to_lower(text_.substr(at_ + 1, name_end - at_ - 1));
  return known_element(name, text_.substr(name_end, end - name_end), end + 1);
}

bool InlineText::entity() {
  static constexpr std::pair<std::string_view, char> entities[] = {
      {"&lt;", '<'},   {"&gt;", '>'},   {"&amp;", '&'},
      {"&quot;", '"'}, {"&nbsp;", ' '}, {"&apos;", '\''}};
  for (auto const & [name, c] : entities)
    if (rest().starts_with(name)) {
      put(c);
      at_ += name.size();
      return true;
    }
  return false;
}

// What begins here, if it is more than a character.
bool InlineText::step() {
  switch (text_[at_]) {
  case '@':
  case '\\':
    return tag();
  case '{':
    return at(at_ + 1) == '@' && braced_tag();
  case '`':
    return ticks();
  case '*':
    return stars();
  case '[':
    return bracket_link();
  case '<':
    return element();
  case '&':
    return entity();
  case '%': // keeps other systems from making a reference of a word
    if (behind_word() || !is_letter(at(at_ + 1)))
      return false;
    ++at_;
    return true;
  default:
    return false;
  }
}

std::string InlineText::translate() {
  while (at_ < text_.size())
    if (!step())
      put_next();
  return std::move(out_);
}

std::string InlineText::plain(bool break_words) {
  break_words_ = break_words;
  while (at_ < text_.size())
    put_next();
  return std::move(out_);
}

} // namespace

std::string foreign_target(std::string_view word) {
  while (!word.empty() && std::string_view("#:%").find(word.front()) != std::string_view::npos)
    word.remove_prefix(1);
  word = word.substr(0, word.find('('));
  std::string target;
  for (char c : word)
    target += c == '#' ? std::string("::") : std::string(1, c);
  bool const is_name =
      !target.empty() && target.size() < 200 && (is_letter(target[0]) || target[0] == '_') &&
      std::all_of(target.begin(), target.end(),
                  [](char c) { return Vlb::is_word(c) || c == ':' || c == '.' || c == '~'; });
  return is_name && target.back() != ':' && target.back() != '.' ? target : std::string();
}

std::size_t character_end(std::string_view text, std::size_t limit) {
  std::size_t end = std::min(limit, text.size());
  for (int i = 0; i < 3 && end < text.size() && (text[end] & 0xC0) == 0x80; ++i)
    --end;
  return end;
}

std::string translate_inline(std::string_view text) {
  return InlineText(text).translate();
}

std::string code_text(std::string_view text) {
  std::string const plain = InlineText(trimmed(text)).plain(false);
  if (plain.size() > longest_format)
    return InlineText(trimmed(text)).plain(true);
  return plain.empty() ? plain : "@tt{" + plain + "}";
}

std::string formatted_text(std::string_view command, std::string_view text) {
  std::string const inner = translate_inline(text);
  if (inner.empty() || inner.size() > longest_format)
    return inner;
  return "@" + std::string(command) + "{" + inner + "}";
}

std::string reference_to(std::string_view target, std::string_view text) {
  std::string const name = foreign_target(target);
  std::string const shown = target == text ? code_text(text) : translate_inline(text);
  if (name.empty() || shown.empty() || shown.size() > longest_format)
    return shown;
  return "@cref<" + name + ">{" + shown + "}";
}

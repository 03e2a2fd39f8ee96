// Which comments document something is told by the code around them: what stands directly in front
// of a declaration, or behind it on its line, does; remarks in bodies, headings and licences don't.
#include "ana/foreign.h"

#include <algorithm>
#include <array>
#include <map>
#include <vector>

#include "ana/comments/foreign_text.h"
#include "ana/comments/words.h"
#include "ana/foreign_code.h"
#include "ana/foreign_pascal.h"
#include "vlb/gstring.h"

namespace {

constexpr std::string_view opening = "@_vlbcom ";
constexpr std::string_view closing = "@_vlecom ";
constexpr std::string_view special = "@_vlukwd ";
constexpr std::size_t looked_at = 600;     // of the code behind a comment
constexpr std::size_t longest_title = 300; // a token holds it
constexpr auto npos = std::string_view::npos;

struct Comment {
  std::size_t begin = 0, end = 0; // with the marks
  std::string_view inside;
  bool marked = false; // opened in a way that says documentation
  bool behind = false; // says that it documents what stands in front of it
  gForeignText text;
  // The code that follows.
  std::size_t next = 0;
  long feeds = 0;              // line feeds up to it
  bool direct = true;          // no comment lies between
  bool marked_between = false; // a documenting one does
  // What is made of it.
  bool kept = false;
  bool moved_up = false; // to the end of the code in front of it
  std::string tail;
};

long count_feeds(std::string_view text) {
  return std::count(text.begin(), text.end(), '\n');
}

class Adoption {
public:
  Adoption(std::string_view copy, gLanguage language) : copy_(copy), language_(language) {}
  std::string run();

private:
  void find_comments();
  void add_comment(std::size_t begin, std::size_t inner, std::size_t close, std::size_t end);
  std::size_t split_behind(std::size_t begin, std::size_t inner, std::size_t close) const;
  void look_ahead();
  void decide();
  void decide_cpp(Comment & comment);
  void read(std::size_t begin, std::size_t end);
  void decide_pascal(Comment & comment);
  bool is_noise(Comment const & comment) const;
  bool in_front(Comment const & comment) const;
  bool behind_code(Comment const & comment) const;
  bool below_code(Comment const & comment) const;
  void take_value(Comment const & comment);
  void enter_values();
  void enter_definitions();
  void print_code(std::size_t begin, std::size_t end);
  void print_comment(Comment const & comment);
  std::string unit_text(Comment const & comment) const;

  std::string_view copy_;
  gLanguage language_;
  std::vector<Comment> comments_;
  gForeignCode code_;
  gForeignPascal pascal_;
  std::size_t documented_ = npos; // the declaration that the last comment kept is in front of
  std::size_t moved_to_ = npos;   // the declaration that the last comment below one went to
  std::map<std::size_t, std::string> values_;     // of enumerations, by their braces
  std::map<std::size_t, std::string> insertions_; // texts without a comment of their own
  std::vector<gForeignCode::Hidden> hidden_;      // code that makes no elements
  std::size_t next_hidden_ = 0;
  std::string out_;
};

// A comment behind code may run on, to the eye of the reader of comments, in one that stands in
// front of the next declaration. Its text then lies left of where the first one began.
std::size_t Adoption::split_behind(std::size_t begin, std::size_t inner, std::size_t close) const {
  std::size_t const nearest = begin - std::min(begin, looked_at);
  std::size_t const feed_before = copy_.substr(nearest, begin - nearest).rfind('\n');
  std::size_t const line = nearest + (feed_before == npos ? 0 : feed_before + 1);
  if (trimmed(copy_.substr(line, begin - line)).empty())
    return npos;
  std::string_view const comment = copy_.substr(0, close);
  for (std::size_t feed = comment.find('\n', inner); feed != npos;
       feed = comment.find('\n', feed + 1)) {
    std::size_t const text = comment.find_first_not_of(" \t", feed + 1);
    if (text != npos && comment[text] != '\n' && text - feed - 1 < begin - line)
      return feed;
  }
  return npos;
}

// "<" behind the opener, unless it begins an element such as "<b>".
bool is_behind(std::string_view text) {
  if (text.starts_with('!'))
    text.remove_prefix(1);
  if (!text.starts_with('<'))
    return false;
  bool const element = text.size() > 1 && (Vlb::is_word(text[1]) || text[1] == '/');
  return !element || text.substr(0, text.find('\n')).find('>') == npos;
}

void Adoption::add_comment(std::size_t begin, std::size_t inner, std::size_t close,
                           std::size_t end) {
  Comment comment;
  comment.begin = begin;
  comment.end = end;
  std::string_view inside = copy_.substr(inner, close - inner);
  std::size_t const blanks = std::min(inside.find_first_not_of(' '), inside.size());
  comment.marked = inside.substr(blanks).starts_with(special);
  if (comment.marked)
    inside.remove_prefix(blanks + special.size());
  // A switch of the compiler may have been taken for the first line.
  if (language_ == gLanguage::pascal && trimmed(inside).starts_with('$'))
    inside.remove_prefix(std::min(inside.find('\n'), inside.size()));
  comment.inside = inside;
  std::string_view const text = trimmed(inside);
  comment.behind = !comment.marked && is_behind(text);
  comment.marked = comment.marked || text.starts_with('!') || comment.behind;
  comment.text = translate_comment(inside, comment.behind);
  comments_.push_back(std::move(comment));
}

void Adoption::find_comments() {
  for (std::size_t at = 0; (at = copy_.find(opening, at)) != npos;) {
    std::size_t const inner = at + opening.size();
    std::size_t const close = std::min(copy_.find(closing, inner), copy_.size());
    std::size_t const end = std::min(close + closing.size(), copy_.size());
    std::size_t const feed = split_behind(at, inner, close);
    if (feed == npos) {
      add_comment(at, inner, close, end);
    } else {
      add_comment(at, inner, feed, feed);
      add_comment(feed + 1, feed + 1, close, end);
    }
    at = end;
  }
}

void Adoption::look_ahead() {
  for (std::size_t i = comments_.size(); i-- > 0;) {
    Comment & comment = comments_[i];
    bool const last = i + 1 == comments_.size();
    std::size_t const end = last ? copy_.size() : comments_[i + 1].begin;
    std::size_t const code = copy_.find_first_not_of(" \t\n", comment.end);
    comment.next = std::min(code, end);
    comment.feeds = count_feeds(copy_.substr(comment.end, comment.next - comment.end));
    if (last || code < end)
      continue;
    Comment const & next = comments_[i + 1];
    comment.next = next.next;
    comment.feeds += next.feeds;
    comment.direct = false;
    comment.marked_between =
        next.marked_between || (next.marked && next.text.kind == gForeignText::unit);
  }
}

bool is_license(std::string_view text) {
  static constexpr std::string_view words[] = {"opyright", "icense", "SPDX", "OPYRIGHT", "ICENSE"};
  return std::any_of(std::begin(words), std::end(words),
                     [&](std::string_view word) { return text.find(word) != npos; });
}

// The text without its licence, which a comment at a file's head often runs together with.
std::string without_license(std::string_view text) {
  constexpr std::string_view paragraph_end = "@endp";
  std::string kept;
  while (!text.empty()) {
    std::size_t const end = std::min(text.find(paragraph_end), text.size() - 1);
    std::size_t const behind = std::min(end + paragraph_end.size(), text.size());
    std::string_view const paragraph = text.substr(0, behind);
    std::string_view const words = trimmed(paragraph.substr(0, paragraph.find(paragraph_end)));
    if (!is_license(words) && words != "!")
      kept += paragraph;
    text.remove_prefix(behind);
  }
  return kept;
}

// Switches of tools, code that is commented out, and what is no documentation by its looks.
bool Adoption::is_noise(Comment const & comment) const {
  std::string_view const text = trimmed(comment.inside);
  if (comment.text.kind == gForeignText::nothing ||
      (comment.text.kind == gForeignText::topic && trimmed(comment.text.text).empty()))
    return true;
  if (code_.last() == 0 && comment.text.kind == gForeignText::unit && is_license(text))
    return true;
  if (comment.marked || comment.text.kind != gForeignText::unit)
    return false;
  static constexpr std::string_view heads[] = {
      "NOLINT", "clang-format", "cppcheck", "IWYU",  "LINT", "lint ", "{{{", "}}}", "$",
      "#",      "coverity",     "TODO",     "FIXME", "XXX"};
  if (std::any_of(std::begin(heads), std::end(heads),
                  [&](std::string_view head) { return text.starts_with(head); }))
    return true;
  return std::string_view(";{}").find(text.back()) != npos && language_ == gLanguage::cpp;
}

// A comment that doesn't say of itself that it documents must stand directly in front.
bool Adoption::in_front(Comment const & comment) const {
  if (comment.behind || comment.next == documented_ || comment.next >= copy_.size())
    return false;
  if (comment.marked ? comment.marked_between || comment.feeds > 4
                     : !comment.direct || comment.feeds > 1)
    return false;
  return declares_something(copy_.substr(comment.next, looked_at));
}

bool Adoption::behind_code(Comment const & comment) const {
  return code_.on_line() && code_.last() == ';' && code_.line().find_first_not_of("};)") != npos &&
         code_.last_begin() != documented_ && comment.feeds > 0;
}

// Some describe a function below its declaration, with an empty line behind.
bool Adoption::below_code(Comment const & comment) const {
  bool const alone =
      comment.feeds > 1 || comment.next >= copy_.size() || copy_[comment.next] == '}';
  return !code_.on_line() && code_.last() == ';' && code_.feeds() == 1 &&
         code_.last_begin() != documented_ && code_.last_begin() != moved_to_ &&
         (comment.behind || (!comment.marked && alone));
}

std::string leading_name(std::string_view text) {
  std::size_t end = 0;
  while (end < text.size() && Vlb::is_word(text[end]))
    ++end;
  return std::string(text.substr(0, end));
}

// Up to the first command that isn't part of running text.
std::string running_part(std::string const & text) {
  static constexpr std::string_view formats[] = {"@tt{", "@b{", "@em{", "@cref<", "@endl "};
  for (std::size_t at = 0; (at = text.find('@', at)) != std::string::npos; ++at) {
    bool const escaped = at > 0 && text[at - 1] == '\\';
    bool const format =
        std::any_of(std::begin(formats), std::end(formats), [&](std::string_view f) {
          return std::string_view(text).substr(at).starts_with(f);
        });
    if (!escaped && !format)
      return text.substr(0, at);
  }
  return text;
}

void Adoption::take_value(Comment const & comment) {
  bool const behind = comment.behind || (code_.on_line() && comment.feeds > 0);
  std::string const name =
      behind ? code_.enumerator() : leading_name(copy_.substr(comment.next, looked_at));
  std::string const text = running_part(comment.text.text);
  if (!name.empty() && !trimmed(text).empty() && code_.enumeration().named)
    values_[code_.enumeration().brace] += "@enum " + code_text(name) + " " + text;
}

void Adoption::decide_cpp(Comment & comment) {
  if (code_.last() == 0 && comment.text.kind == gForeignText::topic)
    comment.text.text = without_license(comment.text.text);
  if (code_.scope() == gForeignCode::body || is_noise(comment))
    return;
  if (comment.text.kind == gForeignText::topic || comment.text.kind == gForeignText::about) {
    comment.kept = true;
    return;
  }
  if (code_.scope() == gForeignCode::enumerators)
    return take_value(comment);
  if (code_.in_parentheses())
    return;
  comment.moved_up = below_code(comment);
  if (comment.moved_up)
    moved_to_ = code_.last_begin();
  comment.kept = comment.moved_up || behind_code(comment);
  if (!comment.kept && !code_.on_line() && in_front(comment)) {
    comment.kept = true;
    documented_ = comment.next;
  }
}

// What stands directly in front of a declaration is taken.
void Adoption::decide_pascal(Comment & comment) {
  if (pascal_.in_body() || pascal_.in_implementation() || is_noise(comment))
    return;
  std::string const next = Vlb::to_lower(leading_name(copy_.substr(comment.next, looked_at)));
  static constexpr std::string_view others[] = {
      "implementation", "interface", "uses",      "end",  "begin", "private",
      "protected",      "public",    "published", "type", "var",   "const",
      "initialization", "unit",      "program"};
  bool const declares =
      !next.empty() && std::find(std::begin(others), std::end(others), next) == std::end(others);
  bool const first_unit = (next == "unit" || next == "program") && comment.marked;
  comment.kept = comment.text.kind != gForeignText::unit ||
                 (code_.on_line() ? behind_code(comment)
                                  : (declares || first_unit) &&
                                        (comment.marked ? !comment.marked_between
                                                        : comment.direct && comment.feeds <= 1));
}

void Adoption::read(std::size_t begin, std::size_t end) {
  if (language_ == gLanguage::pascal)
    pascal_.read(copy_, begin, end);
  code_.read(copy_, begin, end);
}

void Adoption::decide() {
  bool const pascal = language_ == gLanguage::pascal;
  std::size_t from = 0;
  for (Comment & comment : comments_) {
    read(from, comment.begin);
    if (pascal)
      decide_pascal(comment);
    else
      decide_cpp(comment);
    code_.skip(copy_.substr(comment.begin, comment.end - comment.begin));
    from = comment.end;
  }
  read(from, copy_.size());
  hidden_ = pascal ? std::vector{pascal_.implementation()} : code_.hidden();
}

// The values join the comment of their enumeration or, if it has none, make one.
void Adoption::enter_values() {
  for (auto const & [brace, text] : values_) {
    bool found = false;
    auto at =
        std::upper_bound(comments_.begin(), comments_.end(), brace,
                         [](std::size_t place, Comment const & c) { return place < c.begin; });
    if (at != comments_.begin() && (--at)->kept && !at->moved_up && at->next < brace &&
        copy_.substr(at->next, brace - at->next).find_first_of(";{") == npos && !at->behind) {
      at->tail = " @values " + text;
      found = true;
    }
    if (!found)
      insertions_[brace] = std::string(opening) + std::string(special) + "@values " + text + " " +
                           std::string(closing);
  }
}

// What is defined outside its class is declared in it: the definition goes, and its comment looks
// for the declaration by name.
void Adoption::enter_definitions() {
  for (Comment & comment : comments_) {
    auto const at =
        std::lower_bound(hidden_.begin(), hidden_.end(), comment.next,
                         [](auto const & d, std::size_t place) { return d.begin < place; });
    if (at == hidden_.end() || at->begin != comment.next || at->end == 0 || at->name.empty() ||
        !comment.kept || comment.text.kind != gForeignText::unit || comment.moved_up ||
        comment.end > comment.next)
      continue;
    comment.text.kind = gForeignText::about;
    comment.text.name = at->name;
  }
}

// Code that isn't to make elements leaves its line feeds.
void Adoption::print_code(std::size_t begin, std::size_t end) {
  for (std::size_t at = begin; at < end;) {
    while (next_hidden_ < hidden_.size() && hidden_[next_hidden_].end <= at)
      ++next_hidden_;
    bool const any = next_hidden_ < hidden_.size();
    gForeignCode::Hidden const place =
        any ? hidden_[next_hidden_] : gForeignCode::Hidden{end, end, {}};
    bool const hidden = place.begin <= at;
    auto const insertion = insertions_.lower_bound(at);
    if (insertion != insertions_.end() && insertion->first == at)
      out_ += insertion->second;
    std::size_t stop = std::min(end, hidden ? place.end : place.begin);
    if (auto const next = insertions_.upper_bound(at); next != insertions_.end())
      stop = std::min(stop, next->first);
    for (char c : copy_.substr(at, stop - at))
      out_ += hidden && c != '\n' ? ' ' : c;
    at = stop;
  }
}

std::string Adoption::unit_text(Comment const & comment) const {
  gForeignText const & text = comment.text;
  switch (text.kind) {
  case gForeignText::about:
    return "@about " + text.name + " | @description " + text.text;
  case gForeignText::topic:
    // With a name of its own it can't be taken for the description of what follows.
    return "@text vl_topic @noxe @hdline{" +
           translate_inline(text.name.substr(0, character_end(text.name, longest_title))) + "} " +
           text.text;
  default:
    return std::string(special) + text.text;
  }
}

void Adoption::print_comment(Comment const & comment) {
  std::string_view const whole = copy_.substr(comment.begin, comment.end - comment.begin);
  std::string unit;
  if (comment.kept)
    unit = std::string(opening) + unit_text(comment) + comment.tail + " " + std::string(closing);
  std::string blanks;
  if (comment.moved_up) {
    std::size_t const text_end = out_.find_last_not_of(" \t\n") + 1;
    blanks = out_.substr(text_end);
    out_.resize(text_end);
    out_ += ' ';
  }
  out_ += unit + blanks;
  // It may have been what parted two words.
  if (!out_.empty() && Vlb::is_word(out_.back()))
    out_ += ' ';
  out_.append(static_cast<std::size_t>(std::max(0L, count_feeds(whole) - count_feeds(unit))), '\n');
}

std::string Adoption::run() {
  find_comments();
  look_ahead();
  decide();
  enter_values();
  enter_definitions();
  std::size_t from = 0;
  for (Comment const & comment : comments_) {
    print_code(from, comment.begin);
    print_comment(comment);
    from = comment.end;
  }
  print_code(from, copy_.size());
  return std::move(out_);
}

} // namespace

std::string adopt_comments(std::string_view copy, gLanguage language) {
  return Adoption(copy, language).run();
}

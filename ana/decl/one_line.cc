// Stretches of a source as a reader of pages sees them: one line, without comments and directives.
// A small scan of its own, since a range may begin anywhere and belong to either language.
#include "ana/decl/declaration.h"

#include <algorithm>
#include <array>
#include <span>

namespace Decl {

namespace {

bool is_blank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

bool is_word(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

// What a line doesn't show as it is begins with one of these.
constexpr std::array<bool, 256> table_of(std::string_view signs) {
  std::array<bool, 256> table{};
  for (char const c : signs)
    table[static_cast<unsigned char>(c)] = true;
  return table;
}

constexpr std::array<bool, 256> special_cpp = table_of(" \t\n\v\f\r/\\#");
constexpr std::array<bool, 256> special_pascal = table_of(" \t\n\v\f\r/{(");

std::array<bool, 256> const & special_of(gSyntax syntax) {
  return syntax == gSyntax::cpp ? special_cpp : special_pascal;
}

class Line {
public:
  Line(std::string_view text, gSyntax syntax)
      : text_(text),
        cpp_(syntax == gSyntax::cpp),
        special_(special_of(syntax)) {}

  // A place in the text that is to become the one in the line. An end belongs to the token in front
  // of it, a begin to the one behind.
  struct Mark {
    std::uint32_t * place;
    bool ends;
  };
  // The marks stay the caller's, who has few of them.
  void follow(std::span<Mark> marks) {
    marks_ = marks;
    for (std::size_t i = 1; i < marks.size(); ++i)
      for (std::size_t at = i; at > 0 && *marks[at].place < *marks[at - 1].place; --at)
        std::swap(marks[at], marks[at - 1]);
  }

  std::string made() {
    line_.reserve(text_.size());
    while (at_ < text_.size()) {
      if (!blanks_or_comment())
        code();
    }
    settle(true, text_.size());
    settle(false, text_.size());
    return std::move(line_);
  }

private:
  std::string_view text_;
  bool cpp_;
  std::array<bool, 256> const & special_;
  std::size_t at_ = 0;
  bool line_head_ = false; // a range begins within its line, so a "#" there is no directive
  bool gap_ = false;
  bool remark_ = false; // in the gap
  std::string line_;
  std::span<Mark> marks_; // that aren't settled yet, by place

  // The marks of one sort up to a place of the text stand at the end of the line.
  void settle(bool ends, std::size_t up_to) {
    std::size_t settled = 0;
    for (std::size_t i = 0; i < marks_.size() && *marks_[i].place <= up_to; ++i)
      if (marks_[i].ends == ends) {
        *marks_[i].place = static_cast<std::uint32_t>(line_.size());
        std::rotate(marks_.begin() + static_cast<std::ptrdiff_t>(settled),
                    marks_.begin() + static_cast<std::ptrdiff_t>(i),
                    marks_.begin() + static_cast<std::ptrdiff_t>(i + 1));
        ++settled;
      }
    marks_ = marks_.subspan(settled);
  }

  bool starts(std::string_view with) const { return text_.substr(at_).starts_with(with); }

  // Behind the next `mark`, or at the end.
  std::size_t behind(std::string_view mark, std::size_t from) const {
    std::size_t const found = text_.find(mark, from);
    return found == text_.npos ? text_.size() : found + mark.size();
  }

  void skip_to(std::size_t end) {
    at_ = std::min(end, text_.size());
    gap_ = true;
  }

  void skip_remark(std::size_t end) {
    skip_to(end);
    remark_ = true;
  }

  bool blanks_or_comment() {
    char const c = text_[at_];
    if (!special_[static_cast<unsigned char>(c)])
      return false;
    if (is_blank(c)) {
      line_head_ = line_head_ || c == '\n';
      skip_to(at_ + 1);
    } else if (starts("//"))
      skip_remark(line_end(at_));
    else if (cpp_ && starts("/*"))
      skip_remark(behind("*/", at_ + 2));
    else if (cpp_ && c == '\\' && (starts("\\\n") || starts("\\\r\n")))
      skip_to(at_ + 1);
    else if (cpp_ && c == '#' && line_head_)
      directive();
    else if (!cpp_ && c == '{')
      braces();
    else if (!cpp_ && starts("(*"))
      skip_remark(behind("*)", at_ + 2));
    else
      return false;
    return true;
  }

  // The word of a directive such as "{$ifdef X}" in lower case; empty for a comment.
  std::string switch_word(std::size_t open) const {
    std::string word;
    if (text_.substr(open).starts_with("{$"))
      for (std::size_t at = open + 2; at < text_.size() && is_word(text_[at]); ++at)
        word += static_cast<char>(text_[at] | 0x20);
    return word;
  }

  // A comment, or a directive: again the first of the branches is shown.
  void braces() {
    std::string word = switch_word(at_);
    skip_remark(behind("}", at_ + 1));
    if (!word.starts_with("else"))
      return;
    for (int depth = 1; depth > 0 && at_ < text_.size();) {
      at_ = std::min(text_.find("{$", at_), text_.size());
      word = switch_word(at_);
      bool const ends = word == "endif" || word == "ifend" || word == "endc";
      depth += ends ? -1 : word.starts_with("if") ? 1 : 0;
      skip_to(behind("}", at_));
    }
  }

  // The next line feed that no backslash of C continues.
  std::size_t line_end(std::size_t from) const {
    std::size_t end = text_.find('\n', from);
    while (
        cpp_ && end != text_.npos && end > 0 &&
        (text_[end - 1] == '\\' || (end > 1 && text_[end - 1] == '\r' && text_[end - 2] == '\\')))
      end = text_.find('\n', end + 1);
    return std::min(end, text_.size());
  }

  std::string_view directive_word(std::size_t at) const {
    at = std::min(text_.find_first_not_of(" \t", at + 1), text_.size());
    std::size_t const begin = at;
    while (at < text_.size() && is_word(text_[at]))
      ++at;
    return text_.substr(begin, at - begin);
  }

  // Of branches within one declaration the first is shown.
  void directive() {
    std::string_view const word = directive_word(at_);
    skip_to(line_end(at_));
    if (word != "else" && !word.starts_with("elif"))
      return;
    for (int depth = 1; depth > 0 && at_ < text_.size();) {
      at_ = std::min(text_.find_first_not_of(" \t\r\n", at_), text_.size());
      if (at_ < text_.size() && text_[at_] == '#') {
        std::string_view const inner = directive_word(at_);
        depth += inner.starts_with("if") ? 1 : inner == "endif" ? -1 : 0;
      }
      at_ = line_end(at_);
    }
  }

  // Parameters on lines of their own, and remarks, leave no blanks within the brackets.
  bool is_tight() const {
    char const next = text_[at_];
    return ((line_head_ || remark_) && (line_.back() == '(' || next == ')')) ||
           (remark_ && (next == ',' || next == ';'));
  }

  void code() {
    std::size_t const end = token_end();
    settle(true, at_);
    if (gap_ && !line_.empty() && !is_tight())
      line_ += ' ';
    settle(false, at_);
    gap_ = line_head_ = remark_ = false;
    std::size_t const begin = line_.size();
    line_ += text_.substr(at_, end - at_);
    bool const word = is_word(text_[at_]) && is_word(text_[end - 1]);
    if (!word && end - at_ > 1) // a literal, perhaps over several lines
      std::replace_if(
          line_.begin() + static_cast<std::ptrdiff_t>(begin), line_.end(),
          [](char c) { return c == '\n' || c == '\r'; }, ' ');
    at_ = end;
  }

  std::size_t token_end() const {
    char const c = text_[at_];
    if (c == '\'' || (c == '"' && cpp_))
      return literal_end(at_);
    if (!is_word(c))
      return at_ + 1;
    bool const number = cpp_ && c >= '0' && c <= '9';
    std::size_t end = at_ + 1;
    while (end < text_.size() && (is_word(text_[end]) || (number && text_[end] == '\'')))
      ++end;
    bool const raw = cpp_ && text_[end - 1] == 'R' && end - at_ <= 3;
    return raw && end < text_.size() && text_[end] == '"' ? raw_end(end) : end;
  }

  std::size_t literal_end(std::size_t begin) const {
    for (std::size_t at = begin + 1; at < text_.size(); ++at) {
      if (text_[at] == '\\' && cpp_)
        ++at;
      else if (text_[at] == text_[begin] || text_[at] == '\n')
        return at + 1;
    }
    return text_.size();
  }

  std::size_t raw_end(std::size_t quote) const {
    std::size_t const open = text_.find('(', quote);
    if (open == text_.npos || open - quote > 17)
      return literal_end(quote);
    return behind(")" + std::string(text_.substr(quote + 1, open - quote - 1)) + "\"", open);
  }
};

// True if a text without literals is on one line already: most declarations are.
bool is_line(std::string_view text, gSyntax syntax) {
  auto const & special = special_of(syntax);
  bool blank = true; // what stands in front is a blank or nothing
  for (char const c : text) {
    if (c == ' ' ? blank : special[static_cast<unsigned char>(c)] || c == '"' || c == '\'')
      return false;
    blank = c == ' ';
  }
  return !blank;
}

// Where such a text has a mark that needn't move.
bool at_token(std::string_view line, Line::Mark const & mark) {
  std::size_t const at = *mark.place;
  bool const within = at > 0 && at < line.size() && is_word(line[at - 1]) && is_word(line[at]);
  return !within &&
         (mark.ends ? at > 0 && line[at - 1] != ' ' : at < line.size() && line[at] != ' ');
}

} // namespace

std::string one_line(std::string_view text, gRange range, gSyntax syntax) {
  std::string_view const part = range.of(text);
  auto const & special = special_of(syntax);
  if (std::none_of(part.begin(), part.end(),
                   [&](char c) { return special[static_cast<unsigned char>(c)]; }))
    return std::string(part); // most names
  if (is_line(part, syntax))
    return std::string(part);
  return Line(range.of(text), syntax).made();
}

std::string one_line(std::string_view text, gRange range, gSyntax syntax,
                     std::initializer_list<gRange *> parts) {
  std::array<Line::Mark, 2 * most_parts> marks;
  std::size_t count = 0;
  for (gRange * part : parts) {
    bool const inside = !part->empty() && part->begin >= range.begin && part->end <= range.end;
    *part = inside ? gRange{part->begin - range.begin, part->end - range.begin} : gRange();
    if (inside && count < marks.size()) {
      marks[count++] = {&part->begin, false};
      marks[count++] = {&part->end, true};
    }
  }
  if (std::string_view const whole = range.of(text);
      is_line(whole, syntax) && std::all_of(marks.begin(), marks.begin() + count,
                                            [&](auto & mark) { return at_token(whole, mark); }))
    return std::string(whole);
  Line line(range.of(text), syntax);
  line.follow({marks.data(), count});
  return line.made();
}

std::string_view template_head(std::string_view text, gFileDeclarations const & file,
                               gDeclaration const & one) {
  return one.spelled_head < 0 ? one.template_head.of(text)
                              : file.spelled[static_cast<std::size_t>(one.spelled_head)];
}

std::string_view parameter_list(std::string_view text, gFileDeclarations const & file,
                                gDeclaration const & one) {
  return one.spelled_list < 0 ? one.parameter_list.of(text)
                              : file.spelled[static_cast<std::size_t>(one.spelled_list)];
}

std::string shown_name(std::string_view text, gFileDeclarations const & file,
                       gDeclaration const & one, gSyntax syntax) {
  if (one.spelled >= 0)
    return file.spelled[static_cast<std::size_t>(one.spelled)];
  std::string line = one_line(text, one.name, syntax);
  if (line.find(' ') == line.npos)
    return line;
  std::string name;
  for (std::size_t at = 0; at < line.size(); ++at) {
    bool const between_words = at > 0 && at + 1 < line.size() && is_word(line[at - 1]) &&
                               (is_word(line[at + 1]) || line[at + 1] == ':');
    if (line[at] != ' ' || between_words)
      name += line[at];
  }
  return name;
}

} // namespace Decl

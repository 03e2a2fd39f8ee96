// A comment is read line by line. Lines of text gather to a paragraph; tags at the head of a line
// open subentries, markers open items, and blocks of code stand as they are.
#include "ana/comments/foreign_text.h"

#include <algorithm>
#include <cctype>

#include "ana/comments/foreign_comment.h"
#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

// "@name" or "\name" at the head of a text; its length in `length`.
gForeignTag tag_at(std::string_view text, std::size_t & length) {
  length = 1;
  if (text.size() < 2 || (text[0] != '@' && text[0] != '\\'))
    return {};
  while (length < text.size() && std::isalpha(static_cast<unsigned char>(text[length])))
    ++length;
  if (length == 2 && text[1] == 'f' && length < text.size() && (text[2] == '[' || text[2] == '{'))
    ++length;
  else if (length < text.size() && Vlb::is_word(text[length]))
    return {};
  return find_foreign_tag(text.substr(1, length - 1));
}

std::string attribute_value(std::string_view text) {
  std::size_t const begin = text.find('"');
  std::size_t const end = begin == std::string_view::npos ? begin : text.find('"', begin + 1);
  return end == std::string_view::npos ? std::string()
                                       : std::string(text.substr(begin + 1, end - begin - 1));
}

} // namespace

gForeignComment::gForeignComment(std::string_view comment, bool behind) {
  line_feeds_ = static_cast<std::size_t>(std::count(comment.begin(), comment.end(), '\n'));
  lines_ = split(comment);
  strip_openers(behind);
  measure();
}

std::vector<gForeignComment::Line> gForeignComment::split(std::string_view comment) const {
  std::vector<Line> lines;
  for (std::size_t begin = 0; begin <= comment.size();) {
    std::size_t const end = std::min(comment.find('\n', begin), comment.size());
    lines.push_back({{}, comment.substr(begin, end - begin), 0});
    begin = end + 1;
  }
  return lines;
}

// What is left of the openers "/*!", "//!", "///<" and their kin stands at the heads of lines.
void gForeignComment::strip_openers(bool behind) {
  std::string_view const first = trimmed(lines_[0].whole);
  bool const marked = first.starts_with('!');
  for (Line & line : lines_) {
    std::size_t at = std::min(line.whole.find_first_not_of(" \t"), line.whole.size());
    std::size_t const begin = at;
    if (marked && at < line.whole.size() && line.whole[at] == '!')
      ++at;
    bool const bracket = at < line.whole.size() && line.whole[at] == '<';
    if (behind && bracket &&
        (at + 1 == line.whole.size() || line.whole[at + 1] == ' ' || &line == &lines_[0]))
      ++at;
    if (at > begin)
      line.whole.remove_prefix(at);
  }
}

// Indentation counts from the leftmost line; the first one stands behind the opener.
void gForeignComment::measure() {
  std::size_t least = std::string_view::npos;
  for (Line & line : lines_) {
    line.text = trimmed(line.whole);
    line.indent = std::min(line.whole.find_first_not_of(" \t"), line.whole.size());
    if (!line.text.empty() && &line != &lines_[0])
      least = std::min(least, line.indent);
  }
  for (Line & line : lines_)
    line.indent = &line == &lines_[0] || line.indent < least ? 0 : line.indent - least;
}

bool gForeignComment::read_tag(std::string_view text, std::size_t indent) {
  std::size_t length = 0;
  gForeignTag const tag = tag_at(text, length);
  switch (tag.kind) {
  case gTagKind::none:
  case gTagKind::block:
  case gTagKind::code_word:
  case gTagKind::em_word:
  case gTagKind::bold_word:
  case gTagKind::ref:
  case gTagKind::link:
  case gTagKind::formula:
  case gTagKind::line_end:
    return false;
  default:
    break;
  }
  std::string_view rest = text.substr(length);
  if (!rest.empty() && rest[0] == ':')
    rest.remove_prefix(1);
  take_tag(tag, trimmed(rest), indent);
  return true;
}

bool gForeignComment::read_item(std::string_view text, std::size_t indent) {
  std::size_t length = 0;
  if (text.starts_with("-# "))
    length = 2;
  else if (std::string_view("-*+").find(text[0]) != std::string_view::npos)
    length = 1;
  else if (text.starts_with("\xE2\x80\xA2"))
    length = 3;
  else
    while (length < 3 && length < text.size() && is_digit(text[length]))
      ++length;
  if (length > 0 && is_digit(text[0])) {
    if (length == text.size() || (text[length] != '.' && text[length] != ')') ||
        !(in_item_ || paragraph_.empty()))
      return false;
    ++length;
  }
  if (length == 0 || length >= text.size() || text[length] != ' ')
    return false;
  begin_item(indent);
  paragraph_ = is_digit(text[0]) ? text : trimmed(text.substr(length));
  return true;
}

// ``` or ~~~, @code ... @endcode, <pre> ... </pre>
bool gForeignComment::read_fence(std::size_t & i) {
  std::string_view const head = lines_[i].text;
  std::string close;
  std::size_t length = 0;
  if (head.starts_with("```") || head.starts_with("~~~"))
    close = head.substr(0, 3);
  else if (head == "<pre>" || head == "<code>" || head == "<pre><code>")
    close = "</" + std::string(head.substr(1, head.find('>')));
  else if (gForeignTag const tag = tag_at(head, length); tag.kind == gTagKind::block)
    close = std::string(1, head[0]) + std::string(tag.target);
  if (close.empty() || head.find(close, 3) != std::string_view::npos || unclosed_.contains(close))
    return false;
  std::vector<Line> block;
  std::size_t end = i + 1;
  for (; end < lines_.size() && lines_[end].text.find(close) == std::string_view::npos; ++end)
    block.push_back(lines_[end]);
  if (end == lines_.size()) {
    unclosed_.insert(close);
    return false;
  }
  put_verbatim(block);
  i = end;
  return true;
}

// Four columns more than the text around it, behind an empty line.
bool gForeignComment::read_indented(std::size_t & i) {
  std::size_t length = 0;
  if (!break_pending_ || in_item_ || lines_[i].indent < entry_indent_ + 4 ||
      tag_at(lines_[i].text, length).kind != gTagKind::none)
    return false;
  std::size_t end = i;
  std::vector<Line> block;
  for (std::size_t at = i; at < lines_.size(); ++at) {
    if (!lines_[at].text.empty() && lines_[at].indent < entry_indent_ + 4)
      break;
    if (!lines_[at].text.empty())
      end = at;
  }
  std::copy(lines_.begin() + static_cast<std::ptrdiff_t>(i),
            lines_.begin() + static_cast<std::ptrdiff_t>(end + 1), std::back_inserter(block));
  put_verbatim(block);
  i = end;
  return true;
}

// The elements that stand for parts of a comment, as tags.
std::string gForeignComment::from_xml(std::string_view text) const {
  static constexpr std::pair<std::string_view, std::string_view> parts[] = {
      {"<param ", "@param "},     {"<typeparam ", "@tparam "}, {"<exception ", "@throws "},
      {"<returns>", "@return "},  {"<remarks>", "@note "},     {"<value>", "@return "},
      {"<example>", "@example "}, {"<seealso ", "@see "}};
  for (auto const & [element, tag] : parts) {
    if (!text.starts_with(element))
      continue;
    std::size_t const end = std::min(text.find('>'), text.size() - 1);
    std::string name = attribute_value(text.substr(0, end));
    return std::string(tag) + name + " " + std::string(text.substr(end + 1));
  }
  return std::string(text);
}

void gForeignComment::read_part(std::string_view text, std::size_t indent) {
  if (read_tag(text, indent) || read_item(text, indent))
    return;
  if (std::size_t const level = text.find_first_not_of('#');
      level != std::string_view::npos && level > 0 && level < 5 && text[level] == ' ' &&
      paragraph_.empty())
    return put_title(trimmed(text.substr(level)));
  add(text, indent);
}

// Tags that open a part do so in the middle of a line, too: "@brief Text. @return text".
void gForeignComment::read_parts(Line const & line) {
  std::string_view text = line.text;
  for (std::size_t at = 1; at < text.size(); ++at) {
    std::size_t length = 0;
    if ((text[at] != '@' && text[at] != '\\') || text[at - 1] != ' ' ||
        !begins_part(tag_at(text.substr(at), length).kind) || at + length >= text.size() ||
        (text[at + length] != ' ' && text[at + length] != '['))
      continue;
    read_part(trimmed(text.substr(0, at)), line.indent);
    text = text.substr(at);
    at = 0;
  }
  read_part(text, line.indent);
}

void gForeignComment::read_line(std::size_t & i) {
  Line const & line = lines_[i];
  if (line.text.empty())
    return end_paragraph();
  if (read_fence(i) || read_indented(i))
    return;
  if (line.text.find_first_not_of("=-~_*#/+. ") == std::string_view::npos && line.text.size() > 2)
    return; // a rule
  if (line.text[0] != '<')
    return read_parts(line);
  std::string const text = from_xml(line.text);
  if (text[0] == '<')
    return read_parts(line);
  read_parts({text, line.whole, line.indent});
}

gForeignText gForeignComment::translate() {
  for (std::size_t i = 0; i < lines_.size(); ++i)
    read_line(i);
  flush();
  if (result_.kind == gForeignText::nothing && !trimmed(out_).empty())
    result_.kind = gForeignText::unit;
  result_.text = std::move(out_);
  return std::move(result_);
}

gForeignText translate_comment(std::string_view comment, bool behind) {
  return gForeignComment(comment, behind).translate();
}

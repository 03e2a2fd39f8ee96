// What is read of a comment is written as mark-up of text units. The result is one line but for
// blocks of code, so that it never has more lines than the comment.
#include "ana/comments/foreign_comment.h"
#include "ana/comments/words.h"

#include <algorithm>
#include <cctype>

#include "vlb/gstring.h"

namespace {

constexpr std::size_t longest_code_line = 900;
constexpr std::string_view description = "@description";

} // namespace

// The paragraph so far. What it opens is written only now, so that nothing empty is.
void gForeignComment::flush() {
  std::string_view const raw = trimmed(paragraph_);
  if (!raw.empty()) {
    std::string const text = in_references_ ? std::string(raw) : translate_inline(raw);
    if (!trimmed(text).empty()) {
      out_ += text;
      out_ += ' ';
      has_text_ = true;
    }
  }
  paragraph_.clear();
}

void gForeignComment::end_paragraph() {
  flush();
  break_pending_ = true;
}

void gForeignComment::open_entry(std::string_view entry, std::size_t indent) {
  flush();
  described_ = described_ || (entry_ == description && has_text_);
  in_item_ = in_references_ = break_pending_ = false;
  entry_indent_ = indent;
  if (entry == entry_) {
    if (has_text_)
      out_ += "@endp ";
    return;
  }
  entry_ = entry;
  if (result_.kind == gForeignText::topic) {
    std::string title(entry.substr(1));
    title[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(title[0])));
    out_ += entry == description ? "@endp " : "@endp @b{" + title + "} @endl ";
  } else {
    out_ += entry_ + " ";
    bool const goes_on = entry == description;
    if (!used_.insert(entry_).second || goes_on)
      out_ += "@endp ";
  }
  has_text_ = false;
}

// "[in,out] name - text". Items of one kind that follow each other are one list.
void gForeignComment::open_named(std::string_view entry, std::string_view rest,
                                 std::size_t indent) {
  flush();
  auto const [direction, name, words] = named_item(rest);
  if (name.empty())
    return;
  if (entry != entry_)
    open_entry(entry, indent);
  in_references_ = break_pending_ = false;
  in_item_ = true;
  entry_indent_ = item_indent_ = indent;
  out_ += "@enum " + (entry == "@throws" ? reference_to(name, name) : code_text(name)) + " ";
  if (!direction.empty())
    out_ += "(" + translate_inline(direction) + ") ";
  has_text_ = true;
  paragraph_ = words;
}

void gForeignComment::begin_item(std::size_t indent) {
  flush();
  if (!in_item_ && break_pending_ && has_text_ && indent <= entry_indent_ && entry_ != description)
    open_entry(description, indent);
  out_ += "@enum ";
  in_item_ = true;
  break_pending_ = false;
  item_indent_ = indent;
}

void gForeignComment::put_title(std::string_view title) {
  flush();
  if (title.empty())
    return;
  if (has_text_)
    out_ += "@endp ";
  out_ += formatted_text("b", title) + " @endp ";
  in_item_ = break_pending_ = false;
  has_text_ = true;
}

// Words that are names become references, commas stay between them.
void gForeignComment::take_references(std::string_view rest) {
  if (entry_ != "@see" || !has_text_)
    open_entry("@see", entry_indent_);
  else
    out_ += ", ";
  in_references_ = true;
  std::string list;
  for (std::size_t begin = 0; begin < rest.size();) {
    std::size_t const end = std::min(rest.find(',', begin), rest.size());
    std::string_view const word = trimmed(rest.substr(begin, end - begin));
    if (!list.empty() && !word.empty())
      list += ", ";
    list += word.find(' ') == std::string_view::npos && !foreign_target(word).empty()
                ? reference_to(word, word)
                : translate_inline(word);
    begin = end + 1;
  }
  paragraph_ = list;
  flush();
  in_references_ = false;
  break_pending_ = true;
}

void gForeignComment::take_topic(gForeignTag const & tag, std::string_view rest) {
  if (tag.target == "id")
    rest = trimmed(rest.substr(std::min(rest.find_first_of(" \t"), rest.size())));
  if (result_.kind == gForeignText::topic)
    return;
  result_.kind = gForeignText::topic;
  result_.name = tag.target == "id" || tag.target.empty()
                     ? std::string(rest)
                     : std::string(tag.target) + " " + std::string(rest.substr(0, rest.find('(')));
}

// The name in "void ns::A::f(int)" or "Name header.h".
void gForeignComment::take_about(std::string_view rest) {
  std::size_t const op = rest.find("operator");
  std::string_view const head =
      rest.substr(0, rest.find('(', op == std::string_view::npos ? 0 : op + 10));
  std::size_t const space = trimmed(head).rfind(' ');
  bool const is_function = head.size() < rest.size();
  std::string_view const name = !is_function ? rest.substr(0, rest.find_first_of(" \t"))
                                : space == std::string_view::npos
                                    ? trimmed(head)
                                    : trimmed(trimmed(head).substr(space + 1));
  std::string const target =
      foreign_target(name.substr(std::min(name.find_first_not_of("*&"), name.size())));
  if (target.empty() || result_.kind == gForeignText::topic)
    return;
  result_.kind = gForeignText::about;
  result_.name = target;
}

void gForeignComment::take_tag(gForeignTag const & tag, std::string_view rest, std::size_t indent) {
  switch (tag.kind) {
  case gTagKind::entry:
    open_entry(tag.target, indent);
    paragraph_ = rest;
    break;
  case gTagKind::named:
    open_named(tag.target, rest, indent);
    break;
  case gTagKind::refs:
    flush();
    take_references(rest);
    break;
  case gTagKind::title:
    if (tag.target == "id")
      rest = trimmed(rest.substr(std::min(rest.find_first_of(" \t"), rest.size())));
    put_title(rest);
    break;
  case gTagKind::item:
    begin_item(indent);
    paragraph_ = rest;
    break;
  case gTagKind::topic:
    take_topic(tag, rest);
    break;
  case gTagKind::about:
    take_about(rest);
    break;
  case gTagKind::ignored:
    if (!rest.empty())
      add(rest, indent);
    break;
  default:
    break;
  }
}

// A line of running text.
void gForeignComment::add(std::string_view text, std::size_t indent) {
  if (break_pending_) {
    bool const goes_on = indent > (in_item_ ? item_indent_ : entry_indent_);
    if (in_item_ && goes_on) {
      out_ += "@endl ";
    } else if (entry_ != description && !goes_on) {
      open_entry(description, indent);
    } else if (has_text_) {
      out_ += "@endp ";
      in_item_ = false;
    }
    break_pending_ = false;
  }
  if (!paragraph_.empty())
    paragraph_ += ' ';
  paragraph_ += text;
}

void gForeignComment::put_verbatim(std::vector<Line> const & lines) {
  flush();
  if (lines.empty())
    return;
  if (line_feeds_ < lines.size() + 1) {
    out_ += code_text(lines[0].text) + " ";
    return;
  }
  line_feeds_ -= lines.size() + 1;
  out_ += "@b_verbatim\n";
  for (Line const & line : lines) {
    std::string text(line.whole.substr(0, character_end(line.whole, longest_code_line)));
    for (std::size_t end = 0; (end = text.find("@e_verbatim", end)) != std::string::npos;)
      text.erase(end, 1);
    out_ += text + "\n";
  }
  out_ += "@e_verbatim ";
  has_text_ = true;
  break_pending_ = !in_item_;
}

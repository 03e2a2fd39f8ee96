// A comment is read line by line. Commands at the head of a line open parts; all other lines gather
// to the Markdown of the part. A paragraph that isn't indented, behind an empty line, is
// description again.
#include "ana/comments/translator.h"

#include <algorithm>

#include "ana/comments/brackets.h"
#include "ana/comments/html_elements.h"
#include "ana/comments/markdown.h"
#include "ana/comments/name_marks.h"
#include "ana/comments/restructured.h"
#include "ana/comments/words.h"
#include "ana/comments/xml_blocks.h"
#include "vlb/gstring.h"

namespace {

constexpr std::string_view description = "@description";
constexpr auto npos = std::string_view::npos;

bool is_rule(std::string_view line) {
  return line.size() > 2 && line.find_first_not_of("=-~_*#/+. ") == npos;
}

// Marks of lists, titles, tables, quotes and fences mean something at the head of a line.
bool is_item(std::string_view line) {
  if (line.size() > 2 && std::string_view("-*+").find(line[0]) != npos && line[1] == ' ')
    return true;
  std::size_t digits = 0;
  while (digits < line.size() && digits < 3 && Vlb::is_digit(line[digits]))
    ++digits;
  return digits > 0 && digits + 1 < line.size() && (line[digits] == '.' || line[digits] == ')') &&
         line[digits + 1] == ' ';
}

// What a line is read apart for; in lists and tables of commands their parts, too.
bool begins_piece(gCommand const & command, bool in_list) {
  using enum gCommandKind;
  bool const part = command.kind == item || command.kind == begin || command.kind == end;
  return Commands::begins_part(command.kind) || (in_list && part) ||
         (command.kind == gCommandKind::group && command.target == "member");
}

// "@{" or "@}", which brackets what belongs to a group.
bool is_bracket(std::string_view text) {
  return text.size() > 1 && (text[0] == '@' || text[0] == '\\') &&
         (text[1] == '{' || text[1] == '}');
}

// Where the brackets at the end of a line begin.
std::size_t brackets_behind(std::string_view line) {
  std::size_t end = line.size();
  while (true) {
    std::size_t const last = line.substr(0, end).find_last_not_of(" \t");
    bool const found = last != npos && last > 1 && line[last - 1] == '@' &&
                       (line[last - 2] == ' ' || line[last - 2] == '\t') &&
                       is_bracket(line.substr(last - 1));
    if (!found)
      return end;
    end = last - 1;
  }
}

} // namespace

std::string without_marks(std::string_view comment) {
  std::string text;
  text.reserve(comment.size());
  for (char c : comment)
    if (c != '\x01' && c != '\x02' && c != '\r')
      text += c;
  return text;
}

gCommentTranslator::gCommentTranslator(std::string_view comment, gCommentHints const * hints,
                                       gCommentOptions const & options)
    : comment_(without_restructured(without_marks(comment))),
      hints_(hints),
      options_(options),
      inline_(tokens_, hints, result_.unknown) {
  inline_.find_pictures([this](std::string_view name) { return picture(name); });
  comment_ = without_xml_blocks(comment_, tokens_);
  if (hints && hints->pascal)
    comment_ = without_brackets(comment_, *hints, tokens_);
  split();
  measure();
  parts_.push_back({std::string(description), gRichText(), false});
}

void gCommentTranslator::split() {
  std::string_view const comment = comment_;
  for (std::size_t begin = 0; begin <= comment.size();) {
    std::size_t const end = std::min(comment.find('\n', begin), comment.size());
    lines_.push_back({{}, comment.substr(begin, end - begin), 0});
    begin = end + 1;
  }
}

// Indentation counts from the leftmost line; the first one stands behind the opener.
void gCommentTranslator::measure() {
  std::size_t least = npos;
  for (Line & line : lines_) {
    line.text = trimmed(line.whole);
    line.indent = std::min(line.whole.find_first_not_of(" \t"), line.whole.size());
    if (!line.text.empty() && &line != &lines_[0])
      least = std::min(least, line.indent);
  }
  for (Line & line : lines_)
    line.indent = &line == &lines_[0] || line.indent < least ? 0 : line.indent - least;
}

// ``` or ~~~, @code ... @endcode, <pre> ... </pre>
bool gCommentTranslator::read_block(std::size_t & i) {
  std::string_view const head = lines_[i].text;
  std::string close, language;
  std::size_t length = 0;
  if (head.starts_with("```") || head.starts_with("~~~")) {
    close = head.substr(0, std::min(head.find_first_not_of(head[0]), head.size()));
    language = trimmed(head.substr(close.size()));
  } else if (head == "<pre>" || head == "<code>" || head == "<pre><code>" ||
             head == "<pre>{@code") {
    close = head == "<code>" ? "</code>" : "</pre>";
  } else if (gCommand const command = Commands::at(head, length);
             command.kind == gCommandKind::block || command.name == "f[" || command.name == "f{") {
    close = head[0] + std::string(command.target);
    std::string_view const rest = head.substr(length);
    if (rest.starts_with('{'))
      language = rest.substr(1, std::min(rest.find('}'), rest.size()) - 1);
  }
  if (close.empty() || !described_name(head).empty() || head.find(close, 3) != npos ||
      unclosed_.contains(close))
    return false;
  while (language.starts_with('.') || language.starts_with('{'))
    language.erase(0, 1);
  std::size_t end = i + 1, least = npos;
  for (; end < lines_.size() && lines_[end].text.find(close) == npos; ++end)
    if (!lines_[end].text.empty())
      least = std::min(least, lines_[end].whole.find_first_not_of(" \t"));
  if (end == lines_.size()) {
    unclosed_.insert(close);
    return false;
  }
  std::string block;
  for (std::size_t at = i + 1; at < end; ++at)
    (block += lines_[at].whole.substr(std::min(least, lines_[at].whole.size()))) += '\n';
  std::string const formula = close.ends_with('}')
                                  ? "\\begin{" + language + "}" + block + "\\end{" + language + "}"
                                  : block;
  if (close.substr(1) == "f]" || close.substr(1) == "f}")
    add_token({gToken::display, tokens_.plain(formula), {}, block}, lines_[i].indent);
  else if (close.starts_with('<'))
    add_block(Html::program_text(tokens_.plain(block)), language, lines_[i].indent);
  else
    add_block(tokens_.plain(block), language.substr(0, language.find_first_of(" {,")),
              lines_[i].indent);
  std::string_view const behind =
      trimmed(lines_[end].text.substr(lines_[end].text.find(close) + close.size()));
  i = close.ends_with("newcode") ? end - 1 : end; // the new one follows the old
  if (close.ends_with("newcode"))
    return true;
  if (!behind.empty() && behind != "</pre>" && behind.find_first_not_of(close[0]) != npos)
    add(behind, lines_[end].indent);
  return true;
}

bool gCommentTranslator::read_command(std::string_view text, std::size_t indent) {
  std::size_t length = 0;
  gCommand const command = Commands::at(text, length);
  switch (command.kind) {
  case gCommandKind::none:
  case gCommandKind::block:
  case gCommandKind::dropped:
  case gCommandKind::code_word:
  case gCommandKind::em_word:
  case gCommandKind::bold_word:
  case gCommandKind::word:
  case gCommandKind::brace:
  case gCommandKind::bracket:
  case gCommandKind::ref:
  case gCommandKind::target:
  case gCommandKind::link:
  case gCommandKind::anchor:
  case gCommandKind::formula:
  case gCommandKind::line_end:
    return false;
  default:
    break;
  }
  if (hints_ && hints_->pascal && text[0] == '\\')
    return false;
  std::string_view rest = text.substr(length);
  if (!rest.empty() && rest[0] == ':')
    rest.remove_prefix(1);
  if (rest.starts_with('{') && command.kind == gCommandKind::file) // options of the command
    rest.remove_prefix(std::min(rest.find('}'), rest.size() - 1) + 1);
  take_command(command, trimmed(rest), indent);
  return true;
}

void gCommentTranslator::read_piece(std::string_view text, std::size_t indent) {
  if (text.empty() || read_form(text, indent) || read_described(text, indent) ||
      read_label(text, indent) || read_command(text, indent))
    return;
  if (text.starts_with("-# ")) // a numbered item
    return add("1. " + std::string(trimmed(text.substr(3))), indent);
  bool const title = text[0] == '#' && hints_ && !hints_->titles;
  std::string shown = (title ? "\\" : "") + std::string(text);
  if (headed_ && shown.ends_with("::")) // program text comes next
    shown.pop_back();
  if (is_item(text) && break_pending_ && part().entry != description && !in_item_ &&
      indent <= part_indent_)
    open_part(description, indent);
  add(shown, indent);
}

// Notes the brackets that a text begins with, and answers what stands behind them.
std::string_view gCommentTranslator::brackets_in_front(std::string_view text) {
  bool const backslash = !hints_ || !hints_->pascal;
  while (is_bracket(text) && (text[0] == '@' || backslash) &&
         (text.size() == 2 || text[2] == ' ' || text[2] == '\t' || is_bracket(text.substr(2)))) {
    result_.groups.push_back({text[1] == '{' ? gCommentGroup::open : gCommentGroup::close, {}, {}});
    text = trimmed(text.substr(2));
  }
  return text;
}

// Commands that open a part do so in the middle of a line, too: "@brief Text. @return text".
void gCommentTranslator::read_pieces(Line const & line) {
  std::string_view text = line.text;
  for (std::size_t at = 1; at < text.size(); ++at) {
    std::size_t length = 0;
    if ((text[at] != '@' && text[at] != '\\') || text[at - 1] != ' ' ||
        !begins_piece(Commands::at(text.substr(at), length), !opened_.empty()) ||
        at + length >= text.size() || (text[at + length] != ' ' && text[at + length] != '['))
      continue;
    read_piece(trimmed(text.substr(0, at)), line.indent);
    text = text.substr(at);
    at = 0;
  }
  read_piece(text, line.indent);
}

// The text of a line, or what is left of one.
void gCommentTranslator::read_words(std::string_view words, Line const & line) {
  auto const is_command = [&](std::string_view word) {
    return !hints_->parameters.contains(word) && Commands::find(word).kind != gCommandKind::none;
  };
  std::string const text = headed_ ? Comments::from_name_marks(words, is_command) : from_xml(words);
  std::size_t const end = brackets_behind(text);
  std::string_view const marks = std::string_view(text).substr(end);
  words = brackets_in_front(trimmed(std::string_view(text).substr(0, end)));
  if (!words.empty())
    read_pieces({words, line.whole, line.indent});
  brackets_in_front(trimmed(marks));
}

bool gCommentTranslator::read_rule(Line const & line) {
  if (!is_rule(line.text))
    return false;
  // Under a line of text it makes a title of it, and a table needs it.
  bool const below = !break_pending_ && !blank_body() && line.text.find_first_not_of("=-") == npos;
  if (below && hints_ && hints_->titles && part().entry == description)
    add(line.text.substr(0, 3), line.indent);
  else
    break_pending_ = true;
  return true;
}

void gCommentTranslator::read_line(std::size_t & i) {
  if (lines_[i].text.empty()) {
    break_pending_ = break_pending_ || is_shown();
    return;
  }
  do {
    std::size_t const first = i;
    lines_[i].text = shown_of(lines_[i].text);
    while (i == first && !lines_[i].text.empty() && hide(i)) {
    }
    if (i == first)
      break;
  } while (i < lines_.size());
  if (i < lines_.size() && !lines_[i].text.empty() && !read_block(i) && !read_rule(lines_[i]))
    read_words(lines_[i].text, lines_[i]);
}

gTranslated gCommentTranslator::read() {
  for (std::size_t i = 0; i < lines_.size(); ++i)
    read_line(i);
  flush();
  for (Part & one : parts_)
    if (gRichPieces text = one.text.take(); !text.empty())
      result_.parts.push_back({one.entry, std::move(text)});
  for (std::string const & page : inline_.pages_below())
    result_.groups.push_back({gCommentGroup::below, page, {}});
  if (result_.kind == gTranslated::nothing && !result_.parts.empty())
    result_.kind = gTranslated::unit;
  return std::move(result_);
}

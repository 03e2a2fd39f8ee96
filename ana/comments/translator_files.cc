// Programs that are shown come from files that the project names; without them nothing is shown.
#include <algorithm>

#include "ana/comments/brackets.h"
#include "ana/comments/translator.h"
#include "ana/comments/words.h"

namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::size_t most_steps = 16u << 20; // bytes that a comment's searches in a file pass over

// "//! [name]" begins and ends a part, and isn't shown itself.
bool is_mark(std::string_view line) {
  line = trimmed(line);
  while (!line.empty() && is_one_of(line[0], "/*!<#-{(; "))
    line.remove_prefix(1);
  return line.starts_with('[') && line.find(']') == line.find_last_not_of("*/->}) ");
}

// Without the marks of parts, and without the blanks that all lines have in front.
std::string tidy(std::string_view lines) {
  std::vector<std::string_view> shown;
  std::size_t least = npos;
  for (std::size_t at = 0; at < lines.size();) {
    std::size_t const end = std::min(lines.find('\n', at), lines.size());
    std::string_view const line = lines.substr(at, end - at);
    at = end + 1;
    if (is_mark(line))
      continue;
    shown.push_back(line);
    if (!trimmed(line).empty())
      least = std::min(least, line.find_first_not_of(" \t"));
  }
  std::string text;
  for (std::string_view const line : shown)
    (text += line.substr(std::min(least, line.size()))) += '\n';
  return text;
}

// Between two lines that name the part in brackets.
std::string part_of(std::string_view source, std::string_view name) {
  std::string const mark = "[" + std::string(name) + "]";
  std::size_t const begin = source.find(mark);
  std::size_t const end = begin == npos ? npos : source.find(mark, begin + mark.size());
  if (end == npos)
    return {};
  std::size_t const first = std::min(source.find('\n', begin), end) + 1;
  std::size_t const last = source.rfind('\n', end);
  return first <= last ? tidy(source.substr(first, last - first)) : std::string();
}

} // namespace

std::string gCommentTranslator::read_file(std::string_view name) {
  if (!options_.files || name.empty())
    return {};
  std::optional<std::string> text = options_.files->read(name);
  if (!text)
    ++result_.missing[std::string(name)];
  return text ? without_marks(*text) : std::string();
}

// What "\line", "\skip" and "\until" show of the file that "\dontinclude" has opened.
std::string gCommentTranslator::next_lines(std::string_view how, std::string_view rest) {
  std::size_t const found =
      rest.empty() ? file_at_ : std::min(file_.find(rest, file_at_), file_.size());
  file_steps_ += found - file_at_;
  if (found >= file_.size() || file_steps_ > most_steps) { // that was all of it
    file_at_ = file_.size();
    return {};
  }
  std::size_t const before = file_.rfind('\n', found);
  std::size_t const head = before == npos || before >= found ? 0 : before + 1;
  std::size_t const behind = std::min(file_.find('\n', found), file_.size());
  file_steps_ += behind - head;
  if (how == "skip") {
    file_at_ = head;
    return {};
  }
  std::size_t const from = how == "line" ? head : std::min(file_at_, head);
  file_at_ = std::min(behind + 1, file_.size());
  return tidy(std::string_view(file_).substr(from, behind - from));
}

// The lines of a file of text, as if they stood here.
void gCommentTranslator::add_text(std::string_view text, std::size_t indent) {
  break_pending_ = true;
  std::string const own =
      hints_ && hints_->pascal ? without_brackets(text, *hints_, tokens_) : std::string(text);
  text = own;
  while (!text.empty()) {
    std::size_t const end = std::min(text.find('\n'), text.size());
    std::string_view const line = text.substr(0, end);
    if (trimmed(line).empty())
      break_pending_ = true;
    else
      add(trimmed(line), indent + std::min(line.find_first_not_of(" \t"), line.size()));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  break_pending_ = true;
}

void gCommentTranslator::take_file(gCommand const & command, std::string_view rest,
                                   std::size_t indent) {
  std::size_t const quote = rest.starts_with('"') ? rest.find('"', 1) : npos;
  std::size_t const end =
      quote == npos ? std::min(rest.find_first_of(" \t"), rest.size()) : quote + 1;
  std::string_view const name = quote == npos ? rest.substr(0, end) : rest.substr(1, quote - 1);
  std::string_view const words = trimmed(rest.substr(end));
  if (command.target == "example" &&
      (rest.find(' ') != npos || rest.empty() || rest.find('.') == npos)) {
    open_part("@example", indent);
    body_ = rest;
    return;
  }
  bool const goes_on =
      command.target == "line" || command.target == "until" || command.target == "skip";
  std::string shown = goes_on ? next_lines(command.target, rest) : read_file(name);
  if (command.target == "open") {
    file_ = std::move(shown);
    file_name_ = name;
    file_at_ = 0;
    return;
  }
  if (command.target == "part" || (command.name == "snippetdoc" && !shown.empty()))
    shown = part_of(shown, words);
  if (shown.empty())
    return;
  if (command.target == "text")
    return add_text(shown, indent);
  if (command.target == "html")
    return add_token({gToken::html, std::move(shown), {}, {}}, indent);
  std::string_view const shown_name = goes_on ? std::string_view(file_name_) : name;
  std::size_t const dot = shown_name.rfind('.');
  add_block(shown, dot == npos ? "" : shown_name.substr(dot + 1), indent);
}

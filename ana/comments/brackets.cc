// Brackets may stand in brackets, so a stack holds what closes them. A bracket that isn't closed is
// text, so that nothing is lost.
#include "ana/comments/brackets.h"

#include <algorithm>
#include <cctype>
#include <vector>

#include "ana/comments/commands.h"
#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::string_view head_end = "</tr> "; // of a row that is the head of a table

class Brackets {
public:
  Brackets(std::string_view text, gCommentHints const & hints, gTokens & tokens)
      : text_(text),
        hints_(hints),
        tokens_(tokens) {}
  std::string run();

private:
  struct Open {
    std::string close; // what the closing bracket becomes
    int inner = 0;     // plain brackets open within
  };

  char at(std::size_t i) const { return i < text_.size() ? text_[i] : '\0'; }
  bool command();
  bool character();
  bool with_text(gCommand const & command, std::size_t inner);
  bool alone(gCommand const & command, std::size_t end);
  void open(std::string head, std::string close, std::size_t inner);
  void begin_line(std::string_view command, std::string_view words);
  std::string_view innermost(std::initializer_list<std::string_view> ends) const;
  std::string element(gCommand const & command) const;
  bool whole(gToken token, std::size_t last);
  bool bracket(gCommand const & command, std::size_t inner, std::size_t last);
  void heading(gCommand const & command, std::string_view words);
  std::size_t closing(std::size_t inner) const;
  void match();

  std::string_view text_;
  gCommentHints const & hints_;
  gTokens & tokens_;
  std::size_t at_ = 0;
  std::string out_;
  std::vector<Open> open_;
  std::vector<std::size_t> partner_; // of each opening bracket; npos for none
};

// The partners of all brackets, in one pass.
void Brackets::match() {
  partner_.assign(text_.size(), npos);
  std::vector<std::size_t> open;
  for (std::size_t i = 0; i < text_.size(); ++i)
    if (text_[i] == '@' && (at(i + 1) == '@' || at(i + 1) == '(' || at(i + 1) == ')')) {
      ++i;
    } else if (text_[i] == '(') {
      open.push_back(i);
    } else if (text_[i] == ')' && !open.empty()) {
      partner_[open.back()] = i;
      open.pop_back();
    }
}

std::size_t Brackets::closing(std::size_t inner) const {
  return partner_[inner - 1];
}

void Brackets::open(std::string head, std::string close, std::size_t inner) {
  out_ += head;
  open_.push_back({std::move(close)});
  at_ = inner;
}

// A line of its own with a command, as far indented as the line where it stands.
void Brackets::begin_line(std::string_view command, std::string_view words) {
  std::size_t const line = out_.rfind('\n') + 1; // 0 for the first
  std::size_t const end = std::min(out_.find_first_not_of(" \t", line), out_.size());
  std::string const indent = out_.substr(line, end - line);
  if (end < out_.size())
    (out_ += '\n') += indent;
  ((out_ += command) += ' ') += words;
}

// Which of the ends is that of the innermost element.
std::string_view Brackets::innermost(std::initializer_list<std::string_view> ends) const {
  for (std::size_t i = open_.size(); i > 0; --i)
    for (std::string_view const end : ends)
      if (open_[i - 1].close == end)
        return end;
  return {};
}

// The item of a list of terms is what one means, the cell of a head is one of a head.
std::string Brackets::element(gCommand const & command) const {
  if (command.target == "li" && innermost({"</dl>", "</ul>", "</ol>"}) == "</dl>")
    return "dd";
  if (command.target == "td" && innermost({head_end, "</tr>"}) == head_end)
    return "th";
  return std::string(command.target);
}

bool Brackets::whole(gToken token, std::size_t last) {
  token.raw = text_.substr(at_, last + 1 - at_);
  out_ += tokens_.add(std::move(token));
  at_ = last + 1;
  return true;
}

// "@section(1 Name The title)": the level, a name for references, and the title.
void Brackets::heading(gCommand const & command, std::string_view words) {
  static constexpr std::string_view levels[] = {"@section", "@subsection", "@subsubsection"};
  std::string_view rest = trimmed(words);
  bool const numbered = command.kind == gCommandKind::heading && !rest.empty() &&
                        Vlb::is_digit(rest[0]) && rest[0] > '0';
  std::size_t const level =
      numbered ? std::min<std::size_t>(static_cast<std::size_t>(rest[0] - '0'), 3) : 1;
  begin_line(command.kind == gCommandKind::title ? "@par" : levels[level - 1],
             trimmed(rest.substr(numbered ? 1 : 0)));
  out_ += '\n';
}

bool Brackets::with_text(gCommand const & command, std::size_t inner) {
  std::size_t const last = closing(inner);
  if (last == npos)
    return false;
  std::string_view const words = text_.substr(inner, last - inner);
  std::string const name(command.name);
  std::size_t const space = std::min(words.find_first_of(" \t\n"), words.size());
  std::string const first(words.substr(0, space)), shown(trimmed(words.substr(space)));
  using enum gCommandKind;
  switch (command.kind) {
  case refs:
    if (!shown.empty() && !reference_target(first).empty()) {
      begin_line("@" + name, "");
      whole({gToken::reference_text, first, shown, {}}, last);
      out_ += "\n\n";
      return true;
    }
    [[fallthrough]];
  case entry:
  case named:
    begin_line("@" + name, "");
    open("", "\n\n", inner);
    return true;
  case text: // what the first paragraph says
    open("", name == "abstract" ? "\n\n" : "", inner);
    return true;
  case code_word:
  case block:
    return whole({gToken::code, std::string(trimmed(words)), {}, {}}, last);
  case em_word:
    open("<em>", "</em>", inner);
    return true;
  case bold_word:
    open("<b>", "</b>", inner);
    return true;
  case link:
    return whole({shown.empty() ? gToken::reference : gToken::reference_text,
                  first,
                  shown.empty() ? first : shown,
                  {}},
                 last);
  case anchor:
    return whole({gToken::anchor, std::string(trimmed(words)), {}, {}}, last);
  case image:
    begin_line("@image", trimmed(words));
    out_ += '\n';
    at_ = last + 1;
    return true;
  case gCommandKind::heading:
  case title:
    this->heading(command, words);
    at_ = last + 1;
    return true;
  case file:
    begin_line(name == "include" ? "@includedoc" : "@include", trimmed(words));
    out_ += '\n';
    at_ = last + 1;
    return true;
  case begin: // of a table
    open(name == "table" ? "<table>" : "<tr>", name == "table" ? "</table>" : "</tr>", inner);
    return true;
  case hidden:
    begin_line("@" + name, "\n");
    at_ = last + 1;
    return true;
  case line:
  case switch_:
    at_ = last + 1;
    return true;
  case gCommandKind::bracket:
    return this->bracket(command, inner, last);
  default:
    return false;
  }
}

bool Brackets::bracket(gCommand const & command, std::size_t inner, std::size_t last) {
  std::string_view const words = text_.substr(inner, last - inner);
  std::size_t const space = std::min(words.find_first_of(" \t\n"), words.size());
  std::string_view const target = command.target, shown = trimmed(words.substr(space));
  std::string const first(words.substr(0, space));
  if (target == "drop") {
    at_ = last + 1;
  } else if (target == "block") {
    std::string_view lines = words;
    if (lines.starts_with('#') && lines.ends_with('#') && lines.size() > 1)
      lines = lines.substr(1, lines.size() - 2);
    lines.remove_prefix(lines.starts_with('\n'));
    out_ += "\n";
    whole({gToken::block, std::string(lines) + "\n", {}, {}}, last);
    out_ += "\n";
  } else if (target == "url") {
    whole({gToken::link, first, std::string(shown), {}}, last);
  } else if (target == "mail") {
    whole({gToken::link, "mailto:" + first, shown.empty() ? first : std::string(shown), {}}, last);
  } else if (target == "member") {
    begin_line("-", "`" + first + "` ");
    open("", "\n", inner + space);
  } else if (target == "head") {
    open("<tr>", std::string(head_end), inner);
  } else if (target.empty()) {
    open("", "", inner);
  } else {
    std::string const name = element(command);
    open("<" + name + ">", "</" + name + ">", inner);
  }
  return true;
}

// Words without brackets that stand for others.
bool Brackets::alone(gCommand const & command, std::size_t end) {
  bool const constant =
      command.target == "true" || command.target == "false" || command.target == "nil";
  if (command.kind == gCommandKind::bracket && constant) {
    out_ += "`" + std::string(command.target) + "`";
    at_ = end;
    return true;
  }
  bool const in_list = !innermost({"</dl>", "</ul>", "</ol>"}).empty();
  if (command.target == "li" && in_list) { // up to the next one, or the end of the list
    ((out_ += '<') += element(command)) += '>';
    at_ = end;
    return true;
  }
  std::string const & own = command.name == "name" ? hints_.name : hints_.scope;
  if ((command.name == "name" || command.name == "classname") && !own.empty()) {
    out_ += tokens_.add({gToken::code, own, {}, "@" + std::string(command.name)});
    at_ = end;
    return true;
  }
  return false;
}

// "@(", "@)" and "@@" are characters.
bool Brackets::character() {
  char const c = at(at_ + 1);
  if (c != '(' && c != ')' && c != '@')
    return false;
  out_ += tokens_.add({gToken::text, std::string(1, c), {}, std::string(1, c)});
  at_ += 2;
  return true;
}

bool Brackets::command() {
  if (at_ > 0 && Vlb::is_word(text_[at_ - 1]))
    return false;
  std::size_t end = at_ + 1;
  while (std::isalnum(static_cast<unsigned char>(at(end))))
    ++end;
  gCommand found = Commands::find(text_.substr(at_ + 1, end - at_ - 1));
  if (found.kind == gCommandKind::none) // case doesn't count there
    for (gCommand const & one : Commands::all())
      if (one.where.find('p') != npos &&
          Vlb::to_lower(one.name) == Vlb::to_lower(text_.substr(at_ + 1, end - at_ - 1)))
        found = one;
  if (found.kind == gCommandKind::none)
    return false;
  return at(end) == '(' ? with_text(found, end + 1) : alone(found, end);
}

std::string Brackets::run() {
  match();
  while (at_ < text_.size()) {
    char const c = text_[at_];
    if (c == '@' && (character() || command()))
      continue;
    if (c == '(' && !open_.empty())
      ++open_.back().inner;
    if (c == ')' && !open_.empty() && open_.back().inner-- == 0) {
      out_ += open_.back().close;
      open_.pop_back();
      ++at_;
      continue;
    }
    out_ += c;
    ++at_;
  }
  return std::move(out_);
}

} // namespace

std::string without_brackets(std::string_view comment, gCommentHints const & hints,
                             gTokens & tokens) {
  if (comment.find('@') == npos)
    return std::string(comment);
  return Brackets(comment, hints, tokens).run();
}

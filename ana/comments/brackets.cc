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

class Brackets {
public:
  Brackets(std::string_view text, gTokens & tokens) : text_(text), tokens_(tokens) {}
  std::string run();

private:
  struct Open {
    std::string close; // what the closing bracket becomes
    int inner = 0;     // plain brackets open within
  };

  char at(std::size_t i) const { return i < text_.size() ? text_[i] : '\0'; }
  bool command();
  bool with_text(gCommand const & command, std::size_t inner);
  bool alone(gCommand const & command, std::size_t end);
  void open(std::string head, std::string close, std::size_t inner);
  std::size_t closing(std::size_t inner) const;
  void match();

  std::string_view text_;
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
    if (text_[i] == '(') {
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

bool Brackets::with_text(gCommand const & command, std::size_t inner) {
  std::size_t const last = closing(inner);
  if (last == npos)
    return false;
  std::string_view const words = text_.substr(inner, last - inner);
  std::string const name(command.name);
  auto const whole = [&](gToken token) {
    token.raw = text_.substr(at_, last + 1 - at_);
    out_ += tokens_.add(std::move(token));
    at_ = last + 1;
    return true;
  };
  using enum gCommandKind;
  switch (command.kind) {
  case entry:
  case named:
  case refs:
    open("\n@" + name + " ", "\n\n", inner);
    return true;
  case text: // what the first paragraph says
    open("", name == "abstract" ? "\n\n" : "", inner);
    return true;
  case code_word:
  case block:
    return whole({gToken::code, std::string(trimmed(words)), {}, {}});
  case em_word:
    open("<em>", "</em>", inner);
    return true;
  case bold_word:
    open("<b>", "</b>", inner);
    return true;
  case link: {
    std::size_t const space = std::min(words.find_first_of(" \t\n"), words.size());
    std::string const target(words.substr(0, space));
    std::string const shown(trimmed(words.substr(space)));
    return whole({shown.empty() ? gToken::reference : gToken::reference_text,
                  target,
                  shown.empty() ? target : shown,
                  {}});
  }
  case anchor:
    return whole({gToken::anchor, std::string(trimmed(words)), {}, {}});
  case image:
    return whole({gToken::image, std::string(trimmed(words)), {}, {}});
  case heading:
  case title: {
    std::string_view rest = trimmed(words);
    std::size_t const level = !rest.empty() && Vlb::is_digit(rest[0]) ? 1 : 0;
    out_ +=
        command.kind == title ? "\n@par " : "\n@section" + std::string(rest.substr(0, level)) + " ";
    std::string_view title = trimmed(rest.substr(level));
    if (command.kind == heading && level > 0) // its identifier stands in front
      title = trimmed(title.substr(std::min(title.find(' '), title.size())));
    out_ += title;
    out_ += "\n";
    at_ = last + 1;
    return true;
  }
  case file:
    out_ += "\n@include " + std::string(trimmed(words)) + "\n";
    at_ = last + 1;
    return true;
  case begin: // of a table
    open(name == "table" ? "<table>" : "<tr>", name == "table" ? "</table>" : "</tr>", inner);
    return true;
  case hidden:
  case line:
  case switch_:
    at_ = last + 1;
    return true;
  case bracket:
    break;
  default:
    return false;
  }
  if (command.target == "drop") {
    at_ = last + 1;
  } else if (command.target == "block") {
    std::string_view lines = words;
    if (lines.starts_with('#') && lines.ends_with('#') && lines.size() > 1)
      lines = lines.substr(1, lines.size() - 2);
    lines.remove_prefix(lines.starts_with('\n'));
    out_ += "\n";
    whole({gToken::block, std::string(lines) + "\n", {}, {}});
    out_ += "\n";
  } else if (command.target == "url") {
    std::size_t const space = std::min(words.find(' '), words.size());
    whole({gToken::link,
           std::string(words.substr(0, space)),
           std::string(trimmed(words.substr(space))),
           {}});
  } else if (command.target.empty()) {
    open("", "", inner);
  } else {
    std::string const element(command.target);
    open("<" + element + ">", "</" + element + ">", inner);
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
  return false;
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
    if (c == '@' && command())
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

std::string without_brackets(std::string_view comment, gTokens & tokens) {
  if (comment.find('@') == npos)
    return std::string(comment);
  return Brackets(comment, tokens).run();
}

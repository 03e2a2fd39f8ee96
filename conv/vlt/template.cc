// One walk from dollar sign to dollar sign. A condition becomes a part that jumps behind its
// branch, so that applying a template is a single loop.

#include "conv/vlt/template.h"

#include <algorithm>

#include "vlb/messages.h"

bool gVltTemplateParser::parse(std::string_view text, int line, gVltTemplate & parts) {
  text_ = text;
  line_ = line;
  while (at_ < text_.size()) {
    std::size_t const next = std::min(text_.find('$', at_), text_.size());
    std::string_view const plain = text_.substr(at_, next - at_);
    literal_ += plain;
    line_ += static_cast<int>(std::ranges::count(plain, '\n'));
    at_ = next + 1;
    if (next < text_.size())
      dollar();
  }
  end_literal();
  for (Open const & open : open_)
    report_(Msg::vlt_open_condition, std::string(rule_.name), open.line);
  parts = std::move(parts_);
  return usable_ && open_.empty();
}

void gVltTemplateParser::dollar() {
  char const c = peek();
  ++at_;
  switch (c) {
  case '$':
    literal_ += '$';
    return;
  case '/':
    literal_ += '\n';
    return;
  case '\n':
    ++line_;
    return;
  case '[':
    return condition();
  case '|':
    return alternative();
  case ']':
    return close();
  default:
    --at_;
    return value();
  }
}

void gVltTemplateParser::value() {
  if (at_ >= text_.size()) // at the end of a template: the line feed that isn't there
    return;
  bool const braces = peek() == '{';
  std::size_t const start = at_;
  at_ += braces ? 1 : 0;
  std::string_view const name = word();
  if (name.empty() || (braces && peek() != '}')) {
    fault(Msg::vlt_syntax, "$ without a meaning; a dollar sign is $$");
    literal_ += '$';
    at_ = start;
    return;
  }
  at_ += braces ? 1 : 0;
  add_value(name);
}

void gVltTemplateParser::add_value(std::string_view name) {
  gVltValue what;
  if (!known(name, what))
    return;
  end_literal();
  gVltPart & part = parts_.emplace_back();
  part.kind = gVltPart::value;
  part.what = what;
}

// $[name: or $[name=text:
void gVltTemplateParser::condition() {
  std::string_view const name = word();
  std::string_view const rest = text_.substr(at_);
  std::size_t const colon = std::min(rest.find_first_of(":\n"), rest.size());
  bool const compares = peek() == '=';
  if (name.empty() || colon == rest.size() || rest[colon] != ':' || (!compares && colon > 0)) {
    return give_up("a condition begins with $[name: or $[name=text:");
  }
  at_ += colon + 1;
  skip_blank();
  gVltValue what = gVltValue::text;
  // What isn't known is never true.
  add_jump(known(name, what) ? gVltPart::when : gVltPart::otherwise);
  gVltPart & part = parts_.back();
  part.what = what;
  part.compares = compares;
  if (compares)
    part.text = rest.substr(1, colon - 1);
  open_.push_back({parts_.size() - 1, false, line_});
}

void gVltTemplateParser::alternative() {
  if (open_.empty() || open_.back().alternative) {
    return give_up("$| outside a condition");
  }
  skip_blank();
  add_jump(gVltPart::otherwise);
  parts_[open_.back().branch].jump = static_cast<int>(parts_.size());
  open_.back().branch = parts_.size() - 1;
  open_.back().alternative = true;
}

void gVltTemplateParser::close() {
  if (open_.empty()) {
    return give_up("$] outside a condition");
  }
  end_literal();
  parts_[open_.back().branch].jump = static_cast<int>(parts_.size());
  open_.pop_back();
}

// Where conditions don't fit together, what follows would be told as a fault, too.
void gVltTemplateParser::give_up(std::string_view reason) {
  fault(Msg::vlt_syntax, reason);
  usable_ = false;
  open_.clear();
  at_ = text_.size();
}

bool gVltTemplateParser::known(std::string_view name, gVltValue & value) {
  auto const found = Vlt::value_named(name);
  if (!found) {
    fault(Msg::vlt_unknown_value, name);
    return false;
  }
  if (std::ranges::find(rule_.values, *found) == rule_.values.end()) {
    fault(Msg::vlt_value_elsewhere, std::string(rule_.name) + ": " + std::string(name));
    return false;
  }
  value = *found;
  return true;
}

void gVltTemplateParser::add_jump(gVltPart::Kind kind) {
  end_literal();
  parts_.emplace_back().kind = kind;
}

void gVltTemplateParser::end_literal() {
  if (literal_.empty())
    return;
  gVltPart & part = parts_.emplace_back();
  part.kind = gVltPart::literal;
  part.text = std::move(literal_);
  literal_.clear();
}

// One blank behind the mark is there for reading; what the target needs are further ones.
void gVltTemplateParser::skip_blank() {
  if (peek() == ' ')
    ++at_;
}

std::string_view gVltTemplateParser::word() {
  std::size_t const start = at_;
  while (Vlb::is_word(peek()))
    ++at_;
  return text_.substr(start, at_ - start);
}

void gVltTemplateParser::fault(gMessage const & message, std::string_view argument) {
  report_(message, std::string(argument), line_);
}

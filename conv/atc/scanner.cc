// Three things have a meaning: "@" in front of a command's name, "}" inside braces, and the
// backslash. Everything else is text, so no input is refused.
#include "conv/atc/scanner.h"

#include <algorithm>

#include "vlb/gstring.h"
#include "vlb/messages.h"

namespace {

bool is_name(char c) {
  return (c >= 'a' && c <= 'z') || c == '_';
}

// A backslash protects punctuation and the acute accent, which mean something in comments. In front
// of all else it is what it looks like: part of a path or of a word of another documentation
// system.
bool escapes(std::string_view behind) {
  if (behind.starts_with("\u00B4"))
    return true;
  return !behind.empty() && behind[0] > ' ' && behind[0] < 0x7F && !Vlb::is_letter(behind[0]) &&
         !Vlb::is_digit(behind[0]);
}

} // namespace

gAtcScanner::gAtcScanner(std::string_view whole, std::size_t begin, std::size_t end, int line,
                         gAtcFaults * faults)
    : whole_(whole.substr(0, end)),
      at_(begin),
      end_(whole_.size()),
      at_line_(line),
      faults_(faults) {}

void gAtcScanner::report(gMessage const & message, std::string_view argument, int line) {
  if (faults_)
    faults_->report(message, argument, line);
}

std::string_view gAtcScanner::name_at(std::size_t at) const {
  std::size_t last = at;
  while (last < end_ && is_name(whole_[last]))
    ++last;
  return whole_.substr(at, last - at);
}

gAtcScanner::Token gAtcScanner::next(bool in_braces) {
  if (again_) {
    again_ = false;
    return token_;
  }
  begin_ = at_;
  line_ = at_line_;
  if (at_ == end_)
    return token_ = end;
  if (in_braces && skip('}'))
    return token_ = close;
  if (read_command())
    return token_ = command;
  read_text(in_braces);
  return token_ = text;
}

bool gAtcScanner::read_command() {
  if (whole_[at_] != '@')
    return false;
  std::string_view const name = name_at(at_ + 1);
  gAtcCommandInfo const * found = Atc::find_command(name);
  if (!found)
    return false;
  info_ = found;
  at_ += 1 + name.size();
  read_params();
  if (!info_->braces)
    skip(info_->ending);
  return true;
}

void gAtcScanner::read_params() {
  params_.clear();
  // What stands behind the last parameter may begin with the bracket, such as a cell's text.
  while (params_.size() < info_->most && at_ < end_ && whole_[at_] == '<')
    if (!read_param())
      break;
  if (params_.size() < info_->least)
    report(Msg::atc_parameters, "@" + std::string(info_->name), line_);
  while (params_.size() < info_->least)
    params_.emplace_back();
}

bool gAtcScanner::read_param() {
  std::string value;
  for (std::size_t i = at_ + 1; i < end_ && whole_[i] != '\n'; ++i) {
    if (whole_[i] == '>') {
      at_ = i + 1;
      params_.push_back(std::move(value));
      return true;
    }
    if (whole_[i] == '\\' && escapes(whole_.substr(i + 1)))
      ++i;
    value += whole_[i];
  }
  // The rest of the line is the parameter, as far as one can tell.
  at_ = std::min(whole_.find('\n', at_), end_);
  params_.push_back(std::move(value));
  report(Msg::atc_unclosed, "<", line_);
  return false;
}

bool gAtcScanner::ends_text(bool in_braces) {
  if (in_braces && whole_[at_] == '}')
    return true;
  if (whole_[at_] != '@')
    return false;
  std::string_view const name = name_at(at_ + 1);
  if (Atc::find_command(name))
    return true;
  if (!name.empty())
    report(Msg::atc_unknown_command, "@" + std::string(name), at_line_);
  return false;
}

bool gAtcScanner::read_text(bool in_braces) {
  text_.clear();
  while (at_ < end_ && !ends_text(in_braces)) {
    if (whole_[at_] == '\\' && escapes(whole_.substr(at_ + 1)))
      text_ += whole_[++at_];
    else
      add_plain(whole_[at_]);
    ++at_;
  }
  return !text_.empty();
}

void gAtcScanner::add_plain(char c) {
  if (c == '\n')
    ++at_line_;
  if (!Vlb::is_space(c))
    text_ += c;
  else if (text_.empty() || text_.back() != ' ')
    text_ += ' ';
}

bool gAtcScanner::skip(char c) {
  if (at_ == end_ || whole_[at_] != c)
    return false;
  ++at_;
  at_line_ += c == '\n';
  return true;
}

void gAtcScanner::skip_white() {
  while (at_ < end_ && Vlb::is_space(whole_[at_]))
    skip(whole_[at_]);
}

bool gAtcScanner::skip_unknown_line() {
  if (whole_.substr(at_, 2) != "@_" || Atc::find_command(name_at(at_ + 1)))
    return false;
  at_ = std::min(whole_.find('\n', at_), end_);
  skip('\n');
  return true;
}

bool gAtcScanner::open_brace() {
  if (skip('{'))
    return true;
  report(Msg::atc_parameters, "@" + std::string(info_->name), line_);
  return false;
}

std::string gAtcScanner::bare_target() {
  std::string target;
  for (std::size_t i = at_; i < end_ && whole_[i] != '\n' && whole_[i] != '@'; ++i) {
    if (whole_[i] == '{') {
      at_ = i;
      return target;
    }
    if (whole_[i] == '\\' && escapes(whole_.substr(i + 1)))
      ++i;
    target += whole_[i];
  }
  return {};
}

// Inside of the block every "@" has its backslash, so any other command tells that the end is lost.
// The one word without is the end command itself where its author quotes it; that stands indented.
std::string gAtcScanner::verbatim(bool & closed) {
  std::string lines;
  closed = false;
  while (at_ < end_) {
    char const c = whole_[at_];
    if (c == '@') {
      std::string_view const name = name_at(at_ + 1);
      bool const ends = name == "e_verbatim";
      closed = ends && (lines.empty() || lines.back() == '\n');
      if (closed || (!ends && Atc::find_command(name)))
        break;
    }
    if (c == '\\' && escapes(whole_.substr(at_ + 1)))
      ++at_;
    lines += whole_[at_];
    at_line_ += whole_[at_++] == '\n';
  }
  if (closed) {
    at_ += std::string_view("@e_verbatim").size();
    skip('\n');
  }
  if (lines.ends_with('\n'))
    lines.pop_back();
  return lines;
}

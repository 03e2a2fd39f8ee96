// Input, output, push-back and reports of a scanner; the matching itself stands in scan_match.cc.
#include "vlb/parse/scan_base.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstring>
#include <utility>

#include "vlb/gexception.h"
#include "vlb/messages.h"

gScanBase::gScanBase(int size) : size_(size), input_(static_cast<std::size_t>(size)) {
  input_.clear();
  input_opened();
}

gScanBase::~gScanBase() = default;

void gScanBase::open_infile(gSrcFile const & file) {
  infile_ = file;
  finish_token();
  bool const good = input_.read(file.path());
  if (good && shield_)
    input_.shield_quotes();
  input_opened();
  if (!good)
    throw gExcFatalErr(Msg::unreadable, file.path(), file.opath());
}

void gScanBase::open_text(gSrcFile const & file, std::string_view text, int first_line) {
  infile_ = file;
  line_ = first_line;
  finish_token();
  input_.set(text);
  if (shield_)
    input_.shield_quotes();
  input_opened();
}

void gScanBase::input_opened() {
  next_ = pushed_end_ = match_begin_ = match_end_ = input_.begin();
  token_ = next_;
  length_ = 0;
  nul_reported_ = false;
}

int gScanBase::close_infile() {
  finish_token();
  input_.clear();
  input_opened();
  return 0;
}

void gScanBase::open_outfile(gSrcFile const & file) {
  outfile_ = file;
  if (!output_.open(file.path()))
    throw gExcFatalErr(Msg::unwritable, file.path(), file.opath());
}

int gScanBase::close_outfile() {
  return output_.close() ? 0 : 1;
}

void gScanBase::reset() {
  token_ = next_;
  length_ = 0;
  input_taken_ = false;
  condition_ = 0;
  previous_ = '\n';
  line_ = 1;
}

int gScanBase::getc() {
  return next_ == input_.end() ? -1 : static_cast<unsigned char>(*next_++);
}

int gScanBase::input() {
  int const c = getc();
  if (c < 0)
    return c;
  previous_ = c;
  input_taken_ = true;
  if (c == '\n')
    add_lines(1);
  return c;
}

void gScanBase::unput(int c) {
  char const byte = static_cast<char>(c);
  push_back({&byte, 1});
}

void gScanBase::push_back(std::string_view text) {
  add_lines(-std::count(text.begin(), text.end(), '\n'));
  place(text);
}

void gScanBase::cut_to(int n) {
  n = std::clamp(n, 0, length_);
  std::string_view const rest = token().substr(static_cast<std::size_t>(n));
  length_ = n;
  if (token_ + n + rest.size() == next_)
    next_ -= rest.size();
  else
    place(std::string(rest));
}

// What is given back mostly equals what was read, and then stands there already. Other text is
// written over it; the room in front of the input is as large as the limit, so that there always is
// enough of it. The token may lie where the text goes: then it moves away first.
void gScanBase::place(std::string_view text) {
  pushed_end_ = std::max(pushed_end_, next_);
  if (pushed_end_ - next_ + static_cast<std::ptrdiff_t>(text.size()) > size_)
    throw gExcFatalErr(Msg::push_back_overflow, "", place());
  char * const to = next_ - text.size();
  if (!std::equal(text.begin(), text.end(), to)) {
    if (token_ != moved_token_.data()) {
      moved_token_.assign(token_, static_cast<std::size_t>(length_));
      token_ = moved_token_.data();
    }
    std::memmove(to, text.data(), text.size());
  }
  next_ = to;
}

char const * gScanBase::text() {
  text_.assign(token_, static_cast<std::size_t>(length_));
  return text_.c_str();
}

gString gScanBase::plain(std::string_view text) const {
  if (!input_.shielded())
    return gString(text);
  gString plain;
  gInputText::append_plain(plain, text);
  return plain;
}

void gScanBase::begin(int condition) {
  VLB_ASSERT(condition >= 0 && condition <= gAutomaton::highest_condition && condition % 2 == 0);
  condition_ = condition;
}

void gScanBase::ECHO(char c) const {
  output_.put(c);
}
void gScanBase::ECHO(char const * text) const {
  output_.put(std::string_view(text));
}
void gScanBase::ECHO(std::string const & text) const {
  output_.put(std::string_view(text));
}
void gScanBase::ECHO(std::string_view text) const {
  output_.put(text);
}

void gScanBase::echo_text() {
  if (input_.shielded())
    ECHO(value());
  else
    ECHO(token());
}

int gScanBase::wrap() {
  return 1;
}

gReportPlace gScanBase::place() const {
  return gLoc(infile_, std::max(line_, 0));
}

// A hint continues the report in front of it, which has told the position.
void gScanBase::error(gMessage const & message, gString const & argument) const {
  reports()(message, argument, message.is_hint() ? gReportPlace() : place());
}

// A line feed would break the report's line, and a NUL cut it.
void gScanBase::lex_error(int c) {
  if (c == 0 && std::exchange(nul_reported_, true))
    return;
  char const byte = static_cast<char>(c);
  char const real = input_.shielded() ? gInputText::unshielded(byte) : byte;
  char code[8];
  std::snprintf(code, sizeof code, "0x%02x", static_cast<unsigned>(real) & 0xFFu);
  gString const shown = c == '\n' ? gString("\\n") : c == 0 ? gString("\\0") : plain({&byte, 1});
  error(Msg::lexical_error, "'" + shown + "' (" + code + ")");
}

// A #line directive may bring any number.
void gScanBase::add_lines(long count) {
  line_ = static_cast<int>(std::clamp<long>(line_ + count, INT_MIN, INT_MAX));
}

// Reports and free text become lines; a line goes to the port and to the log file, each subject to
// its own minimum level. Everything that is written is collected to lines in one stream buffer.
#include "vlb/gmsghandler.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <locale>
#include <streambuf>

#include "vlb/gexception.h"
#include "vlb/outside.h"
#include "vlb/source_place.h"

// Collects the characters of a line and hands it on at its end.
class gLogStream::Buffer : public std::streambuf {
public:
  ~Buffer() override { close(); }

  void severity(Msg::type type) { type_ = type; }

  // A report is a line of its own, whatever was left open before it.
  void report(Msg::type type, gString const & line) {
    if (!line_.empty())
      end_line();
    if (type >= minimum_display)
      Vlb::outside().report(type, line);
    write(type, line);
    if (file_ && type == Msg::status)
      failed_ |= std::fflush(file_) != 0;
  }

  bool open(gString const & path) {
    close();
    failed_ = false;
    file_ = std::fopen(path.c_str(), "we");
    return file_ != nullptr;
  }

  bool close() {
    if (!line_.empty())
      end_line();
    if (file_)
      failed_ |= std::fclose(std::exchange(file_, nullptr)) != 0;
    return !std::exchange(failed_, false);
  }

  Msg::type minimum_display = Msg::all;
  Msg::type minimum_file = Msg::all;
  // The last report was suppressed, and with it the hints up to the next report or line.
  bool drop_hints = false;

protected:
  int_type overflow(int_type c) override {
    if (traits_type::eq_int_type(c, traits_type::eof()))
      return traits_type::not_eof(c);
    char const character = traits_type::to_char_type(c);
    if (character == '\n')
      end_line();
    else
      line_ += character;
    return c;
  }

  std::streamsize xsputn(char const * text, std::streamsize length) override {
    std::string_view rest(text, static_cast<std::size_t>(length));
    for (std::size_t end; (end = rest.find('\n')) != rest.npos; rest.remove_prefix(end + 1)) {
      line_ += rest.substr(0, end);
      end_line();
    }
    line_ += rest;
    return length;
  }

private:
  static bool passes(Msg::type type, Msg::type minimum) {
    return type == Msg::all || type >= minimum;
  }

  void end_line() {
    gString const line(std::move(line_));
    line_.clear();
    drop_hints = false;
    if (passes(type_, minimum_display))
      Vlb::outside().log_line(type_, line);
    write(type_, line);
  }

  void write(Msg::type type, gString const & line) {
    if (!file_ || !passes(type, minimum_file))
      return;
    failed_ |= std::fwrite(line.data(), 1, line.size(), file_) != line.size();
    failed_ |= std::fputc('\n', file_) == EOF;
  }

  gString line_;
  Msg::type type_ = Msg::all;
  std::FILE * file_ = nullptr;
  bool failed_ = false;
};

gLogStream::gLogStream()
    : buffer_(std::make_unique<Buffer>()),
      stream_(std::make_unique<std::ostream>(buffer_.get())) {
  // Numbers are never grouped, whatever the locale of the program.
  stream_->imbue(std::locale::classic());
}

gLogStream::~gLogStream() = default;

std::ostream & gLogStream::operator()() {
  return (*this)(Msg::all);
}

std::ostream & gLogStream::operator()(Msg::type type) {
  buffer_->severity(type);
  return *stream_;
}

void gLogStream::put_time() {
  std::time_t const now = std::time(nullptr);
  std::tm parts = {};
  char text[40] = "";
  if (localtime_r(&now, &parts))
    std::strftime(text, sizeof text, "%m/%d/%Y %H:%M:%S", &parts);
  (*this)() << text;
}

void Vlb::add_shown(gString & line, std::string_view text) {
  constexpr char hex[] = "0123456789abcdef";
  for (char const c : text) {
    auto const byte = static_cast<unsigned char>(c);
    if ((byte >= ' ' && byte != 127) || c == '\t')
      line += c;
    else if (c == '\n' || c == '\0')
      line += c == '\n' ? "\\n" : "\\0";
    else
      line.append({'\\', 'x', hex[byte >> 4], hex[byte & 15]});
  }
}

namespace {

char const * prefix_of(Msg::type type) {
  switch (type) {
  case Msg::info:
    return "INFO";
  case Msg::status:
    return "\nSTATUS";
  case Msg::warning:
    return "WARNING";
  case Msg::doc_error:
    return "DOC ERROR";
  case Msg::error:
    return "ERROR";
  case Msg::warn_hint:
  case Msg::err_hint:
    return "    ";
  case Msg::all:
    break;
  }
  throw gExcInternalErr("Unexpected Msg::type", "", Vlb::source_place(__FILE__, __LINE__));
}

gString line_of(gMessage const & message, gString const & argument, gString const & where) {
  gString line(prefix_of(message.severity));
  if (!message.is_hint()) {
    if (message.number != 0)
      line += " " + std::to_string(message.number);
    line += ": ";
  }
  line += message.text;
  Vlb::add_shown(line, argument);
  if (!where.empty()) {
    line += " (";
    Vlb::add_shown(line, where);
    line += ')';
  }
  return line;
}

} // namespace

gMsgHandler::gMsgHandler() = default;
gMsgHandler::~gMsgHandler() = default;

void gMsgHandler::operator()(gMessage const & message, gString const & argument,
                             gString const & where) {
  gString const line = line_of(message, argument, where);
  if (suppressed(message))
    return;
  Msg::type const type = message.severity;
  buffer_->report(type, line);
  if (type == Msg::warning)
    ++warnings_;
  if (type == Msg::doc_error || type == Msg::error)
    ++errors_;
  if (type >= Msg::warning && !message.is_hint())
    worst_ = std::max(worst_, type);
  if (err_max > 0 && errors_ >= err_max && type >= Msg::doc_error) {
    limit_reached_ = true;
    throw gExcFatalErr("Maximum error count reached: ", std::to_string(err_max));
  }
}

bool gMsgHandler::suppressed(gMessage const & message) {
  if (!message.is_hint())
    buffer_->drop_hints = message.number != 0 && suppressed_numbers_.contains(message.number);
  return buffer_->drop_hints;
}

void gMsgHandler::minlvl_disp(Msg::type type) {
  buffer_->minimum_display = type;
}

void gMsgHandler::minlvl_file(Msg::type type) {
  buffer_->minimum_file = type;
}

bool gMsgHandler::open_logfile(gString const & path) {
  return buffer_->open(path);
}

bool gMsgHandler::close_logfile() {
  return buffer_->close();
}

void gMsgHandler::reset_suppressed() {
  suppressed_numbers_.clear();
  buffer_->drop_hints = false;
}

void gMsgHandler::suppress(std::set<int> const & numbers) {
  suppressed_numbers_ = numbers;
}

void gMsgHandler::reset_counts() {
  errors_ = 0;
  warnings_ = 0;
  worst_ = Msg::all;
  limit_reached_ = false;
}

void gMsgHandler::put_summary() {
  (*this)() << errors_ << " error(s), " << warnings_ << " warning(s)";
}

namespace Msg {

gMsgHandler log;

gErrTagList & cur_errtaglist() {
  static gErrTagList list;
  return list;
}

void internal_diagnostic(char const * file, int line, char const * diagnostic, long value) {
  log() << "INTERNAL ERROR: Please send the following message to the authors:\n    "
        << Vlb::source_place(file, line) << diagnostic << value << std::endl;
}

} // namespace Msg

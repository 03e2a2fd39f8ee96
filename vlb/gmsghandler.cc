// Reports and free text become lines; a line goes to the port and to the log file, each subject to
// its own minimum level. One lock stands in front of lines and counts.
#include "vlb/gmsghandler.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <locale>
#include <mutex>
#include <new>
#include <thread>
#include <utility>

#include "vlb/gexception.h"
#include "vlb/messages.h"
#include "vlb/outside.h"
#include "vlb/source_place.h"

// Where lines go. Only the handler's lock and free text's own guard it: callers of the operations
// without `lock` in front hold it.
class gLogLines {
public:
  ~gLogLines() { close(); }

  mutable std::mutex lock;

  // Takes free text; what stands behind its last line feed waits for more.
  void append(Msg::type type, std::string_view rest) {
    std::scoped_lock const guard(lock);
    type_ = type;
    for (std::size_t end; (end = rest.find('\n')) != rest.npos; rest.remove_prefix(end + 1)) {
      line_ += rest.substr(0, end);
      end_line();
    }
    line_ += rest;
  }

  // A report is a line of its own, whatever was left open before it.
  void report(gReport const & report, gString const & line) {
    Msg::type const type = report.message->severity;
    if (!line_.empty())
      end_line();
    if (type >= minimum_display)
      Vlb::outside().take_report(report, line);
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
  // Whose reports are counted.
  std::thread::id run_thread = std::this_thread::get_id();
  bool in_run() const { return std::this_thread::get_id() == run_thread; }

  // The caller's last report was suppressed, and with it its hints up to its next report or line.
  // What the run's thread says never ends what another one began.
  bool & drop_hints() { return drop_hints_[in_run() ? 0 : 1]; }
  void keep_all_hints() { drop_hints_[0] = drop_hints_[1] = false; }

private:
  static bool passes(Msg::type type, Msg::type minimum) {
    return type == Msg::all || type >= minimum;
  }

  void end_line() {
    gString const line(std::move(line_));
    line_.clear();
    drop_hints() = false;
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

  bool drop_hints_[2] = {};
  gString line_;
  Msg::type type_ = Msg::all;
  std::FILE * file_ = nullptr;
  bool failed_ = false;
};

// Numbers are never grouped, whatever the locale of the program.
gLogText::gLogText(gLogLines & lines, Msg::type type) : lines_(lines), type_(type) {
  imbue(std::locale::classic());
}

// A line for which there is no memory is lost; what used it up is reported elsewhere.
gLogText::~gLogText() {
  try {
    lines_.append(type_, view());
  } catch (std::bad_alloc const &) {
  }
}

gLogStream::gLogStream() : lines_(std::make_unique<gLogLines>()) {}

gLogStream::~gLogStream() = default;

gLogText gLogStream::operator()() {
  return {*lines_, Msg::all};
}

gLogText gLogStream::operator()(Msg::type type) {
  return {*lines_, type};
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

} // namespace

gString Vlb::report_text(gReport const & report) {
  gString text(report.message->text);
  if (!report.argument.empty() && !text.ends_with(' '))
    text += ' ';
  add_shown(text, report.argument);
  return text;
}

gString Vlb::report_head(Msg::type severity, int number) {
  gString head(prefix_of(severity));
  if (severity != Msg::warn_hint && severity != Msg::err_hint)
    head += (number != 0 ? " " + std::to_string(number) : "") + ": ";
  return head;
}

gString Vlb::report_line(gReport const & report) {
  gMessage const & message = *report.message;
  gString line;
  if (message.form == gMessage::Form::line)
    line = report_head(message.severity, message.number);
  line += report_text(report);
  // A path that is the argument already isn't told twice.
  if (!report.place.empty() && report.place.text() != report.argument) {
    line += " (";
    Vlb::add_shown(line, report.place.text());
    line += ')';
  }
  return line;
}

// The counts of a run, and what it has switched off.
struct gMsgHandler::Run {
  int errors = 0;
  int warnings = 0;
  Msg::type worst = Msg::all;
  std::string last_error;
  bool limit_reached = false;
  gRunStage stage = gRunStage::none;
  std::set<int> suppressed_numbers;
  gReportSink * copy = nullptr;
};

gMsgHandler::gMsgHandler() : run_(std::make_unique<Run>()) {}
gMsgHandler::~gMsgHandler() = default;

void gMsgHandler::take(gReport report) {
  gString const line = Vlb::report_line(report);
  int const limit = err_max;
  if (!enter(report, line))
    throw gExcFatalErr(Msg::error_limit, std::to_string(limit));
}

// False if the report reaches the limit of the run's errors.
bool gMsgHandler::enter(gReport & report, gString const & line) {
  std::scoped_lock const guard(lines_->lock);
  if (suppressed(report))
    return true;
  Msg::type const type = report.message->severity;
  lines_->report(report, line);
  if (!lines_->in_run())
    return true;
  if (report.stage == gRunStage::none)
    report.stage = run_->stage;
  if (run_->copy)
    run_->copy->take(report);
  // "Error parsing the VLS file" says less than the error in front of it.
  bool const tells_what = !report.argument.empty() || !report.place.empty();
  if (type == Msg::error && (tells_what || run_->last_error.empty()))
    run_->last_error = line;
  // The limit is no fault of its own: it tells how many there were.
  if (report.message == &Msg::error_limit)
    return true;
  count(*report.message);
  int const limit = err_max;
  if (limit > 0 && run_->errors >= limit && type >= Msg::doc_error)
    run_->limit_reached = true;
  else
    return true;
  return false;
}

void gMsgHandler::count(gMessage const & message) {
  Msg::type const type = message.severity;
  if (type == Msg::warning)
    ++run_->warnings;
  if (type == Msg::doc_error || type == Msg::error)
    ++run_->errors;
  if (type >= Msg::warning && !message.is_hint())
    run_->worst = std::max(run_->worst, type);
}

bool gMsgHandler::suppressed(gReport const & report) {
  gMessage const & message = *report.message;
  bool & drop_hints = lines_->drop_hints();
  if (!message.is_hint())
    drop_hints = message.number != 0 && run_->suppressed_numbers.contains(message.number);
  return drop_hints;
}

void gMsgHandler::minlvl_disp(Msg::type type) {
  std::scoped_lock const guard(lines_->lock);
  lines_->minimum_display = type;
}

void gMsgHandler::minlvl_file(Msg::type type) {
  std::scoped_lock const guard(lines_->lock);
  lines_->minimum_file = type;
}

bool gMsgHandler::open_logfile(gString const & path) {
  std::scoped_lock const guard(lines_->lock);
  return lines_->open(path);
}

bool gMsgHandler::close_logfile() {
  std::scoped_lock const guard(lines_->lock);
  return lines_->close();
}

void gMsgHandler::reset_suppressed() {
  suppress({});
  std::scoped_lock const guard(lines_->lock);
  lines_->keep_all_hints();
}

void gMsgHandler::suppress(std::set<int> const & numbers) {
  std::scoped_lock const guard(lines_->lock);
  run_->suppressed_numbers = numbers;
}

void gMsgHandler::reset_counts() {
  std::scoped_lock const guard(lines_->lock);
  Run fresh;
  fresh.suppressed_numbers = std::move(run_->suppressed_numbers);
  fresh.copy = run_->copy;
  *run_ = std::move(fresh);
  lines_->run_thread = std::this_thread::get_id();
}

void gMsgHandler::continue_run() {
  std::scoped_lock const guard(lines_->lock);
  lines_->run_thread = std::this_thread::get_id();
}

void gMsgHandler::stage(gRunStage stage) {
  std::scoped_lock const guard(lines_->lock);
  run_->stage = stage;
}

void gMsgHandler::copy_to(gReportSink * sink) {
  std::scoped_lock const guard(lines_->lock);
  run_->copy = sink;
}

int gMsgHandler::errors() const {
  std::scoped_lock const guard(lines_->lock);
  return run_->errors;
}

int gMsgHandler::warnings() const {
  std::scoped_lock const guard(lines_->lock);
  return run_->warnings;
}

Msg::type gMsgHandler::worst() const {
  std::scoped_lock const guard(lines_->lock);
  return run_->worst;
}

std::string gMsgHandler::last_error() const {
  std::scoped_lock const guard(lines_->lock);
  return run_->last_error;
}

bool gMsgHandler::limit_reached() const {
  std::scoped_lock const guard(lines_->lock);
  return run_->limit_reached;
}

void gMsgHandler::put_summary() {
  int const errors = this->errors();
  (*this)() << errors << " error(s), " << warnings() << " warning(s)";
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

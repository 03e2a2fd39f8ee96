// Everything on standard error goes through print_line, so that the status line is never in the
// way of a report. A line is one write, so that the lines of two programs don't mix.

#include "app/cli/cli_outside.h"

#include <cstdio>
#include <iostream>
#include <new>
#include <utility>

#include <sys/ioctl.h>
#include <unistd.h>

#include "app/options/options.h"
#include "vlb/gmsghandler.h"

namespace {

std::size_t terminal_width() {
  winsize size{};
  return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 1 ? size.ws_col : 80;
}

void put(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
}

// Names of files may hold control characters; the line feeds are those of the text itself.
std::string shown(std::string_view text) {
  gString result;
  for (;;) {
    std::size_t const end = text.find('\n');
    Vlb::add_shown(result, text.substr(0, end));
    if (end == text.npos)
      return result;
    result += '\n';
    text.remove_prefix(end + 1);
  }
}

// A line from the user; false at the end of the input.
bool read_answer(std::string const & prompt, std::string & answer) {
  put(prompt);
  std::fflush(stderr);
  return static_cast<bool>(std::getline(std::cin, answer));
}

} // namespace

gCliOutside::gCliOutside() : before_(Vlb::set_outside(this)), terminal_(isatty(STDERR_FILENO)) {}

gCliOutside::~gCliOutside() {
  put(erasure());
  Vlb::set_outside(before_);
}

bool gCliOutside::interactive() {
  return isatty(STDIN_FILENO) && isatty(STDERR_FILENO);
}

// What takes the status line off the terminal, and what draws it.
std::string gCliOutside::erasure() const {
  return terminal_ && !status_.empty() ? "\r\033[K" : "";
}

std::string gCliOutside::drawing() const {
  return terminal_ ? status_.substr(0, terminal_width() - 1) : "";
}

void gCliOutside::print_line(std::string_view line) {
  put(erasure() + shown(line) + "\n" + drawing());
}

void gCliOutside::tell(std::string const & text) {
  std::lock_guard const guard(mutex_);
  print_line("vellumar: " + text);
}

void gCliOutside::box(gString const & text, Icon) {
  tell(text);
}

// Questions with two answers offer a dialog or the saving of changes, which no command wants.
gOutside::Answer gCliOutside::ask(Question const & question) {
  if (!question.cancel)
    return Answer::no;
  std::string answer;
  while (interactive() && read_answer(shown(question.text) + " [y/n/c] ", answer)) {
    switch (answer.empty() ? ' ' : answer[0]) {
    case 'y':
    case 'Y':
      return Answer::yes;
    case 'n':
    case 'N':
      return Answer::no;
    case 'c':
    case 'C':
      return Answer::cancel;
    }
  }
  return Answer::cancel;
}

std::vector<gString> gCliOutside::choose(Choice const &) {
  return {};
}

bool gCliOutside::dialog(Dialog const & dialog) {
  std::string folder;
  if (dialog.name != "gDefineOutdir" || !interactive() || !read_answer("Output folder: ", folder) ||
      folder.empty())
    return false;
  Vapp::options["out_dir"] = cat::make(folder);
  return true;
}

void gCliOutside::title(gString const &) {}

void gCliOutside::status(gString const & text) {
  std::lock_guard const guard(mutex_);
  if (text == status_)
    return;
  std::string const erased = erasure();
  status_ = shown(text);
  put(erased + drawing());
}

void gCliOutside::report(Msg::type, gString const & line) {
  // In the log an empty line stands in front of each stage.
  show({true, line.starts_with('\n') ? gString(line.substr(1)) : line});
}

bool gCliOutside::keep_lines(std::vector<gShownLine> * lines) {
  std::lock_guard const guard(mutex_);
  kept_ = lines;
  return std::exchange(kept_all_, true);
}

void gCliOutside::show(gShownLine const & line) {
  std::lock_guard const guard(mutex_);
  try {
    if (kept_)
      kept_->push_back(line);
  } catch (std::bad_alloc const &) {
    kept_all_ = false;
  }
  if (quiet_)
    return;
  bool const limited = line.is_report && !limited_.empty() && line.text.starts_with(limited_);
  if (!limited || ++counted_ <= most_)
    print_line(line.text);
}

void gCliOutside::set_limit(std::string beginning, std::size_t most) {
  std::lock_guard const guard(mutex_);
  limited_ = std::move(beginning);
  most_ = most;
  counted_ = 0;
}

void gCliOutside::tell_omitted() {
  std::lock_guard const guard(mutex_);
  if (counted_ > most_)
    print_line(std::to_string(counted_ - most_) + " more like this; the log has them all.");
}

// Lines that only tell which file is read, and what belongs to no run, are for the log.
void gCliOutside::log_line(Msg::type type, gString const & line) {
  bool const working = Vapp::ana_active || Vapp::output_active;
  if (working && type != Msg::status && !line.empty())
    show({false, line});
}

void gCliOutside::show_msgwindow(bool) {}
void gCliOutside::clear_msgwindow() {}

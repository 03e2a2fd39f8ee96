// A result is written into a folder of its own beside the place where it belongs. Only a complete
// one gets there, by a rename, so that a reader of the documentation never meets a half.

#include "conv/conversion.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <new>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app/options/run_flags.h"
#include "conv/atc/reader.h"
#include "vlb/caught.h"
#include "vlb/folder_record.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"
#include "vlb/ordered.h"
#include "vlb/outside.h"

namespace fs = std::filesystem;

namespace {

constexpr char const * new_suffix = ".new";
constexpr char const * old_suffix = ".old";

char const * label_of(std::string const & target) {
  return target == "htm" ? "HTML" : target == "rtf" ? "RTF" : "WinHelp";
}

gReport unwritable(std::string const & path, int error) {
  return {Msg::cannot_write, path, std::generic_category().message(error)};
}

bool report_unwritable(std::string const & path, int error) {
  Msg::log.take(unwritable(path, error));
  return false;
}

bool exists(std::string const & path) {
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error));
}

bool remove_tree(std::string const & path) {
  std::error_code error;
  fs::remove_all(path, error);
  return !error;
}

bool move(std::string const & from, std::string const & to) {
  return std::rename(from.c_str(), to.c_str()) == 0;
}

// Puts right what a crash left between the steps of replace().
void settle(std::string const & folder) {
  std::string const old = folder + old_suffix;
  if (exists(old) && !exists(folder))
    move(old, folder);
  remove_tree(old);
  remove_tree(folder + new_suffix);
}

// Where the file system can't exchange two names, the old folder steps aside for a moment.
bool replace_in_steps(std::string const & folder, std::string const & work) {
  std::string const old = folder + old_suffix;
  if (!move(folder, old))
    return false;
  if (move(work, folder)) {
    remove_tree(old);
    return true;
  }
  int const error = errno;
  move(old, folder);
  errno = error;
  return false;
}

bool replace(std::string const & folder, std::string const & work) {
  if (!exists(folder))
    return move(work, folder);
  return renameat2(AT_FDCWD, work.c_str(), AT_FDCWD, folder.c_str(), RENAME_EXCHANGE) == 0 ||
         replace_in_steps(folder, work);
}

// Gives a file another name in another folder; the old name stays, so that a crash costs nothing.
bool carry(std::string const & from, std::string const & to, std::string const & name) {
  fs::path const old = from + "/" + name, made = to + "/" + name;
  std::error_code error;
  fs::create_directories(made.parent_path(), error);
  if (name.ends_with('/') || linkat(AT_FDCWD, old.c_str(), AT_FDCWD, made.c_str(), 0) == 0)
    return true;
  if (errno == EEXIST)
    return false;
  fs::copy(old, made, fs::copy_options::copy_symlinks, error);
  errno = error.value();
  return !error;
}

// The number of the fault, 0 if all was written. Without a buffer of its own, since the text is
// there as a whole.
int write_file(std::string const & path, std::string_view text) {
  int const file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file < 0)
    return errno;
  int error = 0;
  while (error == 0 && !text.empty()) {
    ssize_t const size = ::write(file, text.data(), text.size());
    if (size > 0)
      text.remove_prefix(static_cast<std::size_t>(size));
    else if (size == 0 || errno != EINTR)
      error = size == 0 ? EIO : errno;
  }
  if (::close(file) != 0 && error == 0)
    error = errno;
  return error;
}

// True if the file, not what a link leads to, holds just these bytes.
bool holds(std::string const & path, std::string_view text) {
  int const file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (file < 0)
    return false;
  struct stat about {};
  bool equal = ::fstat(file, &about) == 0 && S_ISREG(about.st_mode) &&
               static_cast<std::size_t>(about.st_size) == text.size();
  char buffer[1 << 16];
  while (equal && !text.empty()) {
    ssize_t const size = ::read(file, buffer, std::min(sizeof buffer, text.size()));
    equal = size > 0 && text.starts_with({buffer, static_cast<std::size_t>(size)});
    if (equal)
      text.remove_prefix(static_cast<std::size_t>(size));
  }
  ::close(file);
  return equal;
}

// Files in folders of their own beginning with "_" help the pages.
bool is_page(std::string const & name) {
  return (name.ends_with(".htm") || name.ends_with(".html")) && !name.starts_with('_');
}

// Puts the status line back behind the conversion.
class Frame {
public:
  Frame() : status_(Vlb::GetStatus()) {}
  Frame(Frame const &) = delete;
  Frame & operator=(Frame const &) = delete;
  ~Frame() { Vlb::SetStatus(status_, true); }

private:
  gString status_;
};

void log_summary(std::string const & target) {
  Msg::log() << std::endl << label_of(target) << " - ";
  Msg::log.put_summary();
  Msg::log() << std::endl;
}

gConversionResult convert(gConversionInput const & input, bool (*work)(gConversion &)) {
  gConversion conversion(input);
  gConversionResult result;
  try {
    if (work(conversion))
      result = conversion.result();
  } catch (gExcConversion const & end) {
    Msg::log.take(end.fault());
  }
  log_summary(input.target);
  return result;
}

// Every fault ends here, since nothing stands above a worker's entry.
gConversionResult convert_guarded(gConversionInput const & input, bool (*work)(gConversion &)) {
  try {
    return convert(input, work);
  } catch (...) {
    Vlb::report_caught();
  }
  return {};
}

gPathstring log_path(gConversionInput const & input) {
  gPathstring path = input.out_dir;
  path.append(input.target);
  return path.set_extension("log");
}

} // namespace

gConversion::gConversion(gConversionInput const & input)
    : input_(input),
      folder_(input.folder),
      work_(folder_.normalize(true) + new_suffix) {}

gConversion::~gConversion() {
  try {
    remove_tree(work_);
  } catch (std::bad_alloc const &) {
    // What is left is cleared by the next run.
  }
}

bool gConversion::start() {
  Msg::log(Msg::converting, label_of(input_.target));
  Msg::log(Msg::status) << "  " << folder_ << std::endl;
  Vapp::poll_break();
  settle(folder_);
  replaces_ = exists(folder_);
  if (replaces_ && !gFileSystem::dir_exists(folder_))
    return report_unwritable(folder_, ENOTDIR);
  gFileSystem::mk_dirs(folder_.dir_name());
  pending_.emplace(work_);
  if (!gFileSystem::mk_dir(work_))
    return report_unwritable(work_, errno);
  gPathstring const & code = input_.code;
  if (!gAtcReader(Vlb::thread_count(input_.jobs)).read(code, document_)) {
    if (!document_.files.empty())
      Msg::log(Msg::no_text_unit, code);
    return false;
  }
  return rules_.load(input_.script);
}

std::string gConversion::title() const {
  return input_.title.empty() ? document_.name : input_.title;
}

gPathstring gConversion::place_for(std::string const & name) {
  gPathstring path = work_;
  path.append(name);
  if (std::size_t const end = name.rfind('/'); end != std::string::npos) {
    std::lock_guard const lock(mutex_);
    if (made_.insert(name.substr(0, end)).second)
      gFileSystem::mk_dirs(path.dir_name());
  }
  return path;
}

// Where the file system has no second names, the file is simply written.
bool gConversion::keep_unchanged(std::string const & name, std::string_view text) const {
  std::string const old = folder_ + "/" + name;
  return holds(old, text) && ::link(old.c_str(), (work_ + "/" + name).c_str()) == 0;
}

void gConversion::write(std::string const & name, std::string_view text) {
  Vapp::poll_break();
  gPathstring const path = place_for(name);
  bool const kept = replaces_ && keep_unchanged(name, text);
  if (int const error = kept ? 0 : write_file(path, text))
    throw gExcConversion(unwritable(path, error));
  std::lock_guard const lock(mutex_);
  ++result_.files;
  result_.unchanged += kept ? 1 : 0;
  result_.bytes += text.size();
  result_.pages += is_page(name);
}

bool gConversion::copy(gPathstring const & from, std::string const & name) {
  std::string text;
  if (!gFileSystem::read_file(from, text)) {
    Msg::log(Msg::cannot_read, from);
    return false;
  }
  write(name, text);
  return true;
}

void gConversion::progress(std::size_t done, std::size_t all) {
  Vapp::poll_break();
  int const percent = all > 0 ? static_cast<int>(std::min(done, all) * 100 / all) : 100;
  if (percent <= shown_) // what comes up later may not turn it back
    return;
  shown_ = percent;
  Vlb::SetStatus(gString(Msg::converting.text) + label_of(input_.target) + " " +
                     std::to_string(percent) + "%",
                 true);
}

// What the user has put into the result of an earlier run goes on into the new one, and what is new
// is entered in the record of the output folder before it is there.
bool gConversion::keep_foreign_files(std::set<std::string> const & made) {
  gPathstring const parent = folder_.dir_name();
  std::string const prefix = folder_.file_name() + "/";
  gFolderRecord record(parent);
  if (!record.exists())
    return true;
  std::set<std::string> entered = {prefix};
  for (std::string const & name : made)
    entered.insert(prefix + name);
  Vlb::FolderContents const old = Vlb::read_contents(folder_);
  if (!old.complete && exists(folder_))
    return report_unwritable(folder_, EACCES);
  for (std::string const & name : old.names) {
    if (!record.knows(prefix + name) && !carry(folder_, work_, name))
      return report_unwritable(gPathstring(folder_).append(name), errno);
  }
  return record.add(entered) ||
         report_unwritable(gPathstring(parent).append(gFolderRecord::file_name), errno);
}

// Somebody may have cleared the output folder meanwhile.
bool gConversion::is_whole(std::set<std::string> const & made) const {
  auto const files =
      std::ranges::count_if(made, [](std::string const & name) { return !name.ends_with('/'); });
  return static_cast<std::size_t>(files) >= result_.files || report_unwritable(work_, ENOENT);
}

bool gConversion::finish(std::string const & start_file) {
  Vapp::poll_break();
  std::set<std::string> const made = Vlb::read_contents(work_).names;
  if (!is_whole(made) || !keep_foreign_files(made))
    return false;
  // A signal that removes the work folder must not meet it on the way to its place.
  pending_->hold();
  bool const replaced = replace(folder_, work_);
  int const error = errno;
  pending_->release();
  if (!replaced)
    return report_unwritable(folder_, error);
  remove_tree(work_); // the old result
  for (gUnitRecord const & unit : document_.units) {
    if (!unit.name.empty() && !unit.summary.empty())
      ++result_.units[unit.style];
    else if (!unit.name.empty())
      ++result_.without_text;
  }
  result_.start = folder_;
  result_.start.append(start_file);
  result_.success = true;
  return true;
}

void Conv::open_log(gConversionInput const & input) {
  Msg::log.reset_counts();
  Msg::log.err_max = 0;
  gPathstring const path = log_path(input);
  bool const opened = Msg::log.open_logfile(path);
  Msg::log.minlvl_disp(Msg::type(input.messages.lvl_disp));
  Msg::log.minlvl_file(Msg::type(input.messages.lvl_file));
  if (!opened)
    Msg::log(Msg::cannot_write, path);
  // From here on the error that reaches the limit is thrown, which only a worker catches.
  Msg::log.err_max = input.messages.err_max;
}

gConversionResult Conv::run(gConversionInput const & input, bool (*work)(gConversion &)) {
  Frame const frame;
  Msg::log.continue_run();
  Msg::log.stage(gRunStage::convert);
  gConversionResult result = convert_guarded(input, work);
  if (!Msg::log.close_logfile()) {
    Msg::log.err_max = 0;
    Msg::log(Msg::cannot_write, log_path(input));
  }
  return result;
}

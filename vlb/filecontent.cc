// Whole files. Only regular ones are opened for reading: a pipe would wait and a device never end.
// Writing never touches the old file before the new one lies complete on the disk.
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "vlb/folder.h"
#include "vlb/gfilesystem.h"
#include "vlb/pending.h"
#include "vlb/random_name.h"
#include "vlb/tempfiles.h"
#include "vlb/witness.h"

namespace {

namespace fs = std::filesystem;

// Places in a text are counted in int.
constexpr off_t largest_file = std::numeric_limits<int>::max();

// A file descriptor that is closed in any case.
class Descriptor {
public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor const &) = delete;
  Descriptor & operator=(Descriptor const &) = delete;
  ~Descriptor() {
    if (number_ >= 0)
      ::close(number_);
  }

  explicit operator bool() const { return number_ >= 0; }
  int number() const { return number_; }

private:
  int number_;
};

bool read_all(int file, std::string & text) {
  constexpr std::size_t step = 1 << 16;
  std::size_t length = 0;
  for (;;) {
    if (text.size() == length)
      text.resize(length + step);
    ssize_t const got = ::read(file, text.data() + length, text.size() - length);
    if (got < 0 && errno == EINTR)
      continue;
    if (got <= 0) {
      text.resize(length);
      return got == 0;
    }
    length += static_cast<std::size_t>(got);
  }
}

bool write_all(int file, std::string_view text) {
  while (!text.empty()) {
    ssize_t const written = ::write(file, text.data(), text.size());
    if (written < 0 && errno == EINTR)
      continue;
    if (written <= 0)
      return false;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// A file of that name is being written as long as its lock is held; others are left of a process
// that was killed.
void remove_left_behind(std::string const & path) {
  Descriptor const file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (file && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0)
    ::unlink(path.c_str());
}

void clear_left_behind(gPathstring const & path) {
  gPathstring folder = path.dir_name();
  if (folder.empty())
    folder = ".";
  gString const name = path.file_name();
  for (Vlb::FolderEntry const & entry : Vlb::list_folder(folder)) {
    if (entry.kind == Vlb::EntryKind::file && entry.name.starts_with(name) &&
        Vlb::is_work_name(entry.name, name.size()))
      remove_left_behind(gPathstring(folder).append(entry.name));
  }
}

// A new file, locked. Negative if it can't be made, or was taken for one that is left behind in the
// moment before the lock.
int create_locked(std::string const & name) {
  int const file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
  struct stat info;
  if (file < 0 || ::flock(file, LOCK_EX | LOCK_NB) != 0 || ::fstat(file, &info) != 0 ||
      info.st_nlink > 0)
    return file;
  ::close(file);
  errno = EEXIST;
  return -1;
}

bool take_mode(int file, struct stat const & old) {
  // Only the superuser's own writing could change the owner, and not even that everywhere.
  bool const same_owner = ::geteuid() != 0 || ::fchown(file, old.st_uid, old.st_gid) == 0;
  return ::fchmod(file, old.st_mode & (same_owner ? 07777 : 0777)) == 0;
}

// Makes the new name last over a loss of power. Not every file system can do that for a folder.
void sync_folder(std::string const & path) {
  gString const folder = gPathstring(path).dir_name();
  Descriptor const dir(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY));
  if (dir)
    ::fsync(dir.number());
}

bool fill_file(int file, std::string_view text, struct stat const * old) {
  // The mode first: nobody may read the new text who couldn't read the old one.
  return (!old || take_mode(file, *old)) && write_all(file, text) && ::fsync(file) == 0;
}

bool replace_file(std::string const & path, std::string_view text, struct stat const * old) {
  for (int tries = 0; tries < 100; ++tries) {
    std::string const beside = path + Vlb::work_ending();
    Vlb::gPending const pending(beside);
    Descriptor const file(create_locked(beside));
    if (!file && errno == EEXIST)
      continue;
    if (!file)
      return false;
    // The lock holds until the file has its place.
    bool const done =
        fill_file(file.number(), text, old) && std::rename(beside.c_str(), path.c_str()) == 0;
    if (!done)
      ::unlink(beside.c_str());
    return done;
  }
  return false;
}

bool read_from_disk(std::string const & path, std::string & text, gFileState & state) {
  text.clear();
  Descriptor const file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
  struct stat info;
  if (!file || ::fstat(file.number(), &info) != 0 || !S_ISREG(info.st_mode) ||
      info.st_size > largest_file)
    return false;
  state = gFileState::of(info);
  try {
    // One byte more than the file has tells its end without another growth.
    text.resize(static_cast<std::size_t>(info.st_size) + 1);
    return read_all(file.number(), text);
  } catch (std::exception const &) {
    // Larger than the memory.
    text.clear();
    return false;
  }
}

} // namespace

bool gFileSystem::read_file(gPathstring const & path, std::string & text) {
  if (auto const in_memory = gTempFiles::text(path)) {
    text = *in_memory;
    return true;
  }
  gFileState state;
  bool const read = read_from_disk(path, text, state);
  if (read)
    Vlb::note_bytes(path, state, text);
  else
    Vlb::note_unreadable(path);
  return read;
}

bool gFileSystem::write_file_atomic(gPathstring const & path, std::string_view text) {
  std::string target = path;
  std::error_code failure;
  if (fs::is_symlink(path.c_str(), failure))
    target = fs::weakly_canonical(path.c_str(), failure).string();
  if (target.empty())
    return false;
  struct stat old;
  bool const exists = ::stat(target.c_str(), &old) == 0;
  // Renaming would do away with a device, and with the write protection of a file.
  if (exists && (!S_ISREG(old.st_mode) || ::access(target.c_str(), W_OK) != 0))
    return false;
  clear_left_behind(gPathstring(target));
  if (!replace_file(target, text, exists ? &old : nullptr))
    return false;
  sync_folder(target);
  Vlb::note_bytes(path, gFileState::of(target), text);
  return true;
}

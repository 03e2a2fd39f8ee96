// Making an inode for each source costs more than analysing it, so the texts stay in memory while
// they fit a budget. Those that don't lie in one folder of the process, which only this user can
// enter. The list of files on the disk must be walked by a signal handler while any thread is in
// the middle of a change, so it is made of slots that are never freed: one atomic flag tells
// whether the name in a slot holds.
#include "vlb/tempfiles.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_map>

#include "vlb/gfilesystem.h"
#include "vlb/random_name.h"
#include "vlb/temp_folder.h"

namespace {

constexpr std::size_t max_prefix = 15;
constexpr std::size_t max_name = max_prefix + 16;
constexpr std::size_t max_folder = 4000;
constexpr std::size_t slots_in_chunk = 256;

struct Slot {
  std::atomic<bool> listed = false;
  char name[max_name + 1] = "";
};

struct Chunk {
  Slot slots[slots_in_chunk];
  std::atomic<Chunk *> next = nullptr;
};

// What the handler reads. The process is told apart because a child inherits the list.
std::atomic<Chunk *> first_chunk = nullptr;
std::atomic<pid_t> folder_owner = 0; // 0: the folder has no name yet
std::atomic<bool> ended = false;     // the process is about to go
std::atomic<bool> making_folder = false;
char folder[max_folder + 1];

struct File {
  std::shared_ptr<std::string const> text; // null if it is on the disk
  Slot * slot = nullptr;
};

// What no handler reads, under the lock.
struct Book {
  std::mutex lock;
  std::unordered_map<std::string, File> files; // by name
  std::vector<Slot *> unused;
  std::size_t reserved = 0; // bytes in memory, or about to be
  int held_folder = -1;     // while the folder is there
  bool exit_hook = false;
};

void remove_at_exit();

Book & book() {
  // Never destroyed, since the hook at the end of the process may come later than anything.
  static Book * const the_book = new Book;
  return *the_book;
}

// An inherited list is forgotten: its files belong to the parent.
void forget_all(Book & book) {
  for (Chunk * chunk = first_chunk; chunk; chunk = chunk->next)
    for (Slot & slot : chunk->slots)
      slot.listed = false;
  folder_owner = 0;
  for (auto const & [name, file] : book.files)
    if (file.slot)
      book.unused.push_back(file.slot);
  book.files.clear();
  book.reserved = 0;
  if (book.held_folder >= 0)
    ::close(std::exchange(book.held_folder, -1));
}

bool name_folder(Book & book, gString const & prefix) {
  if (folder_owner == ::getpid())
    return true;
  forget_all(book);
  gPathstring path = gFileSystem::temp_dir();
  Vlb::remove_killed_folders(path, prefix);
  path.append(prefix + Vlb::random_name());
  if (path.size() > max_folder)
    return false;
  std::memcpy(folder, path.c_str(), path.size() + 1);
  folder_owner = ::getpid();
  return true;
}

bool make_folder(Book & book) {
  if (!std::exchange(book.exit_hook, true))
    std::atexit(remove_at_exit);
  making_folder = true;
  if (book.held_folder < 0 && !ended)
    book.held_folder = Vlb::make_held_folder(folder);
  making_folder = false;
  return book.held_folder >= 0 && !ended;
}

Slot * free_slot(Book & book) {
  if (book.unused.empty()) {
    auto * chunk = new Chunk;
    for (Slot & slot : chunk->slots)
      book.unused.push_back(&slot);
    chunk->next = first_chunk.load();
    first_chunk = chunk;
  }
  Slot * const slot = book.unused.back();
  book.unused.pop_back();
  return slot;
}

gPathstring path_of(std::string const & name) {
  return gPathstring(folder).append(name);
}

int create(gPathstring const & path) {
  return ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
}

void drop_text(Book & book, File & file) {
  if (file.text)
    book.reserved -= file.text->size();
  file.text.reset();
}

// False if there is no such file in memory.
bool drop(std::string const & name) {
  Book & all = book();
  std::scoped_lock const guard(all.lock);
  auto const found = all.files.find(name);
  if (found == all.files.end() || !found->second.text)
    return false;
  drop_text(all, found->second);
  all.files.erase(found);
  return true;
}

void delist(std::string const & name) {
  Book & all = book();
  std::scoped_lock const guard(all.lock);
  auto const found = all.files.find(name);
  if (found == all.files.end())
    return;
  // A slot that a handler took is left to it.
  if (Slot * const slot = found->second.slot; slot && slot->listed.exchange(false))
    all.unused.push_back(slot);
  all.files.erase(found);
}

// Removes the files of the listed slots, or those of all slots, and the folder; true if that is
// gone. Called by signal handlers.
bool remove_files(bool all_slots) {
  char path[max_folder + 1 + max_name + 1];
  std::size_t const length = std::strlen(folder);
  std::memcpy(path, folder, length);
  path[length] = '/';
  for (Chunk * chunk = first_chunk; chunk; chunk = chunk->next)
    for (Slot & slot : chunk->slots)
      if (slot.listed.exchange(false) || (all_slots && *slot.name)) {
        std::memcpy(path + length + 1, slot.name, sizeof slot.name);
        ::unlink(path);
      }
  return ::rmdir(folder) == 0 || errno == ENOENT;
}

// Another thread may hold the lock for ever by now.
void remove_at_exit() {
  if (folder_owner == ::getpid())
    remove_files(false);
}

bool is_temp_path(std::string_view path) {
  std::string_view const own = folder;
  return folder_owner == ::getpid() && path.size() > own.size() && path.starts_with(own) &&
         path[own.size()] == '/';
}

std::size_t budget() {
  constexpr std::size_t largest = std::size_t(1) << 20;
  char const * const set = std::getenv("VELLUMAR_TEMP_MEMORY");
  std::string_view const text = set ? set : "";
  std::size_t megabytes = 0;
  bool const good =
      std::from_chars(text.data(), text.data() + text.size(), megabytes).ec == std::errc();
  return good ? std::min(megabytes, largest) << 20 : gTempFiles::usual_budget;
}

} // namespace

gPathstring gFileSystem::temp_dir() {
  char const * const set = std::getenv("TMPDIR");
  gPathstring const dir(set ? set : "");
  return dir.is_absolute() && dir_exists(dir) ? dir : gPathstring("/tmp");
}

gPathstring gFileSystem::get_temp_file_name(gString const & prefix) {
  static auto const empty = std::make_shared<std::string const>();
  if (prefix.size() > max_prefix || prefix.find('/') != prefix.npos)
    return {};
  Book & all = book();
  std::scoped_lock const guard(all.lock);
  if (ended || !name_folder(all, prefix))
    return {};
  std::string const name = prefix + Vlb::random_name();
  all.files[name].text = empty;
  return path_of(name);
}

bool gFileSystem::remove(gPathstring const & path) {
  bool const temporary = is_temp_path(path);
  if (temporary && drop(path.file_name()))
    return true;
  bool const gone = ::unlink(path.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR;
  if (gone && temporary)
    delist(path.file_name());
  return gone;
}

void gFileSystem::remove_temp_files() noexcept {
  if (folder_owner != ::getpid())
    return;
  Book & all = book();
  std::scoped_lock const guard(all.lock);
  remove_files(false);
  forget_all(all);
}

// Another thread may be about to make the folder or a file, or open one by its name, so the folder
// is tried again until it goes and stays away.
void gFileSystem::end_temp_files() noexcept {
  constexpr int tries = 100;
  constexpr timespec pause = {0, 1'000'000};
  ended = true;
  int const saved = errno;
  bool gone = folder_owner != ::getpid();
  for (int i = 0; i < tries && !gone; ++i) {
    if (i > 0)
      ::nanosleep(&pause, nullptr);
    bool const made_now = making_folder;
    gone = remove_files(i > 0) && !made_now;
  }
  errno = saved;
}

bool gTempFiles::holds(std::string_view path) {
  return is_temp_path(path);
}

std::shared_ptr<std::string const> gTempFiles::text(gPathstring const & path) {
  if (!is_temp_path(path))
    return {};
  Book & all = book();
  std::scoped_lock const guard(all.lock);
  auto const found = all.files.find(path.file_name());
  return found == all.files.end() ? nullptr : found->second.text;
}

bool gTempFiles::reserve(std::size_t bytes) {
  std::size_t const limit = budget();
  Book & all = book();
  std::scoped_lock const guard(all.lock);
  if (bytes > limit || all.reserved > limit - bytes)
    return false;
  all.reserved += bytes;
  return true;
}

void gTempFiles::release(std::size_t bytes) {
  Book & all = book();
  std::scoped_lock const guard(all.lock);
  all.reserved -= std::min(all.reserved, bytes);
}

bool gTempFiles::keep(gPathstring const & path, std::string text) {
  Book & all = book();
  std::scoped_lock const guard(all.lock);
  auto const found = is_temp_path(path) ? all.files.find(path.file_name()) : all.files.end();
  if (found == all.files.end() || !found->second.text) {
    all.reserved -= std::min(all.reserved, text.size());
    return false;
  }
  drop_text(all, found->second);
  found->second.text = std::make_shared<std::string const>(std::move(text));
  return true;
}

int gTempFiles::spill(gPathstring const & path) {
  Book & all = book();
  std::scoped_lock const guard(all.lock);
  auto const found = is_temp_path(path) ? all.files.find(path.file_name()) : all.files.end();
  if (ended || found == all.files.end() || !found->second.text || !make_folder(all))
    return -1;
  Slot * const slot = free_slot(all);
  std::memcpy(slot->name, found->first.c_str(), found->first.size() + 1);
  // Listed before it exists, so that a signal in between leaves nothing behind.
  slot->listed = true;
  int const file = create(path);
  if (file < 0) {
    slot->listed = false;
    all.unused.push_back(slot);
    return -1;
  }
  drop_text(all, found->second);
  found->second.slot = slot;
  return file;
}

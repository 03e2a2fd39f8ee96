// Temporary files lie in one folder of the process, which only this user can enter. The list of
// live files must be walked by a signal handler while any thread is in the middle of a change, so
// it is made of slots that are never freed: one atomic flag tells whether the name in a slot holds.
#include <atomic>
#include <cerrno>
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
std::atomic<pid_t> folder_owner = 0; // 0: there is no folder
std::atomic<bool> ended = false;     // the process is about to go
char folder[max_folder + 1];

// What only get_temp_file_name and remove use, under the lock.
struct Book {
  std::mutex lock;
  std::unordered_map<std::string, Slot *> slots; // by name
  std::vector<Slot *> unused;
  bool exit_hook = false;
};

Book & book() {
  // Never destroyed, since the hook at the end of the process may come later than anything.
  static Book * const the_book = new Book;
  return *the_book;
}

void remove_at_exit() {
  gFileSystem::remove_temp_files();
}

// An inherited list is forgotten: its files belong to the parent.
void forget_all(Book & book) {
  for (Chunk * chunk = first_chunk; chunk; chunk = chunk->next)
    for (Slot & slot : chunk->slots)
      slot.listed = false;
  folder_owner = 0;
  for (auto const & [name, slot] : book.slots)
    book.unused.push_back(slot);
  book.slots.clear();
}

bool make_folder(Book & book, gString const & prefix) {
  if (folder_owner == ::getpid())
    return true;
  forget_all(book);
  gPathstring path = gFileSystem::temp_dir();
  path.append(prefix + "XXXXXX");
  if (path.size() > max_folder)
    return false;
  std::memcpy(folder, path.c_str(), path.size() + 1);
  if (!::mkdtemp(folder))
    return false;
  folder_owner = ::getpid();
  if (!std::exchange(book.exit_hook, true))
    std::atexit(remove_at_exit);
  return true;
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

gPathstring path_of(char const * name) {
  return gPathstring(folder).append(name);
}

bool create(gPathstring const & path) {
  int const flags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  int const file = ::open(path.c_str(), flags, 0600);
  return file >= 0 && ::close(file) == 0;
}

void delist(std::string const & name) {
  Book & all = book();
  std::scoped_lock const guard(all.lock);
  auto const found = all.slots.find(name);
  if (found == all.slots.end())
    return;
  // A slot that a handler took is left to it.
  if (found->second->listed.exchange(false))
    all.unused.push_back(found->second);
  all.slots.erase(found);
}

// Removes the files of the listed slots, or those of all slots, and the folder. Called by signal
// handlers.
void remove_files(bool all_slots) {
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
  // A folder that someone else removed is replaced by a new one, too.
  if (::rmdir(folder) == 0 || errno == ENOENT)
    folder_owner = 0;
}

bool is_temp_path(std::string_view path) {
  std::string_view const own = folder;
  return folder_owner == ::getpid() && path.size() > own.size() && path.starts_with(own) &&
         path[own.size()] == '/';
}

} // namespace

gPathstring gFileSystem::temp_dir() {
  char const * const set = std::getenv("TMPDIR");
  gPathstring const dir(set ? set : "");
  return dir.is_absolute() && dir_exists(dir) ? dir : gPathstring("/tmp");
}

gPathstring gFileSystem::get_temp_file_name(gString const & prefix) {
  if (prefix.size() > max_prefix || prefix.find('/') != prefix.npos)
    return {};
  Book & all = book();
  std::scoped_lock const guard(all.lock);
  if (ended || !make_folder(all, prefix))
    return {};
  std::string const name = prefix + Vlb::random_name();
  Slot * const slot = free_slot(all);
  std::memcpy(slot->name, name.c_str(), name.size() + 1);
  // Listed before it exists, so that a signal in between leaves nothing behind.
  slot->listed = true;
  gPathstring const path = path_of(slot->name);
  if (create(path)) {
    all.slots[name] = slot;
    return path;
  }
  slot->listed = false;
  all.unused.push_back(slot);
  return {};
}

bool gFileSystem::remove(gPathstring const & path) {
  bool const gone = ::unlink(path.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR;
  if (gone && is_temp_path(path))
    delist(path.file_name());
  return gone;
}

void gFileSystem::remove_temp_files() noexcept {
  if (folder_owner != ::getpid())
    return;
  int const saved = errno;
  remove_files(false);
  errno = saved;
}

// Another thread may be about to make a file, or open one by its name, so the folder is tried again
// until it goes.
void gFileSystem::end_temp_files() noexcept {
  constexpr int tries = 100;
  constexpr timespec pause = {0, 1'000'000};
  ended = true;
  remove_temp_files();
  for (int i = 0; i < tries && folder_owner == ::getpid(); ++i) {
    ::nanosleep(&pause, nullptr);
    remove_files(true);
  }
}

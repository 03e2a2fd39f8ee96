// The list is read by a signal handler while any thread may be in the middle of a change, so it is
// made of slots that never move, and the handler asks the system alone: no memory, no library that
// reads folders.
#include "vlb/pending.h"

#include <atomic>
#include <cerrno>
#include <cstring>
#include <ctime>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr std::size_t max_path = 4096;
constexpr int max_depth = 32;

enum State : int { unused, taken, listed };

struct Slot {
  std::atomic<int> state = unused;
  char path[max_path];
};

// Two threads write at most a file and a folder each.
Slot slots[16];
std::atomic<bool> ended = false;

// As the system hands out the entries of a folder.
struct Entry {
  unsigned long long inode;
  long long offset;
  unsigned short size;
  unsigned char type;
  char name[1];
};

bool is_dots(char const * name) {
  return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

void remove_entry(int folder, char const * name, int depth);

void remove_contents(int folder, int depth) {
  alignas(Entry) char buffer[4096];
  for (long size; (size = ::syscall(SYS_getdents64, folder, buffer, sizeof buffer)) > 0;)
    for (long at = 0; at < size;) {
      auto const * const entry = reinterpret_cast<Entry const *>(buffer + at);
      if (!is_dots(entry->name))
        remove_entry(folder, entry->name, depth);
      at += entry->size;
    }
}

// A link to a folder goes like a file.
void remove_entry(int folder, char const * name, int depth) {
  if (::unlinkat(folder, name, 0) == 0 || errno == ENOENT || depth == 0)
    return;
  int const below = ::openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  if (below < 0)
    return;
  remove_contents(below, depth - 1);
  ::close(below);
  ::unlinkat(folder, name, AT_REMOVEDIR);
}

bool remove_listed() {
  bool any = false;
  for (Slot & slot : slots)
    if (int const state = slot.state; state != unused) {
      any = true; // what is taken may be listed in a moment
      if (state == listed)
        remove_entry(AT_FDCWD, slot.path, max_depth);
    }
  return any;
}

} // namespace

Vlb::gPending::gPending(std::string const & path) : slot_(nullptr) {
  for (Slot & slot : slots) {
    int expected = unused;
    if (path.size() >= max_path || slot_ || !slot.state.compare_exchange_strong(expected, taken))
      continue;
    std::memcpy(slot.path, path.c_str(), path.size() + 1);
    slot.state = listed;
    slot_ = &slot;
  }
  while (ended)
    ::pause();
}

Vlb::gPending::~gPending() {
  if (slot_)
    static_cast<Slot *>(slot_)->state = unused;
}

// Either the handler finds the slot taken, or this finds that the handler is at work.
void Vlb::gPending::hold() {
  if (slot_)
    static_cast<Slot *>(slot_)->state = taken;
  if (!ended)
    return;
  release();
  for (;;)
    ::pause();
}

void Vlb::gPending::release() {
  if (slot_)
    static_cast<Slot *>(slot_)->state = listed;
}

// Another thread may make the file between its entry in the list and now, or go on filling the
// folder, so all is tried again for a while.
void Vlb::end_pending() noexcept {
  constexpr int tries = 20;
  constexpr timespec pause = {0, 1'000'000};
  ended = true;
  for (int i = 0; i < tries && remove_listed(); ++i)
    ::nanosleep(&pause, nullptr);
}

// A folder that vanishes is looked for again whenever the wait ends without a note, so that it may
// come back, as when a branch of a repository is changed.
#include "app/cli/folder_watch.h"

#include <cerrno>

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include "vlb/folder.h"
#include "vlb/gfilesystem.h"

namespace {

constexpr std::uint32_t changes = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM |
                                  IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
constexpr int look_again = 1000; // ms

// What editors leave beside the files that they write.
bool is_passing(std::string const & name) {
  return name.starts_with('.') || name.ends_with('~') || name.starts_with('#') || name == "4913";
}

std::string folder_of(std::string const & path) {
  return path.substr(0, std::max<std::size_t>(path.rfind('/'), 1));
}

} // namespace

gFolderWatch::gFolderWatch() : notes_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

gFolderWatch::~gFolderWatch() {
  if (good())
    ::close(notes_);
}

bool gFolderWatch::leaves_out(std::string const & path) const {
  return !places_.leave_out.empty() && (path + "/").starts_with(places_.leave_out + "/");
}

// The kernel's number for a folder; -1, and the wish is entered, if it can't be watched.
int gFolderWatch::note(std::string const & folder, std::string const & wish) {
  int const number = ::inotify_add_watch(notes_, folder.c_str(), changes);
  full_ = full_ || (number < 0 && errno == ENOSPC);
  if (number < 0)
    refused_.push_back(wish);
  return number;
}

void gFolderWatch::add(std::string const & folder, bool tree) {
  int const number = note(folder, folder);
  if (number < 0)
    return;
  Folder & one = folders_[number];
  one.path = folder;
  one.tree = one.tree || tree;
  one.files = true;
}

void gFolderWatch::add_below(std::string const & folder) {
  std::vector<std::string> waiting = {folder};
  while (!waiting.empty()) {
    std::string const one = std::move(waiting.back());
    waiting.pop_back();
    if (leaves_out(one))
      continue;
    add(one, true);
    for (Vlb::FolderEntry const & entry : Vlb::read_folder(gPathstring(one)))
      if (entry.kind == Vlb::EntryKind::folder && !entry.hidden())
        waiting.push_back(one + "/" + entry.name);
  }
}

std::vector<std::string> gFolderWatch::watch(gWatchedPlaces places) {
  for (auto const & [number, folder] : folders_)
    ::inotify_rm_watch(notes_, number);
  folders_.clear();
  refused_.clear();
  full_ = false;
  places_ = std::move(places);
  for (std::string const & tree : places_.trees)
    add_below(tree);
  for (std::string const & folder : places_.folders)
    if (!leaves_out(folder))
      add(folder, false);
  for (std::string const & file : places_.files)
    if (int const number = note(folder_of(file), file); number >= 0)
      folders_[number].path = folder_of(file);
  return refused_;
}

void gFolderWatch::take(int number, std::uint32_t what, std::string const & name,
                        std::set<std::string> & changed) {
  if (what & IN_Q_OVERFLOW) { // notes were lost: anything may have changed
    for (auto const & [each, folder] : folders_)
      changed.insert(folder.path);
    return;
  }
  auto const found = folders_.find(number);
  if (found == folders_.end())
    return;
  Folder const & folder = found->second;
  if (what & (IN_DELETE_SELF | IN_MOVE_SELF)) {
    changed.insert(folder.path);
    return;
  }
  std::string const path = folder.path + "/" + name;
  bool const is_folder = what & IN_ISDIR;
  if (what & IN_IGNORED || is_passing(name) || leaves_out(path) || (is_folder && !folder.tree))
    return;
  // A new file is told about when it has been written.
  bool const empty_yet = what & IN_CREATE && !is_folder;
  bool const named = places_.files.contains(path);
  bool const counts =
      named || (folder.files && (is_folder || !places_.wanted || places_.wanted(name)));
  if (counts && !empty_yet)
    changed.insert(path);
}

void gFolderWatch::take_notes(std::set<std::string> & changed) {
  alignas(inotify_event) char buffer[1 << 16];
  for (ssize_t size; (size = ::read(notes_, buffer, sizeof buffer)) > 0;)
    for (char const * at = buffer; at < buffer + size;) {
      auto const & note = *reinterpret_cast<inotify_event const *>(at);
      take(note.wd, note.mask, note.len > 0 ? std::string(note.name) : std::string(), changed);
      at += sizeof note + note.len;
    }
}

std::set<std::string> gFolderWatch::wait(int stop, std::chrono::milliseconds rest) {
  std::set<std::string> changed;
  for (;;) {
    pollfd waits[] = {{stop, POLLIN, 0}, {notes_, POLLIN, 0}};
    int const time = !changed.empty()            ? static_cast<int>(rest.count())
                     : refused_.empty() || full_ ? -1
                                                 : look_again;
    int const ready = ::poll(waits, 2, time);
    if (ready < 0 && errno != EINTR)
      return {};
    if (ready > 0 && waits[0].revents != 0)
      return {};
    if (ready > 0)
      take_notes(changed);
    if (ready != 0)
      continue;
    for (std::string const & path : refused_)
      if (!full_ && (gFileSystem::dir_exists(gPathstring(path)) ||
                     gFileSystem::file_exists(gPathstring(path))))
        changed.insert(path);
    if (!changed.empty())
      return changed;
  }
}

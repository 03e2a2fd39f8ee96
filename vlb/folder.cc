// Folder patterns are expanded component by component over lists of folders; the walk below "**"
// keeps its own stack, since a tree may be deeper than the machine's.
#include "vlb/folder.h"

#include <algorithm>
#include <deque>
#include <dirent.h>
#include <filesystem>
#include <set>
#include <sys/stat.h>

#include "vlb/gfilesystem.h"

namespace {

using namespace Vlb;
using Folders = std::vector<gPathstring>;

gPathstring joined(gPathstring const & folder, gString const & name) {
  return gPathstring(folder).append(name);
}

EntryKind kind_of_mode(mode_t mode) {
  return S_ISREG(mode)   ? EntryKind::file
         : S_ISDIR(mode) ? EntryKind::folder
         : S_ISLNK(mode) ? EntryKind::link
                         : EntryKind::other;
}

EntryKind kind_of(gPathstring const & folder, dirent const & entry) {
  if (entry.d_type != DT_UNKNOWN)
    return kind_of_mode(DTTOIF(entry.d_type));
  struct stat info;
  bool const known = ::lstat(joined(folder, entry.d_name).c_str(), &info) == 0;
  return known ? kind_of_mode(info.st_mode) : EntryKind::other;
}

Folders matching_folders(Folders const & parents, gString const & pattern) {
  Folders found;
  for (gPathstring const & parent : parents)
    for (FolderEntry const & entry : read_folder(parent))
      if ((!entry.hidden() || pattern.front() == '.') &&
          gFileSystem::matches(entry.name, pattern) && leads_to_folder(parent, entry))
        found.push_back(joined(parent, entry.name));
  return found;
}

// A link to a folder that it lies in would make the walk leave the folder it began with.
bool leads_upwards(gPathstring const & folder, FolderEntry const & entry) {
  std::error_code failure;
  std::string const from = std::filesystem::canonical(folder.c_str(), failure).string() + "/";
  std::string const target =
      std::filesystem::canonical(joined(folder, entry.name).c_str(), failure).string();
  return failure || from.starts_with(target == "/" ? target : target + "/");
}

// Folders are visited before what links lead to, so that a file keeps its real path where it has
// one below the start.
class Walk {
public:
  explicit Walk(gPathstring const & start) : folders_{start} {}

  Folders all() {
    Folders visited;
    while (!folders_.empty() || !links_.empty()) {
      gPathstring const folder = next();
      if (!is_new(folder))
        continue;
      visited.push_back(folder);
      enter(folder);
    }
    return visited;
  }

private:
  gPathstring next() {
    auto & from = folders_.empty() ? links_ : folders_;
    gPathstring folder = std::move(from.front());
    from.pop_front();
    return folder;
  }

  bool is_new(gPathstring const & folder) {
    struct stat info;
    return ::stat(folder.c_str(), &info) == 0 && seen_.emplace(info.st_dev, info.st_ino).second;
  }

  void enter(gPathstring const & folder) {
    for (FolderEntry const & entry : read_folder(folder)) {
      if (entry.hidden())
        continue;
      if (entry.kind == EntryKind::folder)
        folders_.push_back(joined(folder, entry.name));
      else if (leads_to_folder(folder, entry) && !leads_upwards(folder, entry))
        links_.push_back(joined(folder, entry.name));
    }
  }

  std::deque<gPathstring> folders_;
  std::deque<gPathstring> links_;
  std::set<std::pair<dev_t, ino_t>> seen_;
};

Folders walks_from(Folders const & starts) {
  Folders visited;
  for (gPathstring const & start : starts)
    for (gPathstring & folder : Walk(start).all())
      visited.push_back(std::move(folder));
  return visited;
}

} // namespace

namespace Vlb {

std::vector<FolderEntry> read_folder(gPathstring const & folder) {
  std::vector<FolderEntry> entries;
  DIR * const stream = ::opendir(folder.c_str());
  if (!stream)
    return entries;
  while (dirent const * entry = ::readdir(stream)) {
    std::string_view const name = entry->d_name;
    if (name != "." && name != "..")
      entries.push_back({gString(name), kind_of(folder, *entry)});
  }
  ::closedir(stream);
  std::sort(entries.begin(), entries.end(),
            [](FolderEntry const & a, FolderEntry const & b) { return a.name < b.name; });
  return entries;
}

bool leads_to_file(gPathstring const & folder, FolderEntry const & entry) {
  return entry.kind == EntryKind::file ||
         (entry.kind == EntryKind::link && gFileSystem::file_exists(joined(folder, entry.name)));
}

bool leads_to_folder(gPathstring const & folder, FolderEntry const & entry) {
  return entry.kind == EntryKind::folder ||
         (entry.kind == EntryKind::link && gFileSystem::dir_exists(joined(folder, entry.name)));
}

bool has_wildcard(std::string_view text) {
  return text.find_first_of("*?") != text.npos;
}

std::vector<gPathstring> expand_folders(gPathstring const & pattern) {
  if (!has_wildcard(pattern))
    return gFileSystem::dir_exists(pattern) ? Folders{pattern} : Folders{};
  gPathstring const parent = pattern.dir_name();
  gString const name = pattern.file_name();
  Folders const parents = parent.size() < pattern.size() ? expand_folders(parent) : Folders{};
  if (name == "**")
    return walks_from(parents);
  if (has_wildcard(name))
    return matching_folders(parents, name);
  Folders found;
  for (gPathstring const & one : parents)
    if (gFileSystem::dir_exists(joined(one, name)))
      found.push_back(joined(one, name));
  return found;
}

} // namespace Vlb

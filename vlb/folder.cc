// Folder patterns are expanded component by component over lists of folders, and the walk below
// "**" keeps its own stack: patterns and trees may be deeper than the machine's.
#include "vlb/folder.h"

#include <algorithm>
#include <deque>
#include <dirent.h>
#include <filesystem>
#include <set>
#include <sys/stat.h>

#include "vlb/gfilesystem.h"
#include "vlb/witness.h"

namespace {

using namespace Vlb;
using Folders = std::vector<gPathstring>;

constexpr char wildcards[] = "*?";

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
  explicit Walk(Folders const & starts) {
    for (gPathstring const & start : starts)
      (is_link(start) ? links_ : folders_).push_back(start);
  }

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
  static bool is_link(gPathstring const & folder) {
    struct stat info;
    return ::lstat(folder.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
  }

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

Folders existing(Folders const & parents, gString const & name) {
  Folders found;
  for (gPathstring const & parent : parents)
    if (gFileSystem::dir_exists(joined(parent, name)))
      found.push_back(joined(parent, name));
  return found;
}

// One component further down.
Folders below(Folders const & parents, gString const & name) {
  return name == "**"         ? Walk(parents).all()
         : has_wildcard(name) ? matching_folders(parents, name)
                              : existing(parents, name);
}

} // namespace

namespace Vlb {

std::vector<FolderEntry> read_folder(gPathstring const & folder) {
  std::vector<FolderEntry> entries = list_folder(folder);
  note_entries(folder, entries);
  return entries;
}

std::vector<FolderEntry> list_folder(gPathstring const & folder) {
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
  return text.find_first_of(wildcards) != text.npos;
}

std::vector<gPathstring> expand_folders(gPathstring const & pattern) {
  constexpr char sep = gPathstring::Dir_sep;
  std::string_view rest = pattern;
  // What has no wildcards is looked up as a whole.
  std::size_t const plain = rest.rfind(sep, rest.find_first_of(wildcards));
  std::size_t const start = has_wildcard(rest) ? plain + 1 : rest.size();
  Folders found;
  if (gPathstring const first{gString(rest.substr(0, start))}; gFileSystem::dir_exists(first))
    found.push_back(first);
  rest.remove_prefix(start);
  while (!rest.empty() && !found.empty()) {
    std::size_t const end = std::min(rest.find(sep), rest.size());
    found = below(found, gString(rest.substr(0, end)));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return found;
}

} // namespace Vlb

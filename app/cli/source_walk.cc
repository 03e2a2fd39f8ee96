// The walk keeps its own stack: a tree may be deeper than the machine's.

#include "app/cli/source_walk.h"

#include <algorithm>
#include <list>

#include <sys/stat.h>
#include <unistd.h>

#include "vlb/folder.h"
#include "vlb/gfilesystem.h"

namespace {

std::set<std::string> split(std::string const & extensions) {
  std::list<gPathstring> parts;
  gFileSystem::split_path_list(extensions, parts, true);
  std::set<std::string> result;
  for (gPathstring const & part : parts)
    result.insert(Vlb::to_lower(part));
  return result;
}

bool is_foreign(gString const & name) {
  static std::set<std::string> const names = {
      "node_modules", "build",          "_build", "CMakeFiles", "CVS",        "SCCS",
      "__pycache__",  "autom4te.cache", "_deps",  "target",     "DerivedData"};
  return name.starts_with('.') || name.starts_with("cmake-build-") || names.contains(name);
}

bool is_build_folder(std::vector<Vlb::FolderEntry> const & entries) {
  return std::any_of(entries.begin(), entries.end(), [](Vlb::FolderEntry const & entry) {
    return entry.name == "CMakeCache.txt" || entry.name == "build.ninja";
  });
}

// Zeros, which no folder has, where there is none.
std::pair<dev_t, ino_t> identity(gPathstring const & folder) {
  struct stat info {};
  ::stat(folder.c_str(), &info);
  return {info.st_dev, info.st_ino};
}

// Lists of folders are trimmed and have characters of their own; a line feed would break the lines
// of the intermediate code.
bool can_be_listed(gPathstring const & folder) {
  return folder.find_first_of(";*?\n") == folder.npos && gString(folder).wsp_rmright() == folder;
}

class Walk {
public:
  Walk(gPathstring const & leave_out, std::set<std::string> const & extensions, gSourceWalk & found)
      : leave_out_(identity(leave_out)),
        extensions_(extensions),
        found_(found) {}

  void go(gPathstring const & start) {
    open_.push_back(start);
    for (bool first = true; !open_.empty(); first = false) {
      gPathstring const folder = open_.back();
      open_.pop_back();
      std::pair<dev_t, ino_t> const id = identity(folder);
      if ((!first && id == leave_out_) || !found_.seen.insert(id).second)
        continue;
      std::vector<Vlb::FolderEntry> const entries = Vlb::read_folder(folder);
      if (entries.empty() && ::access(folder.c_str(), R_OK) != 0)
        found_.unreadable.push_back(folder);
      // The folder that the user names is taken whatever it looks like.
      if (first || !is_build_folder(entries))
        enter(folder, entries);
    }
  }

private:
  void enter(gPathstring const & folder, std::vector<Vlb::FolderEntry> const & entries) {
    if (!can_be_listed(folder)) {
      found_.left_out.push_back(folder);
      return;
    }
    std::size_t const before = found_.files;
    for (Vlb::FolderEntry const & entry : entries) {
      if (!entry.hidden() && Vlb::leads_to_file(folder, entry))
        file(entry.name);
    }
    if (found_.files > before)
      found_.folders.push_back(folder);
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
      gPathstring const path = gPathstring(folder).append(entry->name);
      if (entry->kind == Vlb::EntryKind::folder && !is_foreign(entry->name))
        open_.push_back(path);
    }
  }

  void file(gPathstring const & name) {
    std::string const extension = Vlb::to_lower(name.extension());
    if (!extensions_.contains(extension))
      return;
    found_.extensions.insert(extension);
    ++found_.files;
  }

  std::pair<dev_t, ino_t> leave_out_;
  std::set<std::string> const & extensions_;
  gSourceWalk & found_;
  std::vector<gPathstring> open_;
};

} // namespace

void walk_sources(gPathstring const & folder, gPathstring const & leave_out,
                  std::string const & extensions, gSourceWalk & found) {
  std::set<std::string> const known = split(extensions);
  Walk(leave_out, known, found).go(folder);
}

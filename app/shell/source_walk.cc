// The walk keeps its own stack: a tree may be deeper than the machine's.

#include "app/shell/source_walk.h"

#include <algorithm>
#include <filesystem>
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

// Lists are trimmed and have characters of their own; a line feed would break the lines of the
// intermediate code.
bool can_be_listed(gString const & name) {
  return name.find_first_of(";*?\n") == name.npos && gString(name).wsp_rmright() == name &&
         gString(name).wsp_rmleft() == name;
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
    take_files(folder, entries);
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
      gPathstring const path = gPathstring(folder).append(entry->name);
      if (entry->kind == Vlb::EntryKind::folder && !is_foreign(entry->name) &&
          found_.filter.enters(path))
        open_.push_back(path);
    }
  }

  void take_files(gPathstring const & folder, std::vector<Vlb::FolderEntry> const & entries) {
    gSourceFolder sources{folder, {}};
    std::vector<gPathstring> broken;
    bool all = true;
    for (Vlb::FolderEntry const & entry : entries) {
      if (entry.hidden() || !is_source(entry.name) || !Vlb::leads_to_file(folder, entry))
        continue;
      gPathstring const path = gPathstring(folder).append(entry.name);
      if (!found_.filter.takes(path)) {
        all = false;
        continue;
      }
      bool const inside = entry.kind != Vlb::EntryKind::link || lies_below(found_.roots, path);
      if (!inside)
        found_.outside.push_back(path);
      else if (entry.name.find('\n') != entry.name.npos)
        broken.push_back(path);
      else
        sources.chosen.push_back(entry.name);
      all = all && inside;
    }
    // The run itself tells what it can't take of a whole folder.
    if (!all || sources.chosen.empty())
      found_.left_out.insert(found_.left_out.end(), broken.begin(), broken.end());
    if (all)
      enter_folder(folder, sources.chosen);
    else
      enter_chosen(std::move(sources));
  }

  void enter_folder(gPathstring const & folder, std::vector<gString> const & names) {
    for (gPathstring const name : names)
      found_.extensions.insert(Vlb::to_lower(name.extension()));
    found_.files += names.size();
    if (!names.empty())
      found_.folders.push_back({folder, {}});
  }

  void enter_chosen(gSourceFolder && sources) {
    std::erase_if(sources.chosen, [&](gString const & name) {
      if (can_be_listed(name))
        return false;
      found_.left_out.push_back(gPathstring(sources.path).append(name));
      return true;
    });
    found_.files += sources.chosen.size();
    if (!sources.chosen.empty())
      found_.folders.push_back(std::move(sources));
  }

  bool is_source(gPathstring const & name) const {
    return extensions_.contains(Vlb::to_lower(name.extension()));
  }

  std::pair<dev_t, ino_t> leave_out_;
  std::set<std::string> const & extensions_;
  gSourceWalk & found_;
  std::vector<gPathstring> open_;
};

} // namespace

namespace {

bool is_excluded(gWalkFilter const & filter, std::string const & path) {
  return std::ranges::any_of(filter.excluded_patterns, [&](std::string const & pattern) {
    return gFileSystem::matches(gString(path), gString(pattern)) != 0;
  });
}

} // namespace

bool gWalkFilter::takes(gPathstring const & file) const {
  gString const name = gPathstring(file).file_name();
  bool const named = names.empty() || std::ranges::any_of(names, [&](std::string const & pattern) {
                       return gFileSystem::matches(name, gString(pattern)) != 0;
                     });
  return named && std::ranges::find(excluded, file) == excluded.end() && !is_excluded(*this, file);
}

// A pattern such as "*/test/*" is about what stands in the folder.
bool gWalkFilter::enters(gPathstring const & folder) const {
  return recursive && std::ranges::find(excluded, folder) == excluded.end() &&
         !is_excluded(*this, folder) && !is_excluded(*this, folder + "/");
}

bool lies_below(std::vector<gPathstring> const & roots, gPathstring const & path) {
  std::error_code error;
  std::string const target = std::filesystem::canonical(path.c_str(), error).string();
  return std::ranges::any_of(roots, [&](gPathstring const & root) {
    return target.starts_with(root.ends_with('/') ? std::string(root) : root + "/");
  });
}

void walk_sources(gPathstring const & folder, gPathstring const & leave_out,
                  std::string const & extensions, gSourceWalk & found) {
  std::set<std::string> const known = split(extensions);
  Walk(leave_out, known, found).go(folder);
}

bool take_source(gPathstring const & file, std::string const & extensions, gSourceWalk & found) {
  if (!split(extensions).contains(Vlb::to_lower(file.extension())))
    return false;
  gSourceFolder folder{gPathstring(file.dir_name()), {file.file_name()}};
  if (!can_be_listed(folder.path) || !can_be_listed(folder.chosen.front())) {
    found.left_out.push_back(file);
  } else if (found.seen.insert(identity(file)).second) {
    found.folders.push_back(std::move(folder));
    ++found.files;
  }
  return true;
}

bool has_extension(gPathstring const & name, std::string const & extensions) {
  return split(extensions).contains(Vlb::to_lower(name.extension()));
}

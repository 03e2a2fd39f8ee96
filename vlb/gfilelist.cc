// Folders times names. A folder is read once for all names; a name without wildcards that exists
// needs no reading at all.
#include "vlb/gfilelist.h"

#include <map>

#include "vlb/folder.h"
#include "vlb/gfilesystem.h"

struct gFileList::Pattern {
  explicit Pattern(gPathstring const & typed)
      : typed(typed),
        name(typed.file_name()),
        wild(Vlb::has_wildcard(name)) {}

  bool accepts(Vlb::FolderEntry const & entry) const {
    return (!entry.hidden() || name.starts_with('.')) && gFileSystem::matches(entry.name, name);
  }

  gPathstring typed;
  gString name;
  bool wild;
  bool found = false;
};

namespace {

std::list<gPathstring> split(gString const & list) {
  std::list<gPathstring> parts;
  gFileSystem::split_path_list(list, parts, true);
  return parts;
}

} // namespace

bool gFileList::ByPath::operator()(gPathstring const & a, gPathstring const & b) const {
  int const order = a.compare_i(b);
  return order != 0 ? order < 0 : a.compare(b) < 0;
}

gFileList::gFileList(unsigned) : cur_dir_(gFileSystem::get_curdir()) {}

bool gFileList::cur_dir(gPathstring const & dir) {
  if (!gFileSystem::dir_exists(dir))
    return false;
  cur_dir_ = dir;
  cur_dir_.make_absolute(gFileSystem::get_curdir()).normalize(true);
  return true;
}

void gFileList::add(gString const & paths, gString const & files, int) {
  std::vector<gPathstring> const folders = folders_of(paths);
  if (folders.empty())
    return;
  std::map<gString, std::vector<Pattern>> by_folder;
  for (gPathstring const & name : split(files))
    by_folder[name.dir_name()].emplace_back(name);
  for (auto & [below, patterns] : by_folder) {
    for (gPathstring const & folder : folders)
      for (gPathstring const & one : folders_below(folder, below))
        add_from(one, patterns);
    for (Pattern const & pattern : patterns)
      if (!pattern.found)
        problems_.push_back("No file matches: " +
                            (folders.size() == 1
                                 ? gPathstring(pattern.typed).make_absolute(folders[0])
                                 : pattern.typed));
  }
}

// The existing folders that the list stands for; what is missing is entered in problems_.
std::vector<gPathstring> gFileList::folders_of(gString const & paths) {
  std::list<gPathstring> typed = split(paths);
  if (typed.empty())
    typed.push_back(cur_dir_);
  std::vector<gPathstring> folders;
  for (gPathstring & path : typed) {
    path.make_absolute(cur_dir_).normalize(true);
    std::vector<gPathstring> const found = Vlb::expand_folders(path);
    if (found.empty())
      problems_.push_back("Folder does not exist: " + path);
    folders.insert(folders.end(), found.begin(), found.end());
  }
  return folders;
}

std::vector<gPathstring> gFileList::folders_below(gPathstring const & folder,
                                                  gString const & below) {
  if (below.empty())
    return {folder};
  return Vlb::expand_folders(gPathstring(below).make_absolute(folder).normalize(true));
}

void gFileList::add_from(gPathstring const & folder, std::vector<Pattern> & patterns) {
  std::vector<Pattern *> open;
  for (Pattern & pattern : patterns) {
    gPathstring const path = gPathstring(folder).append(pattern.name);
    if (pattern.wild || !gFileSystem::file_exists(path))
      open.push_back(&pattern);
    else
      add_file(path, pattern);
  }
  if (open.empty())
    return;
  for (Vlb::FolderEntry const & entry : Vlb::read_folder(folder))
    for (Pattern * pattern : open)
      if (pattern->accepts(entry) && Vlb::leads_to_file(folder, entry))
        add_file(gPathstring(folder).append(entry.name), *pattern);
}

void gFileList::add_file(gPathstring const & path, Pattern & pattern) {
  pattern.found = true;
  // Lists of files, logs and the intermediate code have one name a line.
  (path.find('\n') == path.npos ? files_ : left_out_).insert(path);
}

void gFileList::clear() {
  files_.clear();
  left_out_.clear();
  problems_.clear();
}

std::vector<gSrcFile> gFileList::files() const {
  std::vector<gSrcFile> sources;
  sources.reserve(files_.size());
  for (gPathstring const & path : files_)
    sources.emplace_back(path, "", 0);
  return sources;
}

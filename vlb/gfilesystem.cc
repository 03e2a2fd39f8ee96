// The file system by its plain calls. Folders are read as a whole and put in byte order, so that
// nothing depends on the order in which the machine lists them or on a locale.
#include "vlb/gfilesystem.h"

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "vlb/folder.h"
#include "vlb/witness.h"

namespace {

namespace fs = std::filesystem;

bool has_kind(std::string const & path, unsigned kind) {
  unsigned const found = gFileState::of(path).kind();
  Vlb::note_kind(path, found);
  return found == kind;
}

} // namespace

bool gFileSystem::file_exists(gPathstring const & path) {
  return has_kind(path, S_IFREG);
}

bool gFileSystem::dir_exists(gPathstring const & path) {
  return has_kind(path, S_IFDIR);
}

bool gFileSystem::mk_dir(gPathstring const & path) {
  return ::mkdir(path.c_str(), 0777) == 0;
}

bool gFileSystem::mk_dirs(gPathstring const & path) {
  std::error_code failure;
  fs::create_directories(path.c_str(), failure);
  return dir_exists(path);
}

bool gFileSystem::clear_dir(gPathstring const & path, bool recursive) {
  std::error_code failure;
  std::vector<fs::directory_entry> entries;
  fs::directory_iterator entry(path.c_str(), failure);
  for (; !failure && entry != fs::directory_iterator(); entry.increment(failure))
    entries.push_back(*entry);
  bool all_gone = !failure;
  for (fs::directory_entry const & one : entries) {
    bool const folder = one.symlink_status(failure).type() == fs::file_type::directory;
    if (folder && !recursive)
      continue;
    fs::remove_all(one.path(), failure);
    all_gone = all_gone && !failure;
  }
  return all_gone;
}

long gFileSystem::find_first(gPathstring const & pattern, gFileInfo & info) {
  gPathstring folder = pattern.dir_name();
  if (folder.empty())
    folder = ".";
  gString const name = pattern.file_name();
  info.rest = std::make_shared<std::vector<std::pair<std::string, bool>>>();
  for (Vlb::FolderEntry const & entry : Vlb::read_folder(folder))
    if (matches(entry.name, name))
      info.rest->emplace_back(entry.name, Vlb::leads_to_folder(folder, entry));
  info.next = 0;
  return find_next(info) ? 0 : no_match;
}

bool gFileSystem::find_next(gFileInfo & info) {
  if (!info.rest || info.next == info.rest->size())
    return false;
  auto const & [name, is_dir] = (*info.rest)[info.next++];
  info.name = name;
  info.is_dir = is_dir;
  return true;
}

gPathstring gFileSystem::get_curdir() {
  std::error_code failure;
  return gPathstring(fs::current_path(failure).string());
}

// At a mismatch only the last "*" takes one character more, which keeps the time below the product
// of the lengths.
int gFileSystem::matches(gString const & name, gString const & pattern) {
  std::size_t n = 0, p = 0;
  std::size_t star = gString::npos, star_end = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      star_end = n;
    } else if (p < pattern.size() &&
               (pattern[p] == '?' || Vlb::lower(pattern[p]) == Vlb::lower(name[n]))) {
      ++p, ++n;
    } else if (star != gString::npos) {
      p = star + 1;
      n = ++star_end;
    } else {
      return 0;
    }
  }
  return pattern.find_first_not_of('*', p) == gString::npos;
}

void gFileSystem::split_path_list(gString const & list, std::list<gPathstring> & out, bool) {
  std::string_view rest = list;
  for (;;) {
    std::size_t const end = rest.find(';');
    gPathstring part{std::string(rest.substr(0, end))};
    part.wsp_rmright().wsp_rmleft();
    if (!part.empty())
      out.push_back(std::move(part));
    if (end == rest.npos)
      break;
    rest.remove_prefix(end + 1);
  }
}

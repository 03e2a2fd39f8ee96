// A run deletes what lies in its output folder, so a slip in an option could cost a user's work.
// Two fences stand in front of that: folders that are never emptied, compared with all links
// resolved, and a record of what runs have written.

#include "ana/output_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <unistd.h>

#include "app/options/options.h"
#include "vlb/gfilelist.h"
#include "vlb/gfilesystem.h"

namespace fs = std::filesystem;

namespace {

constexpr char const * record_name = ".vellumar";
constexpr char const * record_head = "vellumar output folder";
constexpr char const * unreadable = "/";

fs::path resolved(std::string const & path) {
  std::error_code error;
  fs::path result = fs::weakly_canonical(path, error);
  if (error)
    result = fs::path(path).lexically_normal();
  return result.has_filename() ? result : result.parent_path();
}

// True if `inner` is `outer` or lies below it.
bool holds(fs::path const & outer, fs::path const & inner) {
  auto const [end, at] = std::mismatch(outer.begin(), outer.end(), inner.begin(), inner.end());
  return end == outer.end();
}

// Folders of a file group as they are written, without their wildcards.
void add_group_folders(std::string const & paths, gPathstring const & base,
                       std::set<std::string> & folders) {
  std::list<gPathstring> parts;
  gFileSystem::split_path_list(paths, parts, true);
  if (parts.empty())
    parts.push_back(base);
  for (gPathstring & part : parts) {
    part.make_absolute(base);
    std::size_t const wildcard = part.find_first_of("*?");
    folders.insert(wildcard == std::string::npos
                       ? part
                       : gPathstring(part.substr(0, wildcard) + "x").dir_name());
  }
}

// The folders named by the file groups, and those in which files were found.
std::set<std::string> input_folders() {
  std::set<std::string> folders;
  gPathstring const base = Vapp::option_path("inputcurdir");
  gFileList files(0);
  files.cur_dir(base);
  if (cRef<cObj> const groups = Vapp::option("inputfiles")) {
    for (cIterObj group = groups->begin(); group.valid(); group++) {
      std::string const paths = cat::as_string(group->at("path"));
      add_group_folders(paths, base, folders);
      files.add(paths, cat::as_string(group->at("files")), 1);
    }
  }
  for (gSrcFile const & file : files.files())
    folders.insert(file.path().dir_name());
  return folders;
}

// Text files of the output begin with their version, so a name alone doesn't make a file one.
bool is_intermediate(fs::path const & path) {
  constexpr std::string_view head = "@verinfo<";
  std::error_code error;
  if ((path.extension() != ".atc" && path.extension() != ".atx") ||
      !fs::is_regular_file(path, error))
    return false;
  std::ifstream file(path);
  char begin[head.size()];
  file.read(begin, sizeof begin);
  return file.gcount() == 0 || head == std::string_view(begin, file.gcount());
}

// What a conversion was writing when it was cut off.
bool is_unfinished(std::string const & name) {
  for (std::string const target : {"htm", "rtf", "hlp"}) {
    if (name == target + ".log" || name.starts_with(target + ".new/") ||
        name.starts_with(target + ".old/"))
      return true;
  }
  return false;
}

// By what the environment says and by what the system knows; the first can be missing or changed.
std::vector<std::string> home_folders() {
  std::vector<std::string> folders;
  if (char const * home = std::getenv("HOME"); home && *home)
    folders.push_back(home);
  if (passwd const * user = getpwuid(getuid()); user && user->pw_dir && *user->pw_dir)
    folders.push_back(user->pw_dir);
  return folders;
}

} // namespace

gOutputFolder::gOutputFolder() : path_(Vapp::option_path("out_dir")) {
  path_.normalize(true);
}

gOutputFolder::~gOutputFolder() {
  if (lock_ >= 0)
    close(lock_);
}

bool gOutputFolder::exists() const {
  return gFileSystem::dir_exists(path_);
}

bool gOutputFolder::empty() const {
  std::error_code error;
  return fs::is_empty(path_.c_str(), error) && !error;
}

// Everything below the folder by its name from there; folders end with a separator. A part that
// can't be read is a name that no run can have left.
std::set<std::string> gOutputFolder::contents() const {
  std::set<std::string> names;
  std::error_code error;
  fs::path const root = path_.c_str();
  for (fs::recursive_directory_iterator it(root, error), end; !error && it != end;
       it.increment(error)) {
    bool const folder = it->is_directory(error) && !it->is_symlink(error);
    names.insert(it->path().lexically_relative(root).string() + (folder ? "/" : ""));
  }
  if (error)
    names.insert(unreadable);
  return names;
}

std::set<std::string> gOutputFolder::recorded() const {
  std::set<std::string> names;
  std::ifstream record(gPathstring(path_).append(record_name));
  std::string line;
  if (std::getline(record, line) && line == record_head) {
    names.insert(record_name);
    while (std::getline(record, line))
      names.insert(line);
  }
  return names;
}

bool gOutputFolder::is_own(std::string const & name, std::set<std::string> const & known) const {
  if (name == unreadable)
    return false;
  if (known.contains(name) || name == "ana.log" || is_unfinished(name))
    return true;
  // A run that was cut off hasn't written its list.
  return is_intermediate(gPathstring(path_).append(name).c_str());
}

bool gOutputFolder::only_own_files() const {
  std::set<std::string> const known = recorded();
  if (known.empty())
    return false;
  for (std::string const & name : contents()) {
    if (!is_own(name, known))
      return false;
  }
  return true;
}

gString gOutputFolder::protection() const {
  fs::path const own = resolved(path_);
  if (own == own.root_path())
    return "it is the root of the file system";
  for (std::string const & home : home_folders()) {
    if (holds(own, resolved(home)))
      return "it holds the home folder";
  }
  std::string project = ".";
  if (holds(own, resolved(Vapp::make_absolute_vlp(project))))
    return "it holds the project";
  if (holds(own, resolved(Vapp::option_path("vls_file").dir_name())))
    return "it holds the script";
  for (std::string const & folder : input_folders()) {
    if (holds(own, resolved(folder)))
      return "it holds input files: " + folder;
  }
  return "";
}

bool gOutputFolder::create() {
  return gFileSystem::mk_dirs(path_);
}

bool gOutputFolder::lock() {
  lock_ = open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  // File systems that know no locks can't tell; only a lock that is held refuses.
  return lock_ < 0 || flock(lock_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool gOutputFolder::clear() {
  bool const cleared = gFileSystem::clear_dir(path_, true);
  gFileSystem::write_file_atomic(gPathstring(path_).append(record_name),
                                 std::string(record_head) + "\n");
  return cleared;
}

void gOutputFolder::record_contents() {
  std::string text = std::string(record_head) + "\n";
  for (std::string const & name : contents())
    text += name + "\n";
  gFileSystem::write_file_atomic(gPathstring(path_).append(record_name), text);
}

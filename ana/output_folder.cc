// A run deletes what the last one has left, so a slip in an option could cost a user's work. Two
// fences stand in front of that: folders that no run writes into, compared with all links resolved,
// and the record of what runs have written, without which nothing goes.

#include "ana/output_folder.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <unistd.h>

#include "app/options/options.h"
#include "vlb/folder_record.h"
#include "vlb/gfilelist.h"
#include "vlb/gfilesystem.h"
#include "vlb/random_name.h"

namespace fs = std::filesystem;

namespace {

constexpr char const * targets[] = {"htm", "rtf", "hlp"};

// Where conversions work, and what they put aside for a moment.
bool is_work(std::string const & top) {
  return std::ranges::any_of(targets, [&](std::string const & target) {
    return top == target + ".new/" || top == target + ".old/";
  });
}

bool is_finished(std::string const & top) {
  return std::ranges::any_of(targets,
                             [&](std::string const & target) { return top == target + "/"; });
}

// What every run may write without asking the record.
std::set<std::string> reserved_names() {
  std::set<std::string> names = {gFolderRecord::file_name, "ana.log"};
  for (std::string const target : targets)
    names.insert({target + ".log", target + ".new/", target + ".old/"});
  return names;
}

// The record is written beside its place first.
bool is_record_in_work(std::string_view name) {
  std::string const begin = std::string(gFolderRecord::file_name) + ".";
  return name.starts_with(begin) && Vlb::is_work_name(name, begin.size() - 1);
}

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
std::set<std::string> input_folders(gPathstring const & base, cRef<cObj> const & groups) {
  std::set<std::string> folders;
  gFileList files(0);
  files.cur_dir(base);
  if (groups) {
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

// By what the environment says and by what the system knows; the first can be missing or changed.
std::vector<std::string> home_folders() {
  std::vector<std::string> folders;
  if (char const * home = std::getenv("HOME"); home && *home)
    folders.push_back(home);
  if (passwd const * user = getpwuid(getuid()); user && user->pw_dir && *user->pw_dir)
    folders.push_back(user->pw_dir);
  return folders;
}

// Why the folder must stay as it is; empty if it needn't.
gString protection(gPathstring const & folder, gProtectedPlaces const & places) {
  fs::path const own = resolved(folder);
  if (own == own.root_path())
    return "it is the root of the file system";
  for (std::string const & home : home_folders()) {
    if (holds(own, resolved(home)))
      return "it holds the home folder";
  }
  if (!places.project.empty() && holds(own, resolved(places.project)))
    return "it holds the project";
  if (!places.script.empty() && holds(own, resolved(places.script.dir_name())))
    return "it holds the script";
  for (std::string const & inputs : input_folders(places.input_root, places.inputs)) {
    if (holds(own, resolved(inputs)))
      return "it holds input files: " + inputs;
  }
  return "";
}

} // namespace

gProtectedPlaces gProtectedPlaces::of_options() {
  std::string project = ".";
  Vapp::make_absolute_vlp(project);
  return {project, Vapp::option_path("vls_file"), Vapp::option_path("inputcurdir"),
          Vapp::option("inputfiles")};
}

gString protected_folder_text(gPathstring const & folder, gProtectedPlaces const & places) {
  gString const reason = gFileSystem::dir_exists(folder) ? protection(folder, places) : gString();
  if (reason.empty())
    return reason;
  return "Folder '" + folder + "' is never emptied: " + reason + ". Choose another output folder.";
}

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

bool gOutputFolder::is_empty() const {
  gFileInfo info;
  return gFileSystem::find_first(gPathstring(path_).append("*"), info) == gFileSystem::no_match;
}

// The map file of help identifiers outlives results, wherever it lies.
std::string gOutputFolder::map_file() const {
  if (Vapp::option_string("hlp/hm_newfile").empty())
    return {};
  gPathstring const path =
      Vapp::option_path("hlp/hm_newfile").set_extension_default(".hm").normalize(true);
  return fs::path(path.c_str()).lexically_relative(path_.c_str()).string();
}

gString gOutputFolder::foreign_file() const {
  gFolderRecord const record(path_);
  std::string const map = map_file();
  Vlb::FolderContents const found = Vlb::read_contents(path_);
  for (std::string const & name : found.names) {
    bool const folder = name.ends_with('/');
    std::string const top = name.substr(0, name.find('/') + 1);
    bool const own = record.knows(name) || (is_work(top) && record.knows(top)) ||
                     is_record_in_work(name) || name == map;
    if (!folder && !own)
      return name;
  }
  return found.complete ? gString() : gString(path_);
}

gString gOutputFolder::file_in_the_way() const {
  gFolderRecord const record(path_);
  for (std::string const & name : reserved_names()) {
    std::error_code error;
    fs::path const path = (path_ + "/" + name.substr(0, name.find('/'))).c_str();
    if (!record.knows(name) && fs::exists(fs::symlink_status(path, error)))
      return name;
  }
  return {};
}

bool gOutputFolder::create() {
  return gFileSystem::mk_dirs(path_);
}

bool gOutputFolder::lock() {
  lock_ = open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  // File systems that know no locks can't tell; only a lock that is held refuses.
  return lock_ < 0 || flock(lock_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

// What a crash left between the steps of a conversion: an old result that was put aside comes back.
bool gOutputFolder::settle_results() {
  gFolderRecord const record(path_);
  std::error_code error;
  bool settled = true;
  for (std::string const target : targets) {
    fs::path const folder = gPathstring(path_).append(target).c_str();
    fs::path const old = folder.string() + ".old", work = folder.string() + ".new";
    if (record.knows(target + ".old/") && fs::exists(old) && !fs::exists(folder))
      fs::rename(old, folder, error);
    for (fs::path const & left : {old, work}) {
      if (record.knows(left.filename().string() + "/"))
        fs::remove_all(left, error);
      settled = settled && !error;
    }
  }
  return settled;
}

// Folders come behind what they hold, and go if nothing of the user's is in them. The record goes
// last, by being replaced.
bool gOutputFolder::clear() {
  if (!settle_results())
    return false;
  gFolderRecord record(path_);
  std::set<std::string> kept = reserved_names();
  std::set<std::string> const names = Vlb::read_contents(path_).names;
  for (auto name = names.rbegin(); name != names.rend(); ++name) {
    std::string const top = name->substr(0, name->find('/') + 1);
    std::error_code error;
    if (!record.knows(*name) && !is_record_in_work(*name))
      continue;
    if (is_finished(top))
      kept.insert(*name);
    else if (*name != gFolderRecord::file_name)
      fs::remove((path_ + "/" + *name).c_str(), error);
    if (error && error != std::errc::directory_not_empty)
      return false;
  }
  return record.write(kept);
}

void gOutputFolder::record_contents() {
  gFolderRecord record(path_);
  std::set<std::string> names = reserved_names();
  for (std::string const & name : Vlb::read_contents(path_).names) {
    if (record.knows(name))
      names.insert(name);
  }
  if (record.exists() && names != record.names())
    record.write(names);
}

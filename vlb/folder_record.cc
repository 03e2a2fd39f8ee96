#include "vlb/folder_record.h"

#include <filesystem>
#include <fstream>

#include "vlb/gfilesystem.h"

namespace fs = std::filesystem;

namespace {
constexpr char const * head = "vellumar output folder";
}

Vlb::FolderContents Vlb::read_contents(gPathstring const & folder) {
  FolderContents found;
  std::error_code error;
  std::string root = folder;
  if (!root.ends_with('/'))
    root += '/';
  for (fs::recursive_directory_iterator it(root, error), end; !error && it != end;
       it.increment(error)) {
    // What the folder says of its entries is enough: a result has thousands.
    std::error_code unknown;
    bool const is_folder = !it->is_symlink(unknown) && it->is_directory(unknown);
    found.names.insert(it->path().native().substr(root.size()) + (is_folder ? "/" : ""));
  }
  found.complete = !error;
  return found;
}

gFolderRecord::gFolderRecord(gPathstring const & folder) : folder_(folder) {
  std::string text;
  if (!gFileSystem::read_file(gPathstring(folder_).append(file_name), text))
    return;
  std::string_view rest = text;
  for (bool first = true; !rest.empty(); first = false) {
    std::size_t const end = std::min(rest.find('\n'), rest.size());
    std::string_view const line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (first && line != head)
      return;
    exists_ = true;
    names_.emplace(first ? file_name : line);
  }
}

bool gFolderRecord::write(std::set<std::string> names) {
  names.insert(file_name);
  std::string text = std::string(head) + "\n";
  for (std::string const & name : names) {
    if (name != file_name && name.find('\n') == name.npos)
      text += name + "\n";
  }
  if (!gFileSystem::write_file_atomic(gPathstring(folder_).append(file_name), text))
    return false;
  names_ = std::move(names);
  exists_ = true;
  return true;
}

bool gFolderRecord::add(std::set<std::string> const & names) {
  if (!exists_)
    return true;
  std::set<std::string> all = names_;
  all.insert(names.begin(), names.end());
  return all.size() == names_.size() || write(std::move(all));
}

std::string gFolderRecord::claim(std::set<std::string> const & files) {
  if (!exists_)
    return {};
  std::set<std::string> entered;
  for (std::string const & file : files) {
    // A line feed would enter two other names.
    if (file.find('\n') != file.npos || !can_write(file, entered))
      return file;
  }
  return add(entered) ? std::string() : file_name;
}

bool gFolderRecord::can_write(std::string const & file, std::set<std::string> & entered) const {
  std::error_code error;
  auto const type = [&](std::string const & name) {
    return fs::symlink_status(gPathstring(folder_).append(name).c_str(), error).type();
  };
  for (std::size_t end = file.find('/'); end != file.npos; end = file.find('/', end + 1)) {
    std::string const above = file.substr(0, end);
    if (entered.contains(above + "/"))
      continue;
    fs::file_type const kind = type(above);
    if (kind == fs::file_type::not_found)
      entered.insert(above + "/");
    else if (kind != fs::file_type::directory)
      return false;
  }
  entered.insert(file);
  return knows(file) || type(file) == fs::file_type::not_found;
}

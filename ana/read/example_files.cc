// A path counts when it is resolved: what a link leads to lies there, and not where the link does.
#include "ana/read/example_files.h"

#include <filesystem>

#include "vlb/gfilesystem.h"
#include "vlb/source_bytes.h"

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t longest_file = 4u << 20;

bool lies_in(fs::path const & file, fs::path const & folder) {
  auto const [own, other] = std::mismatch(folder.begin(), folder.end(), file.begin(), file.end());
  return own == folder.end() || (own->empty() && std::next(own) == folder.end());
}

// Empty where nothing of that name may be read.
gPathstring file_in(gPathstring const & place, std::string_view name) {
  std::error_code error;
  fs::path const root = fs::canonical(place.c_str(), error);
  if (error)
    return {};
  fs::path path = root;
  if (gFileSystem::file_exists(place)) {
    if (path.filename() != fs::path(name).filename())
      return {};
  } else {
    path = fs::canonical(root / fs::path(name).relative_path(), error);
  }
  bool const good =
      !error && lies_in(path, root) && fs::file_size(path, error) <= longest_file && !error;
  return good ? gPathstring(path.string()) : gPathstring();
}

} // namespace

gPathstring gExampleFiles::find(std::string_view name) const {
  if (name.empty() || name.find('\0') != name.npos)
    return {};
  for (gPathstring const & place : places_) {
    if (gPathstring path = file_in(place, name); !path.empty())
      return path;
    gFileSystem::file_exists(gPathstring(place).append(gString(name)));
  }
  return {};
}

std::optional<std::string> gExampleFiles::read(std::string_view name) const {
  if (name.empty() || name.find('\0') != name.npos)
    return {};
  for (gPathstring const & place : places_) {
    gPathstring const path = file_in(place, name);
    std::string text;
    if (path.empty()) // once it is there, the run is another one
      gFileSystem::file_exists(gPathstring(place).append(gString(name)));
    else if (Vlb::read_source(path, text))
      return text;
  }
  return {};
}

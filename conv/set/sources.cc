// Readers know their sources by what stands below the folder that all of them lie in.

#include "conv/set/sources.h"

#include <algorithm>
#include <filesystem>

#include "vlb/messages.h"
#include "vlb/source_bytes.h"

namespace fs = std::filesystem;

namespace {

// Of a folder that holds all paths, with its separator.
std::string common_folder(std::vector<std::string_view> const & paths) {
  if (paths.empty())
    return {};
  std::string_view common = paths.front().substr(0, paths.front().rfind('/') + 1);
  for (std::string_view const path : paths)
    while (!path.starts_with(common))
      common = common.substr(0, common.rfind('/', common.size() - 2) + 1);
  return std::string(common);
}

// Headings come from the script, wherever that lies.
bool is_code(gUnitRecord const & unit) {
  return !unit.name.empty() || !unit.declaration.empty();
}

bool is_newer(std::string const & path, std::string const & other) {
  std::error_code error, other_error;
  auto const time = fs::last_write_time(path, error);
  auto const other_time = fs::last_write_time(other, other_error);
  return !error && !other_error && time > other_time;
}

} // namespace

gSources::gSources(gDocument const & document) {
  if (!document.files.empty())
    made_ = document.files.front()->path;
  bool const any_code = std::ranges::any_of(document.units, is_code);
  std::vector<std::string_view> paths;
  for (gUnitRecord const & unit : document.units)
    if ((!any_code || is_code(unit)) && (paths.empty() || paths.back() != unit.path))
      paths.push_back(unit.path);
  common_ = common_folder(paths);
}

std::string_view gSources::shown(std::string_view path) const {
  return path.substr(path.starts_with(common_) ? common_.size() : path.rfind('/') + 1);
}

bool gSources::read(std::string const & path, std::string & text, gReportSink & reports) const {
  if (!Vlb::read_source(path, text)) {
    reports(Msg::source_unreadable, path);
    return false;
  }
  if (is_newer(path, made_)) {
    reports(Msg::source_changed, path);
    return false;
  }
  return true;
}

// A source is looked at when the first link asks for it, so that nothing is read in vain and no
// link leads to a page that there won't be.

#include "conv/htm/sources.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

#include "conv/htm/slug.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"
#include "vlb/source_bytes.h"

namespace fs = std::filesystem;

namespace {

std::size_t count_lines(std::string_view text) {
  auto const feeds = static_cast<std::size_t>(std::ranges::count(text, '\n'));
  return feeds + (text.empty() || text.back() == '\n' ? 0 : 1);
}

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
  std::vector<std::string_view> paths;
  for (gUnitRecord const & unit : document.units)
    paths.push_back(unit.path);
  std::ranges::sort(paths);
  paths.erase(std::unique(paths.begin(), paths.end()), paths.end());
  // Headings come from the script, wherever that lies.
  std::vector<std::string_view> code;
  for (gUnitRecord const & unit : document.units)
    if ((!unit.name.empty() || !unit.declaration.empty()) &&
        (code.empty() || code.back() != unit.path))
      code.push_back(unit.path);
  common_ = common_folder(code.empty() ? paths : code);
  std::vector<gEntry *> added;
  for (std::string_view const path : paths) {
    gEntry & entry = entries_[std::string(path)];
    entry.source.path = path;
    entry.source.shown = shown(path);
    entry.source.slug = Slug::of_file(entry.source.shown);
    ++slugs_[Vlb::to_lower(entry.source.slug)];
    added.push_back(&entry);
  }
  for (gEntry * const entry : added)
    if (slugs_[Vlb::to_lower(entry->source.slug)] > 1)
      entry->source.slug += '-' + Slug::hash({entry->source.shown});
}

std::string_view gSources::shown(std::string_view path) const {
  return path.substr(path.starts_with(common_) ? common_.size() : path.rfind('/') + 1);
}

gSources::gEntry & gSources::entry(std::string_view path) {
  if (auto const found = entries_.find(path); found != entries_.end())
    return found->second;
  // Not the place of any unit: told apart by its whole path.
  gEntry & added = entries_[std::string(path)];
  added.source.path = path;
  added.source.shown = path;
  added.source.slug = Slug::of_file(path.substr(path.rfind('/') + 1)) + '-' + Slug::hash({path});
  return added;
}

void gSources::examine(gEntry & entry) {
  std::string text;
  entry.state = gEntry::unusable;
  if (!Vlb::read_source(entry.source.path, text)) {
    Msg::log(Msg::source_unreadable, entry.source.path);
  } else if (is_newer(entry.source.path, made_)) {
    Msg::log(Msg::source_changed, entry.source.path);
  } else {
    entry.source.lines = count_lines(text);
    entry.state = gEntry::usable;
  }
}

std::string gSources::href(std::string_view path, std::string_view line) {
  gEntry & source = entry(path);
  if (source.state == gEntry::unknown)
    examine(source);
  std::size_t number = 0;
  std::from_chars(line.data(), line.data() + line.size(), number);
  if (source.state != gEntry::usable || number < 1 || number > source.source.lines)
    return {};
  return page(source.source, (number - 1) / lines_per_page) + "#L" + std::to_string(number);
}

std::string gSources::page(gSource const & source, std::size_t part) {
  std::string name = "_source/" + source.slug;
  if (part > 0)
    name += "-" + std::to_string(part + 1);
  return name + ".htm";
}

std::size_t gSources::parts(gSource const & source) {
  return std::max<std::size_t>(1, (source.lines + lines_per_page - 1) / lines_per_page);
}

std::vector<gSource const *> gSources::linked() const {
  std::vector<gSource const *> result;
  for (auto const & [path, entry] : entries_)
    if (entry.state == gEntry::usable)
      result.push_back(&entry.source);
  return result;
}

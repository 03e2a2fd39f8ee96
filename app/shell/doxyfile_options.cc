// A key or two a row; lists become texts with semicolons, as the options have them.
#include "app/shell/doxyfile_options.h"

#include <algorithm>

#include "app/options/options.h"
#include "vlb/gfilesystem.h"

namespace {

void set(std::string const & tree, std::string const & key, std::string const & text) {
  if (!text.empty())
    Vapp::options.submap(tree).set(key, cat::make(text));
}

void set_flag(cMapObj & tree, std::string const & key, gDoxyfile const & file,
              std::string const & name) {
  if (!file.list(name).empty())
    tree.set(key, cat::make(file.flag(name, false)));
}

// A semicolon of an entry is no separator.
std::string joined(std::vector<std::string> const & entries) {
  std::string text;
  for (std::string const & entry : entries) {
    text += text.empty() ? "" : "; ";
    for (char const c : entry)
      text += c == ';' ? std::string("\\;") : std::string(1, c);
  }
  return text;
}

// Paths with a semicolon can't stand in a list.
std::string joined(std::vector<gPathstring> const & paths) {
  std::string text;
  for (gPathstring const & path : paths)
    if (path.find(';') == path.npos)
      text += (text.empty() ? "" : ";") + path;
  return text;
}

// "file=address" as "address, file"; without an address nothing leads there.
std::string external_lists(gDoxyfile const & file) {
  std::string lists;
  for (std::string const & word : file.list("TAGFILES")) {
    std::size_t const equals = std::min(word.rfind('='), word.size());
    std::string const address = word.substr(std::min(equals + 1, word.size()));
    bool const web = address.starts_with("http://") || address.starts_with("https://");
    if (!web || word.find_first_of(";,") != word.npos)
      continue;
    gPathstring const list = word.substr(0, equals);
    gPathstring const place =
        list.starts_with('/') ? list : gPathstring(file.folder()).append(list);
    lists += (lists.empty() ? "" : "; ") + address + ", " + place;
  }
  return lists;
}

} // namespace

std::vector<gPathstring> Shell::doxyfile_sources(gDoxyfile const & file) {
  std::vector<gPathstring> sources = file.paths("INPUT");
  if (sources.empty())
    sources.push_back(file.folder());
  return sources;
}

gWalkFilter Shell::doxyfile_filter(gDoxyfile const & file) {
  gWalkFilter filter;
  filter.recursive = file.flag("RECURSIVE", false);
  filter.names = file.list("FILE_PATTERNS");
  filter.excluded = file.paths("EXCLUDE");
  filter.excluded_patterns = file.list("EXCLUDE_PATTERNS");
  return filter;
}

void Shell::take_doxyfile_options(gDoxyfile const & file) {
  set("ana", "aliases", joined(file.list("ALIASES")));
  set("ana", "predefined", joined(file.list("PREDEFINED")));
  set("ana", "sections", joined(file.list("ENABLED_SECTIONS")));
  set("ana", "example_path", joined(file.paths("EXAMPLE_PATH")));
  set("ana", "image_path", joined(file.paths("IMAGE_PATH")));
  set_flag(Vapp::options.submap("ana"), "internal_docs", file, "INTERNAL_DOCS");
  cMapObj & generated = Vapp::options.submap("ana").submap("alloc");
  set_flag(generated, "gen_private", file, "EXTRACT_PRIVATE");
  set_flag(generated, "gen_static", file, "EXTRACT_STATIC");
  set("htm", "version", file.text("PROJECT_NUMBER"));
  set("htm", "description", file.text("PROJECT_BRIEF"));
  set("htm", "external", external_lists(file));
  std::vector<gPathstring> const start = file.paths("USE_MDFILE_AS_MAINPAGE");
  if (!start.empty() && gFileSystem::file_exists(start.front()))
    set("htm", "start_text", start.front());
}

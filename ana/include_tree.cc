// One walk through the folders; those below others are walked with them.
#include "ana/include_tree.h"

#include <algorithm>

#include "vlb/gfilelist.h"

namespace {

// What would mean something else in a list of folders.
bool is_plain(std::string_view folder) {
  return folder.find_first_of(";*?\n") == folder.npos;
}

std::vector<std::string> outermost(std::list<gSrcFile> const & inputs) {
  std::vector<std::string> folders;
  for (gSrcFile const & file : inputs)
    if (file.language() == gLanguage::pascal)
      folders.push_back(file.opath().dir_name() + std::string("/")); // "a/b" comes right behind "a"
  std::sort(folders.begin(), folders.end());
  std::vector<std::string> outer;
  for (std::string const & folder : folders) {
    bool const below = !outer.empty() && folder.starts_with(outer.back());
    if (!below && is_plain(folder))
      outer.push_back(folder);
  }
  return outer;
}

std::size_t common(std::string_view a, std::string_view b) {
  return static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
}

} // namespace

gIncludeTree::gPaths const & gIncludeTree::paths() {
  if (paths_)
    return *paths_;
  paths_.emplace();
  gFileList found(0);
  for (std::string const & folder : outermost(inputs_))
    found.add(gString(folder + "**"), "*.inc;*.INC;*.Inc", 1);
  for (gSrcFile const & file : found.files())
    (*paths_)[Vlb::to_lower(file.path().file_name())].push_back(file.path());
  return *paths_;
}

gPathstring gIncludeTree::find(std::string const & name, gPathstring const & by) {
  std::string const wanted = Vlb::to_lower(gPathstring(name).file_name());
  for (std::string const & form : {wanted, wanted + ".inc"}) {
    auto const found = paths().find(form);
    if (found == paths().end())
      continue;
    return *std::ranges::max_element(found->second, {},
                                     [&](gPathstring const & path) { return common(path, by); });
  }
  return {};
}

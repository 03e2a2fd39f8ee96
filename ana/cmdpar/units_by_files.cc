// A list of a thousand functions is no page that anybody reads. Parts of about the same size, with
// the first and the last name in their titles, are found by eye.

#include "ana/cmdpar/units_by_files.h"

#include <algorithm>
#include <map>

std::vector<gUnitsOfFile> units_by_files(gUnitRefs const & units) {
  std::vector<gUnitsOfFile> files;
  std::map<gPathstring, std::size_t> index;
  for (cRef<gDocUnit> const & unit : units) {
    gPathstring const & path = unit->code_loc().file().opath();
    auto const [at, is_new] = index.try_emplace(path, files.size());
    if (is_new)
      files.push_back({path, {}, nullptr});
    files[at->second].units.push_back(unit);
  }
  return files;
}

void add_file_texts(gUnitRefs const & texts, std::vector<gUnitsOfFile> & files) {
  std::map<gPathstring, cRef<gDocUnit>> by_path;
  for (cRef<gDocUnit> const & text : texts)
    by_path.try_emplace(text->loc().file().opath(), text);
  for (gUnitsOfFile & file : files)
    if (auto const found = by_path.find(file.path); found != by_path.end()) {
      file.text = found->second;
      by_path.erase(found);
    }
  std::vector<gUnitsOfFile> all;
  auto left = by_path.begin();
  auto const add_up_to = [&](gPathstring const * path) {
    for (; left != by_path.end() && (!path || left->first < *path); ++left)
      all.push_back({left->first, {}, left->second});
  };
  for (gUnitsOfFile & file : files) {
    add_up_to(&file.path);
    all.push_back(std::move(file));
  }
  add_up_to(nullptr);
  files = std::move(all);
}

std::size_t common_folders(std::vector<gUnitsOfFile> const & files) {
  if (files.empty())
    return 0;
  std::string_view const first = files[0].path;
  std::size_t common = first.rfind('/') + 1;
  for (gUnitsOfFile const & file : files)
    while (common > 0 && !std::string_view(file.path).starts_with(first.substr(0, common)))
      common = first.substr(0, common - 1).rfind('/') + 1;
  return common;
}

namespace {

// The order of the parts of a file.
constexpr std::array<std::string_view, 5> titles{"Types", "Values", "Functions", "Macros",
                                                 "Other declarations"};

std::size_t title_of(cRef<gDocUnit> const & unit) {
  gString const & kind = unit->get_attr("KIND");
  gString const & type = unit->get_attr("UNITTYPE");
  if (kind == "macro" || kind == "function macro")
    return 3;
  return type == "type" ? 0 : type == "var" ? 1 : type == "function" ? 2 : 4;
}

void add_stretches(std::string_view title, std::span<cRef<gDocUnit> const> units,
                   std::vector<gFilePart> & parts) {
  std::size_t const count = (units.size() + most_units_of_part - 1) / most_units_of_part;
  for (std::size_t i = 0; i < count; ++i) {
    std::size_t const begin = units.size() * i / count, end = units.size() * (i + 1) / count;
    gString name(title);
    if (count > 1)
      name += " from " + units[begin]->first_name() + " to " + units[end - 1]->first_name();
    parts.push_back({name, units.subspan(begin, end - begin)});
  }
}

} // namespace

std::vector<gFilePart> parts_of_file(gUnitRefs & units) {
  if (units.size() <= most_units_of_part)
    return {{gString(), units}};
  std::ranges::stable_sort(units, {}, title_of);
  std::vector<gFilePart> parts;
  for (auto first = units.begin(); first != units.end();) {
    std::size_t const title = title_of(*first);
    auto const end = std::find_if(first, units.end(), [title](cRef<gDocUnit> const & unit) {
      return title_of(unit) != title;
    });
    add_stretches(titles[title], {first, end}, parts);
    first = end;
  }
  return parts;
}

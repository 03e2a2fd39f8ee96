// A thing is known by its name and the types of its parameters. If that is gone, the same
// declaration and summary under a new name is the same thing, if only one was lost with them and
// only one came.

#include "conv/htm/former_addresses.h"

#include <algorithm>

#include "conv/htm/html_text.h"
#include "conv/htm/slug.h"
#include "conv/set/signature.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

using V = gVltValue;

// Of places that lead on; further ones are forgotten.
constexpr std::size_t most_forwards = 50000;
constexpr std::string_view once = "-";
constexpr std::string_view head =
    "# Addresses of a site, for links that hold. Keep it with the project.\n";

std::string file_of(std::string const & href) {
  return href.substr(0, href.find('#'));
}

// A file that this system could have made for a unit; the map may come from anywhere.
bool is_unit_file(std::string const & file) {
  if (!file.ends_with(".htm") || file.size() > 200)
    return false;
  std::string const stem = file.substr(0, file.size() - 4);
  return Slug::of_file(stem) == stem;
}

// Blanks for what would end a field.
std::string field(std::string text) {
  for (char & c : text)
    if (static_cast<unsigned char>(c) < 32)
      c = ' ';
  return text;
}

std::set<std::string> files_of(gSite const & site) {
  std::set<std::string> files;
  for (int page = 0; page < site.pages.size(); ++page)
    files.insert(Vlb::to_lower(site.addresses.file(page)));
  for (gSimilarPages const & similar : site.addresses.similar())
    files.insert(Vlb::to_lower(similar.name));
  return files;
}

} // namespace

gFormerAddresses::gFormerAddresses(gSite const & site) : site_(site) {
  for (int unit = 0; unit < static_cast<int>(site.document.units.size()); ++unit)
    if (site.pages.of(unit) >= 0 && !site.unit(unit).name.empty()) {
      std::string key = key_of(unit);
      keys_.emplace(unit, key);
      units_.emplace(std::move(key), unit);
    }
}

std::string gFormerAddresses::key_of(int unit) {
  gUnitRecord const & record = site_.unit(unit);
  std::string key = record.name;
  if (gSignature const types = Declaration::signature_of(record); types.is_routine) {
    key += '(';
    for (std::string const & type : types.parameters)
      (key += type) += ';';
    key += ')';
  }
  key = field(key);
  if (int const number = asked_[key]++; number > 0)
    key += " #" + std::to_string(number + 1);
  return key;
}

std::string gFormerAddresses::print_of(int unit) const {
  gUnitRecord const & record = site_.unit(unit);
  std::string text = record.declaration;
  if (gStretch const name = record.facts.name;
      record.facts.size == text.size() && name.begin < name.end && name.end <= text.size())
    text.erase(name.begin, name.end - name.begin);
  return Slug::hash({record.facts.kind, text, record.summary}) +
         Slug::hash({record.summary, record.facts.kind, text});
}

void gFormerAddresses::read(gPathstring const & path) {
  std::string text;
  if (!gFileSystem::file_exists(path) || !gFileSystem::read_file(path, text) ||
      !text.starts_with(head))
    return;
  std::vector<gKept> old;
  for (std::size_t begin = head.size(); begin < text.size();) {
    std::size_t const end = std::min(text.find('\n', begin), text.size());
    std::string const line = text.substr(begin, end - begin);
    begin = end + 1;
    std::size_t const first = line.find('\t'), second = line.find('\t', first + 1);
    if (second == line.npos)
      continue;
    gKept kept{line.substr(0, first), line.substr(first + 1, second - first - 1),
               line.substr(second + 1)};
    if (is_unit_file(file_of(kept.href)))
      old.push_back(std::move(kept));
  }
  settle(old);
}

void gFormerAddresses::lead(gKept const & old, int unit) {
  if (old.href != site_.addresses.href(unit) && forwards_.size() < most_forwards)
    forwards_.emplace(old.href, unit);
}

void gFormerAddresses::settle(std::vector<gKept> const & old) {
  std::set<std::string> known;                          // keys
  std::map<std::string, std::vector<std::string>> lost; // keys by print
  for (gKept const & kept : old)
    if (kept.print != once) {
      known.insert(kept.key);
      if (!units_.contains(kept.key))
        lost[kept.print].push_back(kept.key);
    }
  std::map<std::string, std::vector<int>> fresh;
  if (!lost.empty())
    for (auto const & [key, unit] : units_)
      if (!known.contains(key))
        fresh[print_of(unit)].push_back(unit);
  gByText renamed;
  for (auto const & [print, keys] : lost)
    if (auto const found = fresh.find(print);
        keys.size() == 1 && found != fresh.end() && found->second.size() == 1)
      renamed.emplace(keys[0], found->second[0]);
  for (gKept const & kept : old)
    if (auto const same = units_.find(kept.key); same != units_.end())
      lead(kept, same->second);
    else if (auto const other = renamed.find(kept.key); other != renamed.end())
      lead(kept, other->second);
}

void gFormerAddresses::write_pages(gPageWriter & writer, gNavigation const & navigation) const {
  std::set<std::string> const files = files_of(site_);
  std::map<std::string, std::vector<std::pair<std::string, int>>> gone; // by file
  for (auto const & [href, unit] : forwards_)
    if (!files.contains(Vlb::to_lower(file_of(href))))
      gone[file_of(href)].emplace_back(href, unit);
  for (auto const & [file, places] : gone) {
    std::string items;
    for (auto const & [href, unit] : places)
      Pages::add_similar(site_, unit, items);
    // What began the page comes first, since its address is the shortest.
    std::string const to = site_.addresses.href(places.front().second);
    std::string const title = Html::escaped(site_.unit(places.front().second).title);
    gPageFrame frame;
    frame.style = "moved";
    frame.file = file;
    frame.title = site_.unit(places.front().second).title;
    frame.leads_to = to;
    frame.crumbs = navigation.crumbs(-1, frame.title, "");
    gVltValues values;
    values.set(V::title, title).set(V::items, items).set(V::href, to);
    site_.rules.apply(gVltRule::moved_page, values, frame.content);
    writer.write(frame);
  }
}

bool gFormerAddresses::write(gPathstring const & path) const {
  std::vector<std::string> lines;
  for (auto const & [unit, key] : keys_)
    lines.push_back(site_.addresses.href(unit) + '\t' + key + '\t' + print_of(unit) + '\n');
  for (auto const & [href, unit] : forwards_)
    lines.push_back(href + '\t' + keys_.at(unit) + '\t' + std::string(once) + '\n');
  std::ranges::sort(lines);
  std::string text(head);
  for (std::string const & line : lines)
    text += line;
  // The name comes from a project, which may name any file: only a map is replaced.
  std::string old;
  bool const is_map = !gFileSystem::file_exists(path) ||
                      (gFileSystem::read_file(path, old) && old.starts_with(head));
  if (is_map && gFileSystem::write_file_atomic(path, text))
    return true;
  Msg::log(Msg::cannot_write, path, is_map ? "" : "It exists, and holds other things");
  return false;
}

// The converter to HTML, from the plan of the site to its last file.

#include <algorithm>
#include <map>
#include <optional>

#include "conv/htm/class_tree.h"
#include "conv/htm/former_addresses.h"
#include "conv/htm/index_page.h"
#include "conv/htm/link_lists.h"
#include "conv/htm/page_pool.h"
#include "conv/htm/pictures.h"
#include "vlb/folder.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

// "search+fit.js" is a part of "search.js": a page loads one file where its writers have several.
std::string whole_of(std::string const & name) {
  std::size_t const sign = name.find('+'), dot = name.rfind('.');
  bool const part = sign != name.npos && sign > 0 && dot != name.npos && dot > sign;
  return part ? name.substr(0, sign) + name.substr(dot) : name;
}

// The parts in front, in the order of their names.
bool join_helper(gConversion & conversion, std::string const & whole,
                 std::vector<std::string> const & files) {
  std::string all;
  for (bool const last : {false, true})
    for (std::string const & name : files) {
      std::string text;
      if ((name == whole) != last)
        continue;
      gPathstring const path = gPathstring(conversion.input().helpers).append(name);
      if (!gFileSystem::read_file(path, text)) {
        Msg::log(Msg::cannot_read, path);
        return false;
      }
      all += text;
    }
  conversion.write("_files/" + whole, all);
  return true;
}

// The style sheet, the script, and whatever else lies in the folder. Without them the pages would
// be bare, so a folder that can't be read is a fault.
bool copy_helpers(gConversion & conversion) {
  gPathstring const folder = conversion.input().helpers;
  if (!gFileSystem::dir_exists(folder)) {
    Msg::log(Msg::cannot_read, folder);
    return false;
  }
  std::map<std::string, std::vector<std::string>> files; // by what they make
  for (Vlb::FolderEntry const & entry : Vlb::read_folder(folder))
    if (!entry.hidden() && Vlb::leads_to_file(folder, entry))
      files[whole_of(std::string(entry.name))].emplace_back(entry.name);
  bool copied = true;
  for (auto & [whole, parts] : files) {
    std::ranges::sort(parts);
    bool const alone = parts.size() == 1 && parts[0] == whole;
    copied = (alone ? conversion.copy(gPathstring(folder).append(whole), "_files/" + whole)
                    : join_helper(conversion, whole, parts)) &&
             copied;
  }
  return copied;
}

void write_lists(gConversion & conversion, gSite const & site) {
  gConversionInput const & input = conversion.input();
  // A name alone: no list is written elsewhere.
  if (std::string const name = input.tagfile; !name.empty() && name.find('/') == name.npos)
    LinkLists::write_tags(conversion, site, name);
  if (input.inventory)
    LinkLists::write_inventory(conversion, site);
}

// False, after a report, if a file that belongs to all pages couldn't be copied, or the result
// isn't in its place.
bool write_site(gConversion & conversion) {
  gConversionInput const & input = conversion.input();
  gSite site(conversion.document(), conversion.rules(), conversion.title(), input.split_level);
  site.editor_scheme = input.editor_scheme;
  site.version = input.version;
  site.description = input.description;
  site.address = input.address;
  if (!site.address.empty() && !site.address.ends_with('/'))
    site.address += '/';
  gExternals const externals(input.external);
  site.externals = &externals;
  gRepository repository(input.repository, input.commit);
  site.repository = &repository;
  gPictures pictures(conversion);
  site.pictures = &pictures;
  gLinkCheck link_check;
  site.link_check = &link_check;
  gColours const colours(conversion.rules());
  gContents const contents(site);
  gScopes const scopes(site);
  gClassTree const class_tree(site, scopes);
  site.class_tree = &class_tree;
  gIncludes const includes(site);
  gNavigation const navigation(site, contents, scopes);
  gPageWriter writer(conversion, site);
  gSearchIndex search(site);

  Pages::write_units(conversion, site, colours, navigation, contents, scopes, includes, search);
  Pages::write_start(writer, site, colours, input.start_text, navigation, contents, scopes);
  Pages::write_for_servers(conversion, writer, site);
  Pages::write_contents(writer, site, navigation, contents);
  class_tree.write(writer, navigation);
  Pages::write_similar(writer, site, navigation);
  Pages::write_skipped(writer, site, navigation);
  auto const write_index = [&] {
    gPageWriter own(conversion, site);
    Index::write(own, site, navigation, Index::keys_of(site.document, input.index_place_holder),
                 input.simple_index);
  };
  Pages::write_sources(conversion, site, colours, navigation, includes,
                       {write_index, [&] { search.write(conversion); }});
  write_lists(conversion, site);
  std::optional<gFormerAddresses> former;
  if (!input.addresses.empty()) {
    former.emplace(site).read(input.addresses);
    former->write_pages(writer, navigation);
  }
  if (!copy_helpers(conversion))
    return false;
  link_check.report(conversion);
  return conversion.finish("index.htm") && (!former || former->write(input.addresses));
}

bool make_html(gConversion & conversion) {
  return conversion.start() && write_site(conversion);
}

} // namespace

gConversionResult Htm::make_manual(gConversionInput const & input) {
  return Conv::run(input, make_html);
}

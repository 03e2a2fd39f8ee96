// The converter to HTML, from the plan of the site to its last file.

#include "conv/htm/index_page.h"
#include "conv/htm/page_pool.h"
#include "vlb/folder.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

// The style sheet, the script, and whatever else lies in the folder. Without them the pages would
// be bare, so a folder that can't be read is a fault.
bool copy_helpers(gConversion & conversion) {
  gPathstring const folder = conversion.input().helpers;
  if (!gFileSystem::dir_exists(folder)) {
    Msg::log(Msg::cannot_read, folder);
    return false;
  }
  bool copied = true;
  for (Vlb::FolderEntry const & entry : Vlb::read_folder(folder))
    if (!entry.hidden() && Vlb::leads_to_file(folder, entry))
      copied = conversion.copy(gPathstring(folder).append(entry.name),
                               "_files/" + std::string(entry.name)) &&
               copied;
  return copied;
}

void write_site(gConversion & conversion) {
  gConversionInput const & input = conversion.input();
  gSite site(conversion.document(), conversion.rules(), conversion.title(), input.split_level);
  site.editor_scheme = input.editor_scheme;
  site.version = input.version;
  site.description = input.description;
  site.address = input.address;
  if (!site.address.empty() && !site.address.ends_with('/'))
    site.address += '/';
  gColours const colours(conversion.rules());
  gContents const contents(site);
  gNavigation const navigation(site, contents);
  gPageWriter writer(conversion, site);
  gSearchIndex search(site);

  Pages::write_units(conversion, site, colours, navigation, contents, search);
  Pages::write_start(writer, site, colours, input.start_text, navigation, contents);
  Pages::write_for_servers(conversion, writer, site);
  Pages::write_contents(writer, site, navigation, contents);
  Pages::write_similar(writer, site, navigation);
  Pages::write_skipped(writer, site, navigation);
  Index::write(writer, site, navigation, Index::keys_of(site.document, input.index_place_holder),
               input.simple_index);
  search.write(conversion);
  Pages::write_sources(conversion, site, colours, navigation);
}

bool make_html(gConversion & conversion) {
  if (!conversion.start())
    return false;
  write_site(conversion);
  return copy_helpers(conversion) && conversion.finish("index.htm");
}

} // namespace

gConversionResult Htm::make_manual(gConversionInput const & input) {
  return Conv::run(input, make_html);
}

// Templates don't change once the output commands run, so what a unit needs of them is looked up
// once and not for each unit.
#include "ana/anadat/gunitlook.h"

#include <algorithm>

#include "ana/anadat/gdocunit.h"
#include "ana/anadat/pieces.h"
#include "ana/anadat/tables.h"

namespace {

int template_level(gString const & unit_template, char const * key) {
  int level = hier_unset;
  cat::read(gVLAttributes.get({"unittpl", unit_template, key}), level);
  return level;
}

cRef<gTextList> shared(gStrList const & list) {
  return list.empty() ? nullptr : make_ref<gTextList>(list);
}

cRef<gTextList> srclink_text(gString const & section_template, gString const & unit_type) {
  if (!gVLAttributes.flag({"secttpl", section_template, "srclink", unit_type}))
    return nullptr;
  if (!gVLAttributes.has({"secttpl", section_template, "slnktext"}))
    return make_ref<gTextList>(gStrList(gString("Source Code")));
  return shared(gVLAttributes.list({"secttpl", section_template, "slnktext"}));
}

gContentsItem::Kind item_kind(gPiece piece) {
  switch (piece) {
  case gPiece::headline:
    return gContentsItem::headline;
  case gPiece::link_line:
    return gContentsItem::link_line;
  case gPiece::hierarchy:
    return gContentsItem::hierarchy;
  case gPiece::subentry:
    return gContentsItem::subentry;
  default:
    return gContentsItem::text;
  }
}

} // namespace

gUnitLook::gUnitLook(gString const & section_template, gString const & unit_type) {
  unit_template = gVLAttributes.text({"secttpl", section_template, "utpl", unit_type});
  if (unit_template.empty())
    unit_template = "UTPL_Default";
  style = gVLAttributes.text({"unittpl", unit_template, "style"});
  no_bookmark = gVLAttributes.flag({"unittpl", unit_template, "nobook"});
  no_index = gVLAttributes.flag({"unittpl", unit_template, "noxe"});
  hier_up = template_level(unit_template, "hierup");
  hier_down = template_level(unit_template, "hierdown");
  tab_width = gInput->text.tab_width;
  facts_line = gInput->facts_line;
  link_line = shared(gVLAttributes.list({"unittpl", unit_template, "linkline"}));
  headline = shared(gVLAttributes.list({"unittpl", unit_template, "hdline"}));
  srclink_text = ::srclink_text(section_template, unit_type);
  read_verbatim(unit_type);
  read_contents();
}

void gUnitLook::read_verbatim(gString const & unit_type) {
  auto const config = gInput->unit_config.find(unit_type);
  if (config == gInput->unit_config.end())
    return;
  for (auto const & [subentry, digits] : config->second.entries())
    if (Vapp::config_verbatim(digits))
      verbatim_.push_back(subentry);
}

bool gUnitLook::is_verbatim(std::string_view subentry) const {
  return std::find(verbatim_.begin(), verbatim_.end(), subentry) != verbatim_.end();
}

void gUnitLook::read_contents() {
  gStrList const list = gVLAttributes.list({"unittpl", unit_template, "contents"});
  for (auto it = list.begin(); it != list.end(); ++it) {
    gContentsItem::Kind const kind = item_kind(Vlb::piece_kind(**it));
    bool const joins = kind == gContentsItem::text && !contents.empty() &&
                       contents.back().kind == gContentsItem::text;
    if (!joins)
      contents.push_back({kind, {}, {}});
    gContentsItem & item = contents.back();
    if (kind == gContentsItem::text)
      item.pieces.push_back(*it);
    if (kind != gContentsItem::subentry || std::next(it) == list.end())
      continue;
    item.word = **++it;
    item.pieces = gVLAttributes.list({"unittpl", unit_template, item.word});
    item.verbatim = is_verbatim(item.word);
  }
  for (gContentsItem & item : contents)
    item.variable = Vlb::has_placeholder(item.pieces);
}

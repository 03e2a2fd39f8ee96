#include "app/options/completion.h"

#include "app/options/defaults.h"
#include "app/options/text_rules.h"

namespace {

void complete_unit_types(cMapObj & options, char const * values) {
  cMapObj & config = options.submap("unitconfig");
  cRef<cObj> const types = options.at("attr") / "UNITTYPE" / values;
  if (!types)
    return;
  for (cIterObj it = types->begin(); it.valid(); it++) {
    std::string const type = it.key_as_string();
    cRef<cObj> const entry = config.at(type);
    bool const present = entry && &entry->type() == &cat::type_map();
    if (type != "undefined" && type != "text" && !present)
      config.set(type, Vapp::default_unit_config(type));
  }
}

void complete_patterns(cMapObj & ana, char const * key, cRef<cMapObj> (*defaults)()) {
  if (ana.submap(key).size() == 0)
    ana.set(key, defaults());
}

// The pattern exists only while its option is on.
void optional_pattern(cMapObj & ana, char const * name) {
  bool on = false;
  cat::read(ana.at(name), on);
  cMapObj & patterns = ana.submap("srcpat_unit");
  if (!on)
    patterns.erase(name);
  else if (!patterns.at(name))
    patterns.set(name, Vapp::new_unit_pattern());
}

std::vector<Vapp::gDanglingSubentry> remove_dangling(cMapObj & options) {
  std::vector<Vapp::gDanglingSubentry> dangling;
  cMapObj const & subentries = options.submap("ana").submap("srcpat_subentry");
  cMapObj & config = options.submap("unitconfig");
  for (cIterObj type = config.begin(); type.valid(); type++) {
    auto const is_dangling = [&](cAttrNode const & entry) {
      std::string const subentry = entry.key().as_string();
      if (subentries.at(subentry))
        return false;
      dangling.push_back({type.key_as_string(), subentry});
      return true;
    };
    if (cMapObj * entries = type->map())
      entries->entries().erase_if(is_dangling);
  }
  return dangling;
}

} // namespace

std::string Vapp::gDanglingSubentry::text() const {
  return fill_text("Configuration of unittype %s has a subentry %s \nthat does not exist! \n"
                   "It is deleted now.",
                   {unit_type, subentry});
}

std::vector<Vapp::gDanglingSubentry> Vapp::complete_options(cMapObj & options) {
  complete_unit_types(options, "valpre");
  complete_unit_types(options, "valusr");
  cMapObj & ana = options.submap("ana");
  complete_patterns(ana, "srcpat_unit", default_unit_patterns);
  complete_patterns(ana, "srcpat_subentry", default_subentry_patterns);
  optional_pattern(ana, "spt_2star");
  optional_pattern(ana, "spt_3slash");
  return remove_dangling(options);
}

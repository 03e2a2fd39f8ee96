#include "app/options/attributes.h"

#include <algorithm>

#include "store/cerr.h"

namespace Vapp {

char const * const dropped_attributes =
    "Some attributes used in the source pattern dialog\ngot deleted.";

namespace {

// A missing map counts as empty.
bool add_values(cMapObj & values, cObj const & record, char const * key) {
  cRef<cObj> const from = record.at(key);
  return !from || (&from->type() == &cat::type_map() && values.add(*from));
}

bool rebuild(cObj & record) {
  auto values = make_ref<cMapObj>();
  cRef<cObj> const old = record.at("val");
  bool const good = &record.type() == &cat::type_map() && (!old || old->map()) &&
                    add_values(*values, record, "valpre") && add_values(*values, record, "valusr");
  if (good)
    record["val"] = values;
  return good;
}

template <class Test>
std::vector<std::string> patterns_that(cObj const & options, Test const & test) {
  std::vector<std::string> names;
  cRef<cObj> const patterns = options.at("ana") / "srcpat_unit";
  if (!patterns)
    return names;
  for (cIterObj it = patterns->begin(); it.valid(); it++)
    if (test((*it).at("attr")))
      names.push_back(it.key_as_string());
  return names;
}

bool has_subentries(cObj const & options, std::string const & unit_type) {
  cRef<cObj> const config = options.at("unitconfig") / unit_type;
  return config && config->size() > 0;
}

gDeletion refused(std::string_view text, std::initializer_list<std::string_view> arguments) {
  return {false, fill_text(text, arguments)};
}

gDeletion question(std::string_view text, std::string const & name) {
  return {true, fill_text(text, {name})};
}

} // namespace

void rebuild_values(cMapObj & options) {
  cMapObj & attributes = options.submap("attr");
  for (cIterObj it = attributes.begin(); it.valid(); it++) {
    if (rebuild(*it))
      continue;
    eros() << "ERROR: corrupted data in attribute " << it.key_as_string() << std::endl;
    throw cException("Bad project file");
  }
}

void drop_values(cMapObj & options) {
  cMapObj & attributes = options.submap("attr");
  for (cIterObj it = attributes.begin(); it.valid(); it++)
    (*it).erase("val");
}

std::vector<std::string> users_of_attribute(cObj const & options, std::string const & name) {
  return patterns_that(options, [&](cRef<cObj> const & attr) { return !cat::is_nil(attr / name); });
}

std::vector<std::string> users_of_value(cObj const & options, std::string const & name,
                                        std::string const & value) {
  return patterns_that(options, [&](cRef<cObj> const & attr) {
    std::string used;
    return cat::read(attr / name, used) && used == value;
  });
}

bool drop_dangling_attributes(cMapObj & options) {
  cRef<cObj> const attributes = options.at("attr");
  cMapObj & patterns = options.submap("ana").submap("srcpat_unit");
  bool dropped = false;
  for (cIterObj pattern = patterns.begin(); pattern.valid(); pattern++) {
    cRef<cObj> const used = (*pattern).at("attr");
    auto const is_dangling = [&](cAttrNode const & entry) {
      return !(attributes / entry.key().as_string() / "val" / cat::as_string(entry.value));
    };
    if (used && used->map() && used->map()->entries().erase_if(is_dangling))
      dropped = true;
  }
  return dropped;
}

bool is_predefined_attribute(std::string const & name) {
  return name == "UNITTYPE" || name == "VISIBILITY" || name == "VIRTUALITY";
}

bool is_predefined_subentry(std::string const & name) {
  static constexpr char const * names[] = {"@description", "@declaration", "@parameter", "@return",
                                           "@heritage",    "@sline",       "@comment"};
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

gDeletion check_delete_attribute(cObj const & options, std::string const & name) {
  if (is_predefined_attribute(name))
    return refused("Cannot delete a predefined attribute: %s.", {name});
  std::vector<std::string> const users = users_of_attribute(options, name);
  if (!users.empty())
    return refused("Cannot delete attribute %s.\nIt is being used by source pattern %s.",
                   {name, join(users)});
  return question("Delete attribute %s?", name);
}

gDeletion check_delete_value(cObj const & options, std::string const & name,
                             std::string const & value) {
  if (options.at("attr") / name / "valpre" / value)
    return refused("Cannot delete a predefined attribute value: '%s'.", {value});
  std::vector<std::string> const users = users_of_value(options, name, value);
  if (!users.empty())
    return refused("Cannot delete attribute value %s.\nIt is being used by source pattern %s.",
                   {value, join(users)});
  if (name == "UNITTYPE" && has_subentries(options, value))
    return refused("Cannot delete unit type '%s'.\nThere are subentries configured for this unit "
                   "type.\n\nPlease remove these first from the unit type's configuration.",
                   {value});
  return question("Delete attribute value '%s'?", value);
}

gDeletion check_delete_subentry(std::string const & name) {
  if (is_predefined_subentry(name))
    return refused("Cannot delete predefined subentry: %s.", {name});
  return question("Delete subentry %s?", name);
}

gDeletion check_delete_pattern(std::string const & name) {
  return question("Delete source pattern %s?", name);
}

gCheck check_change_value(cObj const & options, std::string const & name,
                          std::string const & value) {
  if (options.at("attr") / name / "valpre" / value)
    return gRefusal{field_none, "Cannot change predefined attribute values."};
  return std::nullopt;
}

} // namespace Vapp

// Subentries that a unit type no longer has leave no empty map behind: the completion fills such a
// type again at the next load.
#include "app/shell/dialogs/sheets/pattern_copy.h"

#include "app/options/attributes.h"
#include "app/options/defaults.h"
#include "app/options/options.h"
#include "app/shell/dialogs/put.h"
#include "app/shell/dialogs/sheets/list_field.h"

using namespace Vapp;

void gPatternCopy::read() {
  tree_.clear();
  cMapObj & ana = tree_.submap("ana");
  for (char const * key : {"srcpat_unit", "srcpat_subentry"})
    ana.set(key, Shell::working_copy(options.at("ana") / key));
  tree_.set("unitconfig", Shell::working_copy(options.at("unitconfig")));
}

bool gPatternCopy::store_patterns() const {
  return Shell::put(options.submap("ana"), "srcpat_unit",
                    (tree_.at("ana") / "srcpat_unit")->clone());
}

bool gPatternCopy::store_subentries() const {
  return Shell::put(options.submap("ana"), "srcpat_subentry",
                    (tree_.at("ana") / "srcpat_subentry")->clone());
}

bool gPatternCopy::store_config() const {
  return Shell::put(options, "unitconfig", tree_.at("unitconfig")->clone());
}

cMapObj * gPatternCopy::config(std::string const & unit_type) {
  cRef<cObj> const config = tree_.at("unitconfig") / unit_type;
  return config ? config->map() : nullptr;
}

bool gPatternCopy::read_attributes() {
  tree_.set("attr", Shell::working_copy(options.at("attr")));
  return drop_dangling_attributes(tree_);
}

void gPatternCopy::optional_pattern(std::string const & name, bool on) {
  if (!on)
    patterns().erase(name);
  else if (!patterns().at(name))
    patterns().set(name, new_unit_pattern());
}

void gPatternCopy::remove_subentry(std::string const & name) {
  subentries().erase(name);
  forbid_everywhere(name);
}

std::vector<gPatternCopy::Taken> gPatternCopy::add_set(gSubentrySet set) {
  std::vector<Taken> taken;
  for (std::string const & name : add_subentry_set(tree_, set)) {
    std::string const holder = find_keyword(tree_, name).holder;
    if (holder != name)
      taken.push_back({name, holder});
  }
  return taken;
}

void gPatternCopy::remove_set(gSubentrySet set) {
  for (std::string const & name : remove_subentry_set(tree_, set))
    forbid_everywhere(name);
}

void gPatternCopy::permit(std::string const & unit_type, std::string const & subentry) {
  cMapObj & config = tree_.submap("unitconfig").submap(unit_type);
  if (!config.at(subentry))
    config.set(subentry, cat::make(0));
}

void gPatternCopy::forbid(std::string const & unit_type, std::string const & subentry) {
  cMapObj * const entries = config(unit_type);
  if (entries && entries->erase(subentry) && entries->size() == 0)
    tree_.submap("unitconfig").erase(unit_type);
}

void gPatternCopy::forbid_everywhere(std::string const & subentry) {
  for (gField::Row const & type : Shell::key_rows(tree_.at("unitconfig")))
    forbid(type[0], subentry);
}

// A value of the user stands in two maps, of which only one is stored: both are kept in line.
#include "app/shell/dialogs/sheets/attribute_copy.h"

#include "app/options/options.h"
#include "app/shell/dialogs/put.h"
#include "app/shell/dialogs/sheets/list_field.h"

using namespace Vapp;

namespace {

void replace(cMapObj & map, std::string const & before, std::string const & key,
             cRef<cObj> const & value) {
  cMapObj replaced;
  for (cIterObj it = map.begin(); it.valid(); it++)
    if (it.key_as_string() == before)
      replaced.set(key, value);
    else
      replaced.set(it.key_as_string(), it.valref());
  replaced.set(key, value);
  map = replaced;
}

} // namespace

void gAttributeCopy::read() {
  tree_.clear();
  tree_.set("attr", Shell::working_copy(options.at("attr")));
}

bool gAttributeCopy::store() const {
  if (!Shell::put(options, "attr", tree_.at("attr")->clone()))
    return false;
  rebuild_values(options);
  return true;
}

cMapObj const & gAttributeCopy::tree_with_users() {
  for (char const * key : {"ana", "unitconfig"})
    tree_.set(key, options.at(key));
  return tree_;
}

cMapObj * gAttributeCopy::attribute(std::string const & name) {
  cRef<cObj> const record = attributes().at(name);
  return record ? record->map() : nullptr;
}

std::string gAttributeCopy::output(std::string const & name, std::string const & value) {
  gStrList list;
  cat::read(attributes().at(name) / "val" / value, list);
  return list.empty() ? "" : std::string(*list.front());
}

void gAttributeCopy::set_value(std::string const & name, std::string const & before,
                               std::string const & value, std::string const & output) {
  cMapObj * const record = attribute(name);
  if (!record)
    return;
  for (char const * values : {"valusr", "val"})
    replace(record->submap(values), before, value, cat::make(gStrList(gString(output))));
}

void gAttributeCopy::remove_value(std::string const & name, std::string const & value) {
  cMapObj * const record = attribute(name);
  if (!record)
    return;
  for (char const * values : {"valusr", "val"})
    record->submap(values).erase(value);
}

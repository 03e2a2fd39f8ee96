// Code elements and the names of their types.
#include "ana/anadat/gcodeelem.h"

#include <array>

namespace {

struct UnitTypeName {
  int type;
  char const * name;
};

constexpr std::array<UnitTypeName, 10> unit_types{{{ut_undefined, "undefined"},
                                                   {ut_class, "class"},
                                                   {ut_function, "function"},
                                                   {ut_member, "member"},
                                                   {ut_method, "method"},
                                                   {ut_event, "event"},
                                                   {ut_property, "property"},
                                                   {ut_type, "type"},
                                                   {ut_var, "var"},
                                                   {ut_unit, "unit"}}};

} // namespace

gString unit_type_name(int type) {
  for (UnitTypeName const & one : unit_types)
    if (one.type == type)
      return one.name;
  return {};
}

int unit_type_value(std::string_view name) {
  for (UnitTypeName const & one : unit_types)
    if (name == one.name)
      return one.type;
  return ut_undefined;
}

gCodeElem::gCodeElem(gStrList const & names, gSrcFile const & file, int line, int type,
                     gString const & decl, gString const & visibility, int flags)
    : names(names),
      loc(file, line),
      type(type),
      flags(flags),
      decl(decl),
      visibility(visibility) {}

std::string gCodeElem::scope() const {
  gStrList outer = names;
  if (!outer.empty())
    outer.pop_back();
  return outer.make_string(loc.file().name_sep());
}

bool is_header(gSrcFile const & file) {
  std::string_view const path = file.opath();
  std::string_view const name = path.substr(path.rfind('/') + 1);
  std::size_t const dot = name.rfind('.');
  return dot == name.npos || Vlb::to_lower(name.substr(dot + 1)).starts_with('h');
}

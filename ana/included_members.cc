// Changes gCodeElems.
// Such a file is read like any other, since only the one that takes it in knows what it is for.
// What it declares gets its whole name when all files are known; for a further class that takes it
// in, it is read once more.
#include "ana/included_members.h"

#include "ana/anadat/tables.h"
#include "ana/read/unit_kinds.h"

namespace {

using Decl::gKind;

void make_member(gCodeElem & element, gIncludeRequest const & request) {
  if (element.kind == gKind::macro || element.kind == gKind::function_macro)
    return;
  bool const direct = element.names.size() == 1;
  gStrList names = request.scope;
  names.append(std::move(element.names));
  element.names = std::move(names);
  if (!direct)
    return;
  element.visibility = visibility_of(request.context.access);
  if (element.type == ut_function)
    element.type = ut_method;
  else if (element.type == ut_var)
    element.type = ut_member;
  if (element.kind == gKind::function)
    element.kind = gKind::method;
  else if (element.kind == gKind::variable)
    element.kind = gKind::member;
}

} // namespace

void adopt_members(gPathstring const & path, gIncludeRequest const & request) {
  if (auto * const map = gCodeElems.map_of(gSrcFile(path, request.by)))
    for (auto const & [place, element] : *map)
      make_member(*element, request);
}

void adopt_members(gCodeFacts & code, gIncludeRequest const & request) {
  for (cRef<gCodeElem> const & element : code.elements)
    make_member(*element, request);
}

// Names are walked once for each element, and compared only where their hashes are equal.
#include "ana/join_keys.h"

#include <functional>

namespace {

using Decl::gKind;

std::size_t mixed(std::size_t hash, std::size_t with) {
  hash = (hash ^ with) * 0x9E3779B97F4A7C15u;
  return hash ^ hash >> 32;
}

std::size_t hash_of(std::string_view text) {
  return std::hash<std::string_view>()(text);
}

bool is_pascal(gCodeElem const & element) {
  return element.loc.file().language() == gLanguage::pascal;
}

void put_name(gCodeElem const & element, std::string & name) {
  name.clear();
  std::string_view const separator = element.loc.file().name_sep();
  for (cRef<gString> const & part : element.names) {
    if (&part != &element.names.front())
      name += separator;
    name += static_cast<std::string const &>(*part);
  }
}

} // namespace

bool has_mark(gCodeElem const & element, std::uint32_t mark) {
  return element.parts && (element.parts->marks & mark) != 0;
}

bool is_unnamed(gCodeElem const & element) {
  return has_mark(element, Decl::mark_unnamed);
}

char family_of(gCodeElem const & element) {
  switch (element.kind) {
  case gKind::name_space:
    return 'n';
  case gKind::macro:
  case gKind::function_macro:
    return 'm';
  case gKind::typedef_: // "typedef struct T T;"
  case gKind::enum_:
  case gKind::enum_class:
    return is_unnamed(element) ? 0 : 'c';
  case gKind::enumerator:
  case gKind::none:
    return 0;
  default:
    break;
  }
  switch (element.type) {
  case ut_class:
    return 'c';
  case ut_function:
  case ut_method:
    return 'f';
  case ut_var:
  case ut_member:
    return 'v';
  default:
    return 0;
  }
}

bool is_c_source(gCodeElem const & element) {
  return element.loc.file().opath().ends_with(".c");
}

bool is_local(gCodeElem const & element) {
  bool const linked_inside = element.type == ut_function || element.type == ut_var ||
                             (element.type == ut_class && is_unnamed(element));
  return element.kind == gKind::macro || element.kind == gKind::function_macro ||
         (element.parts && element.parts->seclusion == gSeclusion::unnamed) ||
         (linked_inside && has_mark(element, Decl::mark_static));
}

std::string_view signature_of(gCodeElem const & element) {
  bool const known = family_of(element) == 'f' && element.parts && element.parts->signature;
  return known ? std::string_view(*element.parts->signature) : std::string_view();
}

std::size_t name_hash(gCodeElem const & element, std::string & name) {
  put_name(element, name);
  return hash_of(is_pascal(element) ? Vlb::to_lower(name) : name);
}

gJoinKey key_of(gCodeElem const & element, std::size_t name_hash, std::size_t item) {
  std::size_t name = mixed(name_hash, static_cast<std::size_t>(family_of(element)));
  name = mixed(name, is_pascal(element));
  if (is_local(element))
    name = mixed(name, hash_of(element.loc.file().opath()));
  return {name, hash_of(signature_of(element)), item};
}

bool has_same_name(gCodeElem const & a, gCodeElem const & b) {
  if (family_of(a) != family_of(b) || is_pascal(a) != is_pascal(b) || is_local(a) != is_local(b) ||
      (is_local(a) && a.loc.file().opath() != b.loc.file().opath()))
    return false;
  return a.names == b.names ||
         (is_pascal(a) ? Vlb::to_lower(a.name()) == Vlb::to_lower(b.name()) : a.name() == b.name());
}

// A name as it is written may leave out what a "using namespace" gives, or begin at the top though
// it stands in another namespace: then the one member or scope is meant that ends with it.
#include "ana/join_scopes.h"

#include <algorithm>

#include "ana/join_keys.h"

namespace {

using Decl::gKind;

std::string without_blanks(std::string text) {
  std::erase(text, ' ');
  return text;
}

// "struct io::Stream" as "io::Stream".
std::string without_class_key(std::string_view type) {
  for (std::string_view word : {"const ", "typename ", "struct ", "class ", "union ", "enum "})
    if (type.starts_with(word))
      type.remove_prefix(word.size());
  return std::string(type);
}

gStrList parts_of(std::string_view name, std::string_view separator) {
  gStrList parts;
  for (std::size_t at; (at = name.find(separator)) != name.npos;
       name.remove_prefix(at + separator.size()))
    parts.push_back(gString(name.substr(0, at)));
  parts.push_back(gString(name));
  return parts;
}

bool is_type(gCodeElem const & element) {
  return element.type == ut_class || element.type == ut_type || element.type == ut_unit;
}

// The scope that a tail of the written one names; empty for none.
std::string known_scope(gScopeNames const & names, std::string_view written,
                        std::string_view separator) {
  if (names.contains(written))
    return std::string(written);
  for (std::string_view tail = written; !tail.empty();) {
    if (std::string found = names.find({}, tail); !found.empty())
      return found;
    std::size_t const at = tail.find(separator);
    tail.remove_prefix(at == tail.npos ? tail.size() : at + separator.size());
  }
  return {};
}

} // namespace

void gJoinScopes::add(gCodeElem const & element, std::string const & name) {
  Language & all = of(element.loc.file());
  // A C source keeps its types to itself, and no definition of C++ can mean them.
  if (has_mark(element, Decl::mark_out_of_class) || is_c_source(element))
    return;
  if (!is_type(element)) {
    if (element.type == ut_method || element.type == ut_member)
      all.members.add(name);
    return;
  }
  if (element.type == ut_class)
    all.classes.insert(name);
  if (has_mark(element, Decl::mark_specialisation)) {
    all.specialisations.emplace(without_blanks(name), name);
    return;
  }
  all.types.add(name);
  bool const alias = element.kind == gKind::alias || element.kind == gKind::typedef_;
  if (alias && !element.parts->result.empty())
    all.types.add_alias(name, without_class_key(element.parts->result.of(element.decl)));
}

// "V<bool>::at" belongs to that specialisation if there is one; else its arguments are those of the
// template, which has no others.
bool gJoinScopes::take_specialisation(gCodeElem & element) const {
  std::string const scope = element.scope();
  Language const & all = of(element.loc.file());
  std::size_t const open = scope.rfind('<');
  if (open == scope.npos || is_type(element)) // members of a type name it without arguments
    return false;
  std::size_t const begin = scope.find('<');
  std::string const whole =
      known_scope(all.types, scope.substr(0, begin), element.loc.file().name_sep());
  auto const found = all.specialisations.find(without_blanks(whole + scope.substr(begin)));
  if (whole.empty() || found == all.specialisations.end())
    return false;
  gStrList parts = parts_of(whole, element.loc.file().name_sep());
  std::string const last = *parts.back() + found->second.substr(whole.size());
  parts.pop_back();
  parts.push_back(gString(last));
  parts.push_back(element.names.back());
  element.names = std::move(parts);
  return true;
}

void gJoinScopes::resolve(gCodeElem & element) const {
  gSrcFile const & file = element.loc.file();
  gString const separator = file.name_sep();
  Language const & all = of(file);
  if (!take_specialisation(element)) {
    std::string const written = without_arguments(element.scope());
    std::string const own = *element.names.back();
    std::string const member = all.members.find({}, written + separator + own);
    std::string scope(outer_part(member, separator));
    if (member.empty() || last_part(member, separator) != own)
      scope = known_scope(all.types, written, separator);
    gStrList parts = parts_of(scope.empty() ? written : scope, separator);
    parts.push_back(element.names.back());
    element.names = std::move(parts);
  }
  bool const in_class = all.classes.contains(element.scope());
  if (element.type == ut_method && !in_class) {
    element.type = ut_function;
    element.kind = element.kind == gKind::method ? gKind::function : element.kind;
  } else if (element.type == ut_member && !in_class) {
    element.type = ut_var;
    element.kind = gKind::variable;
  }
}

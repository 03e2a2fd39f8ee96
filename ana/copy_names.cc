// Names are searched as the language would: a scope, what its bases have, then the scope around it.
// Pascal's names differ by letters alone, so theirs are kept in lower case.
#include "ana/copy_names.h"

#include <algorithm>
#include <set>

#include "ana/anadat/gscopenames.h"
#include "ana/anadat/tables.h"
#include "ana/read/rich_pieces.h"
#include "ana/read/written_parameters.h"

namespace {

constexpr std::size_t most_bases = 64;
constexpr std::size_t most_scopes = 64;

bool is_pascal(gDocUnit const & unit) {
  return unit.code_loc().file().language() == gLanguage::pascal;
}

gStrList const & names_of(gDocUnit const & unit) {
  return unit.code_elem() ? unit.code_elem()->names : unit.names();
}

std::string separator_of(gDocUnit const & unit) {
  return is_pascal(unit) ? "." : "::";
}

// The whole name as it is kept.
std::string key_of(std::string const & name, bool pascal) {
  return pascal ? "p " + std::string(Vlb::to_lower(name)) : "c " + name;
}

// The bases of a class, the nearest first.
std::vector<std::string> all_bases(std::string const & name, bool pascal) {
  gClassTable const & classes = pascal ? gPasClasses : gCppClasses;
  std::vector<std::string> found{name};
  for (std::size_t i = 0; i < found.size() && found.size() < most_bases; ++i)
    if (cRef<gBaseClause> const * const clause = classes.lookup(found[i]))
      for (gBaseEntry const & base : (*clause)->entries)
        if (std::string bare = without_arguments(base.name);
            std::ranges::find(found, bare) == found.end())
          found.push_back(std::move(bare));
  found.erase(found.begin());
  return found;
}

} // namespace

struct gCopyNames::Wanted {
  Wanted(gDocUnit const & unit, std::string_view written)
      : self(&unit),
        pascal(is_pascal(unit)),
        separator(separator_of(unit)),
        name(written.substr(0, end_of_name(written))),
        parameters(written.substr(name.size())) {
    std::string_view const other = pascal ? "::" : ".";
    for (std::size_t at = 0; (at = name.find(other, at)) != name.npos; at += separator.size())
      name.replace(at, other.size(), separator);
  }
  // The brackets of "operator()" belong to the name.
  static std::size_t end_of_name(std::string_view written) {
    std::size_t const call = written.find("operator()");
    return std::min(written.find('(', call == written.npos ? 0 : call + 10), written.size());
  }

  gDocUnit const * self;
  bool pascal;
  std::string separator, name, parameters;
};

void gCopyNames::add(gDocUnit & unit) {
  if (gString const & place = unit.get_attr("TOPIC"); place != "undefined")
    topics_.emplace(place, &unit);
  if (std::string const name = names_of(unit).make_string(separator_of(unit)); !name.empty())
    units_[key_of(name, is_pascal(unit))].push_back(&unit);
}

void gCopyNames::collect() {
  for (auto const * table : {&gNamedUnits, &gUnnamedUnits})
    for (auto const & file : *table)
      for (auto const & [place, unit] : *file.value)
        add(*unit);
  for (auto const & name : gGeneratedUnits)
    for (cRef<gDocUnit> const & unit : name.value)
      add(*unit);
}

// Of overloads the one with those parameters; without any, the first that has a text.
gDocUnit * gCopyNames::choose(std::string const & name, Wanted const & wanted) const {
  auto const found = units_.find(key_of(name, wanted.pascal));
  if (found == units_.end())
    return nullptr;
  gDocUnit * first = nullptr;
  for (gDocUnit * const one : found->second) {
    if (one == wanted.self)
      continue;
    bool const has_text = !std::as_const(*one).subentries().empty();
    gCodeElem const * const element = one->code_elem().get();
    bool const known = element && element->parts && element->parts->signature;
    bool const fits = !wanted.parameters.empty() && known &&
                      fits_parameters(*element->parts->signature, wanted.parameters, wanted.pascal);
    if (fits && has_text)
      return one;
    if (!first || (has_text && std::as_const(*first).subentries().empty()))
      first = one;
  }
  bool const any = wanted.parameters.empty() || wanted.parameters == "()";
  return any || found->second.size() == 1 ? first : nullptr;
}

gDocUnit * gCopyNames::in_bases(std::string const & scope, Wanted const & wanted) const {
  for (std::string const & base : all_bases(scope, wanted.pascal))
    if (gDocUnit * const found = choose(base + wanted.separator + wanted.name, wanted))
      return found;
  return nullptr;
}

gDocUnit * gCopyNames::in_scopes(Wanted const & wanted) const {
  std::string scope = names_of(*wanted.self).make_string(wanted.separator);
  for (std::size_t i = 0; i < most_scopes && !scope.empty(); ++i) {
    if (gDocUnit * const found = choose(scope + wanted.separator + wanted.name, wanted))
      return found;
    if (gDocUnit * const found = in_bases(scope, wanted))
      return found;
    scope = outer_part(scope, wanted.separator);
  }
  return choose(wanted.name, wanted);
}

// What is overridden has the same parameters.
gDocUnit * gCopyNames::of_base(gDocUnit const & unit) const {
  std::string const own = names_of(unit).make_string(separator_of(unit));
  for (std::string const & base : all_bases(own, is_pascal(unit)))
    if (gDocUnit * const found = choose(base, Wanted(unit, {})))
      return found;
  gStrList const & names = names_of(unit);
  if (names.size() < 2)
    return nullptr;
  gStrList scope = names;
  scope.pop_back();
  std::string wanted = *names.back();
  if (gCodeElem const * const element = unit.code_elem().get();
      element && element->parts && element->parts->signature)
    wanted += element->parts->signature->substr(0, element->parts->signature->find('\n'));
  return in_bases(scope.make_string(separator_of(unit)), Wanted(unit, wanted));
}

gDocUnit * gCopyNames::find(gDocUnit const & unit, std::string const & written) const {
  if (written.empty())
    return of_base(unit);
  Wanted const wanted(unit, written);
  if (gDocUnit * const found = in_scopes(wanted))
    return found;
  auto const topic = topics_.find(place_name(written));
  return topic == topics_.end() || topic->second == &unit ? nullptr : topic->second;
}

std::string gCopyNames::whole_name(gDocUnit const & unit, std::string_view name) const {
  gDocUnit const * const found = in_scopes(Wanted(unit, name));
  return found ? std::string(names_of(*found).make_string(separator_of(*found))) : std::string();
}

bool gCopyNames::has_bases(gDocUnit const & unit) const {
  std::string const own = names_of(unit).make_string(separator_of(unit));
  bool const pascal = is_pascal(unit);
  return !all_bases(own, pascal).empty() ||
         !all_bases(std::string(outer_part(own, separator_of(unit))), pascal).empty();
}

// Bases are names that are looked up from their class outwards. Methods are compared by the
// signatures that their reader gave them, so spelling and the names of parameters don't count. What
// spells its types in another way still replaces what it says it overrides, if only one can be
// meant.

#include "conv/set/inheritance.h"

#include <algorithm>

#include "conv/atc/qualified_name.h"
#include "conv/set/base_list.h"
#include "vlb/gstring.h"

namespace {

// A damaged or hostile document must not cost the square of its classes.
constexpr std::size_t most_ancestors = 200;

bool is_class(gUnitRecord const & unit) {
  if (unit.facts.has_mark("forward"))
    return false;
  for (std::string_view const kind :
       {"class", "struct", "union", "interface", "dispinterface", "object", "record"})
    if (unit.facts.kind == kind)
      return true;
  return false;
}

bool is_interface(gUnitRecord const & unit) {
  return unit.facts.kind == "interface" || unit.facts.kind == "dispinterface";
}

bool is_private(std::string_view access) {
  return access.ends_with("private");
}

// Each class has its own.
bool is_never_inherited(gUnitRecord const & unit) {
  for (std::string_view const kind : {"constructor", "destructor", "friend", "deduction guide"})
    if (unit.facts.kind == kind)
      return true;
  std::string_view const name = Atc::last_component(unit);
  return name == "operator=" || name.starts_with('~');
}

bool is_pascal(gUnitRecord const & unit) {
  std::string_view const path = unit.path;
  std::size_t const dot = path.rfind('.');
  std::string const extension = Vlb::to_lower(path.substr(std::min(dot, path.size())));
  return extension == ".pas" || extension == ".pp" || extension == ".p" || extension == ".dpr" ||
         extension == ".inc" || extension == ".lpr";
}

// A base that is a parameter of the template is another class each time.
bool is_bound(gUnitRecord const & unit, std::string_view name) {
  std::string_view const head = unit.facts.template_head.of(unit.declaration);
  auto const ends = [head](std::size_t at) {
    return at >= head.size() ||
           (!Vlb::is_letter(head[at]) && !Vlb::is_digit(head[at]) && head[at] != '_');
  };
  for (std::size_t at = head.find(name); at != head.npos; at = head.find(name, at + 1))
    if (at > 0 && ends(at - 1) && ends(at + name.size()))
      return true;
  return false;
}

std::span<int const> all_of(auto const & table, int unit) {
  auto const found = table.find(unit);
  return found == table.end() ? std::span<int const>() : std::span<int const>(found->second);
}

} // namespace

gInheritance::gInheritance(gDocument const & document) : document_(document) {
  for (int i = 0; i < static_cast<int>(document.units.size()); ++i)
    if (is_class(unit(i)))
      classes_.try_emplace(i);
  for (int i = 0; i < static_cast<int>(document.units.size()); ++i) {
    auto const own = classes_.find(i);
    if (own != classes_.end())
      add_bases(i, own->second);
    auto const around = classes_.find(unit(i).parent);
    if (around != classes_.end() && !unit(i).facts.signature.empty())
      add_method(i, around->second);
  }
  for (int i = 0; i < static_cast<int>(document.units.size()); ++i)
    if (Class const * const one = find(i))
      for (int const base : one->bases)
        classes_.at(base).derived.push_back(i);
  // What nothing known stands above comes first, then what has all its bases behind it. Circles,
  // which no compiler takes, are left over.
  std::unordered_map<int, std::size_t> waits;
  std::vector<int> ready;
  for (int i = 0; i < static_cast<int>(document.units.size()); ++i)
    if (Class const * const one = find(i)) {
      waits[i] = one->bases.size();
      if (one->bases.empty())
        ready.push_back(i);
    }
  for (std::size_t at = 0; at < ready.size(); ++at) {
    relate(classes_.at(ready[at]));
    for (int const below : classes_.at(ready[at]).derived)
      if (--waits[below] == 0)
        ready.push_back(below);
  }
  for (auto & [method, all] : overriders_)
    std::ranges::sort(all);
}

void gInheritance::add_method(int method, Class & one) {
  one.methods.emplace(key_of(method), method);
  one.namesakes.emplace(name_of(method), method);
}

gInheritance::Class const * gInheritance::find(int unit) const {
  auto const found = classes_.find(unit);
  return found == classes_.end() ? nullptr : &found->second;
}

void gInheritance::add_bases(int number, Class & one) {
  gUnitRecord const & record = unit(number);
  bool const open = record.facts.kind != "class" || is_pascal(record);
  for (gBaseName const & base : split_bases(record.facts.bases.of(record.declaration))) {
    int const found = document_.find_word(number, base.name);
    bool const known = found >= 0 && classes_.contains(found) && found != number;
    one.complete = one.complete && known;
    if (!known && found < 0 && !is_bound(record, base.name))
      one.foreign_bases.emplace_back(base.name);
    if (!known || std::ranges::find(one.bases, found) != one.bases.end())
      continue;
    one.bases.push_back(found);
    if (base.access.empty() ? open : base.access != "private")
      one.shown_bases.push_back(found);
  }
}

std::span<std::string const> gInheritance::foreign_bases(int unit) const {
  Class const * const one = find(unit);
  return one ? std::span<std::string const>(one->foreign_bases) : std::span<std::string const>();
}

std::string gInheritance::name_of(int number) const {
  gUnitRecord const & record = unit(number);
  std::string const name(Atc::last_component(record));
  return is_pascal(record) ? Vlb::to_lower(name) : name;
}

std::string gInheritance::key_of(int method) const {
  return name_of(method) + unit(method).facts.signature;
}

bool gInheritance::is_abstract(int method) const {
  int const owner = unit(method).parent;
  return unit(method).facts.has_mark("pure") || (owner >= 0 && is_interface(unit(owner)));
}

bool gInheritance::is_virtual(int method) const {
  gKnownFacts const & facts = unit(method).facts;
  for (std::string_view const mark : {"virtual", "pure", "override", "dynamic", "message"})
    if (facts.has_mark(mark))
      return true;
  return overridden_.contains(method) || is_abstract(method);
}

// In Pascal a method without "override" hides the other one, unless it fills in an interface.
bool gInheritance::replaces(int method, int other) const {
  if (!is_virtual(other))
    return false;
  int const owner = unit(other).parent;
  return !is_pascal(unit(method)) || unit(method).facts.has_mark("override") ||
         (owner >= 0 && is_interface(unit(owner)));
}

// The one virtual method of this name, -1 for none or several.
int gInheritance::namesake_in(Class const & base, int method) const {
  constexpr int most_overloads = 64;
  int found = -1, looked_at = 0;
  auto const [first, last] = base.namesakes.equal_range(name_of(method));
  for (auto at = first; at != last; ++at) {
    if (++looked_at > most_overloads)
      return -1;
    if (!is_virtual(at->second))
      continue;
    if (found >= 0)
      return -1;
    found = at->second;
  }
  return found;
}

// Each way upwards ends at the first method that is replaced.
void gInheritance::relate(Class const & one) {
  for (auto const & [key, method] : one.methods) {
    if (is_never_inherited(unit(method)) || unit(method).facts.has_mark("static"))
      continue;
    for (bool const exact : {true, false}) {
      if (!exact && !unit(method).facts.has_mark("override"))
        break;
      std::vector<int> way = one.bases;
      std::unordered_set<int> seen(way.begin(), way.end());
      std::vector<int> found;
      for (std::size_t at = 0; at < way.size() && way.size() < most_ancestors; ++at) {
        Class const & base = classes_.at(way[at]);
        auto const other = base.methods.find(key);
        int const fits = !exact                        ? namesake_in(base, method)
                         : other != base.methods.end() ? other->second
                                                       : -1;
        if (fits >= 0 && replaces(method, fits)) {
          found.push_back(fits);
          continue;
        }
        for (int const above : base.bases)
          if (seen.insert(above).second)
            way.push_back(above);
      }
      if (found.empty())
        continue;
      for (int const other : found)
        overriders_[other].push_back(method);
      overridden_.emplace(method, std::move(found));
      break;
    }
  }
}

std::span<int const> gInheritance::bases(int unit) const {
  Class const * const one = find(unit);
  return one ? std::span<int const>(one->bases) : std::span<int const>();
}

std::span<int const> gInheritance::derived(int unit) const {
  Class const * const one = find(unit);
  return one ? std::span<int const>(one->derived) : std::span<int const>();
}

std::span<int const> gInheritance::overridden(int method) const {
  return all_of(overridden_, method);
}

int gInheritance::explained_by(int method) const {
  std::vector<int> way(overridden(method).begin(), overridden(method).end());
  for (std::size_t at = 0; at < way.size() && at < most_ancestors; ++at) {
    if (!unit(way[at]).summary.empty())
      return way[at];
    auto const above = overridden(way[at]);
    way.insert(way.end(), above.begin(), above.end());
  }
  return -1;
}

std::span<int const> gInheritance::overriders(int method) const {
  return all_of(overriders_, method);
}

std::vector<gInherited> gInheritance::inherited(int number) const {
  Class const * const one = find(number);
  if (!one)
    return {};
  std::vector<gInherited> all;
  std::unordered_set<std::string> hidden;
  for (int const member : document_.children_of(number))
    hidden.insert(name_of(member));
  std::vector<int> way = one->shown_bases;
  std::unordered_set<int> seen(way.begin(), way.end());
  seen.insert(number);
  for (std::size_t at = 0; at < way.size() && at < most_ancestors; ++at) {
    gInherited part{way[at], {}};
    for (int const member : document_.children_of(way[at]))
      if (!is_private(unit(member).facts.access) && !is_never_inherited(unit(member)) &&
          !hidden.contains(name_of(member)))
        part.members.push_back(member);
    for (int const member : part.members)
      hidden.insert(name_of(member));
    if (!part.members.empty())
      all.push_back(std::move(part));
    for (int const above : classes_.at(way[at]).shown_bases)
      if (seen.insert(above).second)
        way.push_back(above);
  }
  return all;
}

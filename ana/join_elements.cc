// Reads gNamedUnits and gUnnamedUnits. Changes gCodeElems, gUnnamedUnits and the class tables.
// What several places declare is one thing: a function and its definition, a forward declaration
// and its class, the parts of a namespace. One place stays, and takes the text of the others if it
// has none of its own. Only elements of the tolerant readers are joined; others have no kind.

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "ana/anadat/tables.h"
#include "ana/base_clauses.h"
#include "ana/join_keys.h"
#include "ana/join_scopes.h"
#include "ana/join_tags.h"
#include "ana/merge_elements.h"
#include "ana/read/type_words.h"
#include "ana/stages.h"

namespace {

using Decl::gKind;

struct Item {
  cRef<gCodeElem> element;
  cRef<gDocUnit> unit; // bound to it; null for none
  std::size_t name;    // the hash of its whole name
  bool dropped = false;
};

// Declared between the brackets of its class. Two of those are never one thing: their classes are
// two that happen to have the same name.
bool is_inside_class(gCodeElem const & element) {
  return (element.type == ut_method || element.type == ut_member) &&
         !has_mark(element, Decl::mark_out_of_class);
}

// Users see the text of a header, and rather one that was written for them.
int worth_of_text(Item const & item) {
  if (!item.unit)
    return 0;
  return 1 + (item.element->documented ? 2 : 0) + (is_header(item.element->loc.file()) ? 1 : 0);
}

using Group = std::vector<std::size_t>;

class Joining {
public:
  void run();

private:
  void collect();
  void group();
  void join_namesakes(gJoinKeys::const_iterator first, gJoinKeys::const_iterator end);
  void join(Group const & group);
  void join_all(Group const & group);
  void join_classes(Group const & group);
  void join_declarations(Group const & group);
  void join_alike(std::vector<Group> const & namesakes);
  void join_without_parameters(std::vector<Group> const & namesakes);
  bool is_alike(gCodeElem const & definition, gCodeElem const & declaration) const;
  void merge(std::size_t into, std::size_t from);
  bool are_two(std::size_t a, std::size_t b) const;
  std::size_t host_of(Group const & hosts, gCodeElem const & definition) const;
  std::size_t principal(Group const & group) const;
  gCodeElem const & element(std::size_t i) const { return *items_[i].element; }
  void leave_out_local();
  void drop();
  void enter_classes();

  std::vector<Item> items_;
  gJoinScopes scopes_;
};

// Everything is looked up by address once: a unit knows its element, not the other way round.
void Joining::collect() {
  std::unordered_map<gCodeElem const *, cRef<gDocUnit>> units;
  units.reserve(gNamedUnits.total() + gUnnamedUnits.total());
  for (auto const * table : {&gNamedUnits, &gUnnamedUnits})
    for (auto const & file : *table)
      for (auto const & [place, unit] : *file.value)
        if (unit->code_elem())
          units.emplace(unit->code_elem().get(), unit);
  items_.reserve(gCodeElems.total());
  for (auto const & file : gCodeElems)
    for (auto const & [place, element] : *file.value) {
      if (element->kind == gKind::none)
        continue;
      auto const unit = units.find(element.get());
      items_.push_back({element, unit == units.end() ? cRef<gDocUnit>() : unit->second, 0});
    }
  std::vector<gCodeElem *> elements;
  for (Item const & item : items_)
    elements.push_back(item.element.get());
  name_tags(elements);
  std::string name;
  for (Item & item : items_) {
    item.name = name_hash(*item.element, name);
    scopes_.add(*item.element, name);
  }
  for (Item & item : items_)
    if (has_mark(*item.element, Decl::mark_out_of_class) && item.element->names.size() > 1) {
      scopes_.resolve(*item.element);
      item.name = name_hash(*item.element, name);
    }
}

void Joining::group() {
  gJoinKeys keys;
  keys.reserve(items_.size());
  for (std::size_t i = 0; i < items_.size(); ++i)
    if (family_of(element(i)) != 0)
      keys.push_back(key_of(element(i), items_[i].name, i));
  std::sort(keys.begin(), keys.end());
  for (auto first = keys.cbegin(); first != keys.cend();) {
    auto end = std::next(first);
    while (end != keys.cend() && end->name == first->name &&
           has_same_name(element(first->item), element(end->item)))
      ++end;
    if (end - first > 1)
      join_namesakes(first, end);
    first = end;
  }
}

void Joining::join_namesakes(gJoinKeys::const_iterator first, gJoinKeys::const_iterator end) {
  std::vector<Group> groups;
  for (auto key = first; key != end; ++key) {
    bool const same =
        key != first && key->signature == std::prev(key)->signature &&
        signature_of(element(key->item)) == signature_of(element(std::prev(key)->item));
    if (!same)
      groups.emplace_back();
    groups.back().push_back(key->item);
  }
  for (Group const & group : groups)
    if (group.size() > 1)
      join(group);
  // In the order of the sources.
  std::sort(groups.begin(), groups.end());
  if (groups.size() > 1 && family_of(element(first->item)) == 'f') {
    join_without_parameters(groups);
    join_alike(groups);
  }
}

// Of functions and variables the declaration that users include; of classes the definition.
std::size_t Joining::principal(Group const & group) const {
  auto const rank = [&](std::size_t i) {
    bool const class_like = family_of(element(i)) == 'c';
    return (announces(element(i)) != class_like ? 4 : 0) +
           (is_header(element(i).loc.file()) ? 2 : 0) + (items_[i].unit ? 1 : 0);
  };
  return *std::max_element(group.begin(), group.end(),
                           [&](std::size_t a, std::size_t b) { return rank(a) < rank(b); });
}

void Joining::merge(std::size_t into, std::size_t from) {
  Item & kept = items_[into];
  Item & gone = items_[from];
  gone.dropped = true;
  merge_elements(*kept.element, *gone.element);
  if (worth_of_text(gone) <= worth_of_text(kept))
    return;
  gone.unit->bind(kept.element, gone.unit->rank());
  kept.element->text = gone.element->text; // no other text is searched for
  kept.element->documented = gone.element->documented;
  std::swap(kept.unit, gone.unit);
}

// "typedef struct T T;" says nothing that the structure doesn't.
bool is_name_of(gCodeElem const & type, gCodeElem const & other) {
  if (type.kind != gKind::typedef_ || !type.parts)
    return true;
  std::string_view const result = type.parts->result.of(type.decl);
  std::size_t const blank = result.find(' ');
  if (blank != result.npos && result.substr(blank + 1) == *other.names.back())
    return true;
  std::string_view const tag = named_tag(type);
  return !tag.empty() && other.parts && tag == other.parts->name.of(other.decl);
}

void Joining::join_all(Group const & group) {
  std::size_t const kept = principal(group);
  for (std::size_t const other : group)
    if (other != kept)
      merge(kept, other);
}

// Announcements go where a definition is known.
void Joining::join_classes(Group const & group) {
  std::size_t const kept = principal(group);
  if (announces(element(kept)))
    return;
  for (std::size_t const other : group)
    if (other != kept && announces(element(other)) && is_name_of(element(other), element(kept)))
      merge(kept, other);
}

bool is_same_text(gSubEntries const & a, gSubEntries const & b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](auto const & x, auto const & y) {
    return *x.name == *y.name && x.text.make_string("") == y.text.make_string("");
  });
}

// Announcements with documentation of their own are two, unless one is a copy of the other.
bool Joining::are_two(std::size_t a, std::size_t b) const {
  Item const & one = items_[a];
  Item const & other = items_[b];
  return one.element->documented && other.element->documented && one.unit && other.unit &&
         !is_same_text(std::as_const(*one.unit).subentries(),
                       std::as_const(*other.unit).subentries());
}

// The declaration in the definition's own source, else the best one.
std::size_t Joining::host_of(Group const & hosts, gCodeElem const & definition) const {
  auto const own = std::find_if(hosts.begin(), hosts.end(), [&](std::size_t i) {
    return element(i).loc.file().opath() == definition.loc.file().opath();
  });
  return own == hosts.end() ? principal(hosts) : *own;
}

void Joining::join_declarations(Group const & group) {
  Group hosts, definitions;
  Group outside; // announcements that stand in no class
  for (std::size_t const i : group) {
    bool const inside = is_inside_class(element(i));
    (inside ? hosts : announces(element(i)) ? outside : definitions).push_back(i);
  }
  if (!outside.empty()) {
    std::size_t const kept = principal(outside);
    hosts.push_back(kept);
    for (std::size_t const other : outside) {
      if (other != kept && are_two(kept, other))
        hosts.push_back(other);
      else if (other != kept)
        merge(kept, other);
    }
  }
  if (hosts.empty())
    return; // definitions alone
  for (std::size_t const one : definitions)
    merge(host_of(hosts, element(one)), one);
}

void Joining::join(Group const & group) {
  switch (family_of(element(group[0]))) {
  case 'n':
  case 'm':
    return join_all(group);
  case 'c':
    return join_classes(group);
  default:
    return join_declarations(group);
  }
}

// Of C++ the same number of parameters, whose types have the same last names: one source may leave
// out a namespace that the other needs. Pascal's implementation may leave out all parameters.
bool Joining::is_alike(gCodeElem const & definition, gCodeElem const & declaration) const {
  auto const parameters = [](gCodeElem const & one) {
    bool const known = one.parts && one.parts->signature;
    return known ? one.parts->signature->substr(0, one.parts->signature->find('\n')) : gString();
  };
  gString const own = parameters(definition);
  if (definition.loc.file().language() == gLanguage::pascal)
    return own.empty();
  return without_qualifiers(own) == without_qualifiers(parameters(declaration));
}

// A definition whose declaration is spelled in another way joins it if there is no choice. Many
// overloads leave one too seldom to pay for comparing each with each.
void Joining::join_alike(std::vector<Group> const & namesakes) {
  constexpr std::size_t most_overloads = 64;
  if (namesakes.size() > most_overloads)
    return;
  for (Group const & group : namesakes) {
    std::size_t const definition = group.front();
    bool const lonely = std::none_of(group.begin(), group.end(), [&](std::size_t i) {
      return items_[i].dropped || announces(element(i)) || is_inside_class(element(i));
    });
    if (!lonely)
      continue;
    Group fitting;
    for (Group const & other : namesakes)
      for (std::size_t const i : other)
        if (&other != &group && !items_[i].dropped && announces(element(i)) &&
            is_alike(element(definition), element(i)))
          fitting.push_back(i);
    if (fitting.size() == 1)
      for (std::size_t const i : group)
        merge(fitting.front(), i);
  }
}

// "int f();" of C says nothing of its parameters, "int f(void);" says that there are none.
bool leaves_parameters_open(gCodeElem const & element) {
  return element.type == ut_function && element.parts && announces(element) &&
         element.parts->parameters.of(element.decl) == "()";
}

// Where C has one function of a name, an announcement without parameters means it. If nothing else
// announces it, readers are shown what its definition says.
void Joining::join_without_parameters(std::vector<Group> const & namesakes) {
  if (namesakes.size() != 2)
    return;
  bool const first_open = leaves_parameters_open(element(namesakes[0].front()));
  Group const & open = namesakes[first_open ? 0 : 1];
  Group const & known = namesakes[first_open ? 1 : 0];
  bool const c = std::ranges::any_of(
      known, [&](std::size_t i) { return is_c_source(element(i)) && !announces(element(i)); });
  bool const all_open =
      std::ranges::all_of(open, [&](std::size_t i) { return leaves_parameters_open(element(i)); });
  auto const left = [&](std::size_t i) { return !items_[i].dropped; };
  if (!c || !all_open || std::ranges::count_if(known, left) != 1)
    return;
  std::size_t const one = *std::ranges::find_if(known, left);
  bool const announced = announces(element(one));
  std::size_t const kept = announced ? one : *std::ranges::find_if(open, left);
  if (!announced)
    take_shape(*items_[kept].element, element(one));
  for (std::size_t const other : announced ? open : known)
    if (!items_[other].dropped)
      merge(kept, other);
}

// What one source keeps to itself, announcements of what no input defines, and lists of constants
// that nobody says anything about.
void Joining::leave_out_local() {
  for (Item & item : items_) {
    gCodeElem const & element = *item.element;
    bool const macro = family_of(element) == 'm';
    bool const inside =
        has_mark(element, Decl::mark_implementation) && !has_mark(element, Decl::mark_out_of_class);
    bool const own = (is_local(element) || inside) && !macro && !is_header(element.loc.file()) &&
                     !gInput->association.gen_static;
    bool const type = element.type == ut_class || element.type == ut_type;
    bool const empty = type && (has_mark(element, Decl::mark_forward) ||
                                (element.kind == gKind::enum_ && is_unnamed(element)));
    item.dropped = item.dropped || own || (empty && !item.unit);
  }
}

// The table has its elements in the order of the items, which are those that tell their kind.
void Joining::drop() {
  std::unordered_set<gDocUnit const *> units;
  for (Item const & item : items_)
    if (item.dropped && item.unit)
      units.insert(item.unit.get());
  std::size_t next = 0;
  for (auto const & file : gCodeElems)
    file.value->erase_if([&](cRef<gCodeElem> const & element) {
      return element->kind != gKind::none && items_[next++].dropped;
    });
  for (auto const & file : gUnnamedUnits)
    file.value->erase_if([&](cRef<gDocUnit> const & unit) { return units.contains(unit.get()); });
}

void Joining::enter_classes() {
  for (Item const & item : items_) {
    gCodeElem const & element = *item.element;
    if (item.dropped || element.type != ut_class || has_mark(element, Decl::mark_forward))
      continue;
    bool const pascal = element.loc.file().language() == gLanguage::pascal;
    (pascal ? gPasClasses : gCppClasses)
        .insert_class(element.name(), bases_of(element, scopes_.names_of(element.loc.file())));
  }
}

void Joining::run() {
  collect();
  if (items_.empty())
    return;
  group();
  leave_out_local();
  drop();
  enter_classes();
}

} // namespace

void ana_join_elements() {
  Joining().run();
}

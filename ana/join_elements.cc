// Reads gNamedUnits and gUnnamedUnits. Changes gCodeElems, gUnnamedUnits and the class tables.
// What several places declare is one thing: a function and its definition, a forward declaration
// and its class, the parts of a namespace. One place stays, and takes the text of the others if it
// has none of its own. Only elements of the tolerant readers are joined; others have no kind.

#include <algorithm>
#include <unordered_map>

#include "ana/anadat/gscopenames.h"
#include "ana/anadat/tables.h"
#include "ana/stages.h"

namespace {

using Decl::gKind;

struct Item {
  cRef<gCodeElem> element;
  cRef<gDocUnit> unit; // bound to it; null for none
  bool dropped = false;
};

bool has_mark(gCodeElem const & element, std::uint32_t mark) {
  return element.parts && (element.parts->marks & mark) != 0;
}

bool is_header(gSrcFile const & file) {
  std::string_view const path = file.opath();
  std::string_view const name = path.substr(path.rfind('/') + 1);
  std::size_t const dot = name.rfind('.');
  return dot == name.npos || Vlb::to_lower(name.substr(dot + 1)).starts_with('h');
}

// What kinds of things can be one. 0: nothing else is ever the same thing.
char family_of(gCodeElem const & element) {
  switch (element.kind) {
  case gKind::name_space:
    return 'n';
  case gKind::macro:
  case gKind::function_macro:
    return 'm';
  case gKind::typedef_:
    return 'c'; // "typedef struct T T;"
  case gKind::enumerator:
  case gKind::enum_:
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

bool is_local(gCodeElem const & element) {
  bool const linked_inside = element.type == ut_function || element.type == ut_var;
  return element.kind == gKind::macro || element.kind == gKind::function_macro ||
         (element.parts && element.parts->seclusion == gSeclusion::unnamed) ||
         (linked_inside && has_mark(element, Decl::mark_static));
}

class Joining {
public:
  void run();

private:
  void collect();
  void resolve_scopes();
  void resolve_scope(gCodeElem & element);
  void group();
  void join(std::vector<std::size_t> const & group);
  void merge(std::size_t into, std::size_t from);
  std::size_t principal(std::vector<std::size_t> const & group) const;
  bool announces(Item const & item) const;
  void leave_out_local();
  void drop();
  void enter_classes();

  gScopeNames & names_of(gSrcFile const & file) {
    return file.language() == gLanguage::pascal ? pascal_ : cpp_;
  }

  std::vector<Item> items_;
  gScopeNames cpp_{"::"}, pascal_{"."};
};

// Everything is looked up by address once: a unit knows its element, not the other way round.
void Joining::collect() {
  std::unordered_map<gCodeElem const *, cRef<gDocUnit>> units;
  for (auto const * table : {&gNamedUnits, &gUnnamedUnits})
    for (auto const & file : *table)
      for (auto const & [place, unit] : *file.value)
        if (unit->code_elem())
          units.emplace(unit->code_elem().get(), unit);
  for (auto const & file : gCodeElems)
    for (auto const & [place, element] : *file.value) {
      if (element->kind == gKind::none)
        continue;
      auto const unit = units.find(element.get());
      items_.push_back({element, unit == units.end() ? cRef<gDocUnit>() : unit->second});
    }
  for (Item const & item : items_) {
    gCodeElem const & element = *item.element;
    gScopeNames & names = names_of(element.loc.file());
    bool const type =
        element.type == ut_class || element.type == ut_type || element.type == ut_unit;
    if (!type || has_mark(element, Decl::mark_out_of_class | Decl::mark_specialisation))
      continue;
    bool const alias = element.kind == gKind::alias || element.kind == gKind::typedef_;
    names.add(element.name());
    if (alias && !element.parts->result.empty())
      names.add_alias(element.name(), std::string(element.parts->result.of(element.decl)));
  }
}

gStrList parts_of(std::string_view name, std::string_view separator) {
  gStrList parts;
  for (std::size_t at; (at = name.find(separator)) != name.npos;
       name.remove_prefix(at + separator.size()))
    parts.push_back(gString(name.substr(0, at)));
  parts.push_back(gString(name));
  return parts;
}

// What stands around a thing. Its own name may hold separators, such as "operator std::string".
std::string scope_of(gCodeElem const & element) {
  gStrList outer = element.names;
  if (!outer.empty())
    outer.pop_back();
  return outer.make_string(element.loc.file().name_sep());
}

// The scope of a name as it is written may leave out what a "using namespace" gives, or begin at
// the top though it stands in another namespace: then a shorter tail of it is a known one.
void Joining::resolve_scope(gCodeElem & element) {
  gString const separator = element.loc.file().name_sep();
  gScopeNames const & names = names_of(element.loc.file());
  std::string const written = scope_of(element);
  if (names.contains(written))
    return;
  for (std::string_view tail = written; !tail.empty();) {
    if (std::string const found = names.find({}, tail); !found.empty()) {
      gStrList parts = parts_of(found, separator);
      parts.push_back(element.names.back());
      element.names = std::move(parts);
      return;
    }
    std::size_t const at = tail.find(separator);
    tail.remove_prefix(at == tail.npos ? tail.size() : at + separator.size());
  }
}

void Joining::resolve_scopes() {
  for (Item & item : items_)
    if (has_mark(*item.element, Decl::mark_out_of_class) && item.element->names.size() > 1)
      resolve_scope(*item.element);
}

void Joining::group() {
  std::unordered_map<std::string, std::vector<std::size_t>> groups;
  std::vector<std::vector<std::size_t> *> order;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    gCodeElem const & element = *items_[i].element;
    char const family = family_of(element);
    if (family == 0)
      continue;
    bool const pascal = element.loc.file().language() == gLanguage::pascal;
    std::string const name = element.name();
    std::string key = {family, pascal ? 'p' : 'c'};
    key += pascal ? Vlb::to_lower(name) : name;
    if (family == 'f' && element.parts && element.parts->signature)
      key += *element.parts->signature;
    if (is_local(element))
      key += '\n' + element.loc.file().opath();
    auto const [found, added] = groups.try_emplace(std::move(key));
    found->second.push_back(i);
    if (!added && found->second.size() == 2)
      order.push_back(&found->second);
  }
  for (auto const * members : order)
    join(*members);
}

// Tells that something exists, and leaves it to another place to define it.
bool Joining::announces(Item const & item) const {
  gCodeElem const & element = *item.element;
  if (family_of(element) == 'c')
    return element.kind == gKind::typedef_ || has_mark(element, Decl::mark_forward);
  return !has_mark(element, Decl::mark_definition) && !has_mark(element, Decl::mark_out_of_class);
}

// Of functions and variables the declaration that users include; of classes the definition.
std::size_t Joining::principal(std::vector<std::size_t> const & group) const {
  auto const rank = [&](std::size_t i) {
    Item const & item = items_[i];
    bool const class_like = family_of(*item.element) == 'c';
    return (announces(item) != class_like ? 4 : 0) + (is_header(item.element->loc.file()) ? 2 : 0) +
           (item.unit ? 1 : 0);
  };
  return *std::max_element(group.begin(), group.end(),
                           [&](std::size_t a, std::size_t b) { return rank(a) < rank(b); });
}

void Joining::merge(std::size_t into, std::size_t from) {
  Item & kept = items_[into];
  Item & gone = items_[from];
  gone.dropped = true;
  if (!kept.unit && gone.unit) {
    gone.unit->bind(kept.element, gone.unit->rank());
    kept.element->text = gone.element->text; // no other text is searched for
    kept.unit = std::move(gone.unit);
  }
}

// "typedef struct T T;" says nothing that the structure doesn't.
bool is_name_of(gCodeElem const & type, gCodeElem const & other) {
  if (type.kind != gKind::typedef_ || !type.parts)
    return true;
  std::string_view const result = type.parts->result.of(type.decl);
  std::size_t const blank = result.find(' ');
  return blank != result.npos && result.substr(blank + 1) == *other.names.back();
}

void Joining::join(std::vector<std::size_t> const & group) {
  char const family = family_of(*items_[group[0]].element);
  std::size_t const kept = principal(group);
  if (family != 'n' && family != 'm') {
    bool const class_like = family == 'c';
    if (announces(items_[kept]) == class_like)
      return; // definitions alone, or nothing that is defined
  }
  for (std::size_t const other : group) {
    if (other == kept)
      continue;
    if (family == 'c' &&
        (!announces(items_[other]) || !is_name_of(*items_[other].element, *items_[kept].element)))
      continue;
    merge(kept, other);
  }
}

// What one source keeps to itself, and announcements of what no input defines.
void Joining::leave_out_local() {
  for (Item & item : items_) {
    gCodeElem const & element = *item.element;
    bool const macro = family_of(element) == 'm';
    bool const own = is_local(element) && !macro && !is_header(element.loc.file()) &&
                     !gInput->association.gen_static;
    bool const announced = element.type == ut_class && has_mark(element, Decl::mark_forward);
    item.dropped = item.dropped || own || (announced && !item.unit);
  }
}

template <class Table, class Gone> void remove_from(Table & table, Gone const & gone) {
  for (auto const & file : table)
    file.value->erase_if(gone);
}

void Joining::drop() {
  std::unordered_map<void const *, bool> elements, units;
  for (Item const & item : items_)
    if (item.dropped) {
      elements.emplace(item.element.get(), true);
      if (item.unit)
        units.emplace(item.unit.get(), true);
    }
  remove_from(gCodeElems, [&](auto const & element) { return elements.contains(element.get()); });
  remove_from(gUnnamedUnits, [&](auto const & unit) { return units.contains(unit.get()); });
}

// Up to the comma behind the first base.
std::string_view first_base(std::string_view bases) {
  int depth = 0;
  for (std::size_t at = 0; at < bases.size(); ++at) {
    char const c = bases[at];
    if (c == ',' && depth == 0)
      return bases.substr(0, at);
    depth += (c == '<' || c == '(' || c == '[') - (c == '>' || c == ')' || c == ']');
  }
  return bases;
}

// Takes the words in front of the base's name.
int take_access(gString & base) {
  constexpr std::pair<std::string_view, int> words[] = {{"public ", access_public},
                                                        {"protected ", access_protected},
                                                        {"private ", access_private},
                                                        {"virtual ", access_virtual},
                                                        {"typename ", 0}};
  auto const in_front = [&](auto const & word) { return base.starts_with(word.first); };
  int access = 0;
  for (auto const * word = std::begin(words);
       (word = std::find_if(std::begin(words), std::end(words), in_front)) != std::end(words);) {
    access |= word->second;
    base.erase(0, word->first.size());
  }
  return access;
}

// "public virtual A<T>, B" with the whole name of each.
cRef<gBaseClause> bases_of(gCodeElem const & element, gScopeNames const & names) {
  bool const pascal = element.loc.file().language() == gLanguage::pascal;
  auto clause = make_ref<gBaseClause>();
  for (std::string_view rest = element.heritage; !rest.empty();) {
    std::string_view const first = first_base(rest);
    rest.remove_prefix(std::min(first.size() + 1, rest.size()));
    gString base(first);
    base.wsp_norm();
    int access = pascal ? 0 : take_access(base);
    if (base.empty())
      continue;
    if ((access & (access_public | access_protected | access_private)) == 0)
      access |= pascal || element.kind == gKind::struct_ ? access_public : access_private;
    if (std::string const whole = names.find(scope_of(element), base); !whole.empty())
      base = whole + base.substr(std::min(base.find('<'), base.size()));
    clause->append({base, access});
  }
  return clause;
}

void Joining::enter_classes() {
  for (Item const & item : items_) {
    gCodeElem const & element = *item.element;
    if (item.dropped || element.type != ut_class || has_mark(element, Decl::mark_forward))
      continue;
    bool const pascal = element.loc.file().language() == gLanguage::pascal;
    (pascal ? gPasClasses : gCppClasses)
        .insert_class(element.name(), bases_of(element, names_of(element.loc.file())));
  }
}

void Joining::run() {
  collect();
  if (items_.empty())
    return;
  resolve_scopes();
  group();
  leave_out_local();
  drop();
  enter_classes();
}

} // namespace

void ana_join_elements() {
  Joining().run();
}

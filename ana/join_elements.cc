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
  std::string_view const extension = path.substr(std::min(path.rfind('.'), path.size()));
  return extension.empty() || extension[std::min<std::size_t>(1, extension.size() - 1)] == 'h' ||
         extension[std::min<std::size_t>(1, extension.size() - 1)] == 'H';
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
  void group();
  void join(std::vector<std::size_t> const & group);
  void merge(std::size_t into, std::size_t from);
  std::size_t principal(std::vector<std::size_t> const & group) const;
  bool announces(Item const & item) const;
  void leave_out_local();
  void drop();
  void enter_classes();

  static gScopeNames & names_of(gSrcFile const & file, Joining & self) {
    return file.language() == gLanguage::pascal ? self.pascal_ : self.cpp_;
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
    gScopeNames & names = names_of(element.loc.file(), *this);
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

// The scope that is written in front of a name, seen from where it is written.
void Joining::resolve_scopes() {
  for (Item & item : items_) {
    gCodeElem & element = *item.element;
    if (!has_mark(element, Decl::mark_out_of_class) || element.names.size() < 2)
      continue;
    gString const separator = element.loc.file().name_sep();
    gScopeNames const & names = names_of(element.loc.file(), *this);
    std::string const whole = element.name();
    std::string_view const written = outer_part(whole, separator);
    if (names.contains(written))
      continue;
    // The scope of the text may not be the one of the class: it is the shorter tails' turn.
    for (std::string_view tail = written; !tail.empty();) {
      std::string const found = names.find({}, tail);
      if (!found.empty()) {
        gStrList parts;
        std::string_view rest = found;
        for (std::size_t at; (at = rest.find(separator)) != rest.npos;
             rest.remove_prefix(at + separator.size()))
          parts.append(gString(rest.substr(0, at)));
        parts.append(gString(rest));
        parts.append(**std::prev(element.names.end()));
        element.names = std::move(parts);
        break;
      }
      std::size_t const at = tail.find(separator);
      tail.remove_prefix(at == tail.npos ? tail.size() : at + separator.size());
    }
  }
}

void Joining::group() {
  std::unordered_map<std::string, std::vector<std::size_t>> groups;
  std::vector<std::vector<std::size_t> *> order;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    gCodeElem const & element = *items_[i].element;
    char const family = family_of(element);
    if (family == 0)
      continue;
    std::string key(1, family);
    key += element.loc.file().language() == gLanguage::pascal ? 'p' : 'c';
    key += element.loc.file().language() == gLanguage::pascal ? Vlb::to_lower(element.name())
                                                              : element.name();
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

// "typedef enum T {...} T" and the like name one thing twice.
bool is_name_of(gCodeElem const & type, gCodeElem const & other) {
  if (type.kind != gKind::typedef_ || !type.parts)
    return true;
  std::string_view named = type.parts->result.of(type.decl);
  for (std::string_view word : {"struct ", "union ", "class ", "enum "})
    if (named.starts_with(word))
      return named.substr(word.size(),
                          other.names.empty() ? 0 : (**std::prev(other.names.end())).size()) ==
             **std::prev(other.names.end());
  return false;
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

// "public virtual A<T>, B" with the whole name of each.
cRef<gBaseClause> bases_of(gCodeElem const & element, gScopeNames const & names,
                           std::string const & scope, bool pascal) {
  auto clause = make_ref<gBaseClause>();
  std::string_view rest = element.heritage;
  while (!rest.empty()) {
    int depth = 0;
    std::size_t end = 0;
    for (; end < rest.size() && (depth > 0 || rest[end] != ','); ++end)
      depth += std::string_view("<([").find(rest[end]) != rest.npos   ? 1
               : std::string_view(">)]").find(rest[end]) != rest.npos ? -1
                                                                      : 0;
    gString base(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    int access = 0;
    base.wsp_norm();
    for (bool again = !pascal; again;) {
      again = false;
      for (auto const & [word, bit] : {std::pair<std::string_view, int>{"public ", access_public},
                                       {"protected ", access_protected},
                                       {"private ", access_private},
                                       {"virtual ", access_virtual},
                                       {"typename ", 0}})
        if (base.starts_with(word)) {
          base.erase(0, word.size());
          access |= bit;
          again = true;
        }
    }
    if (base.empty())
      continue;
    if ((access & (access_public | access_protected | access_private)) == 0)
      access |= pascal || element.kind == gKind::struct_ ? access_public : access_private;
    std::string const whole = names.find(scope, base);
    if (!whole.empty())
      base = whole + std::string(base.substr(std::min(base.find('<'), base.size())));
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
    std::string const name = element.name();
    gScopeNames const & names = pascal ? pascal_ : cpp_;
    std::string const scope(outer_part(name, element.loc.file().name_sep()));
    (pascal ? gPasClasses : gCppClasses)
        .insert_class(name, bases_of(element, names, scope, pascal));
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

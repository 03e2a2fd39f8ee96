// Where references lead. All tables hold hashes and numbers in the order of the document, so "the
// nearest" is found by halving: what stands around a place in the document is near it in the
// outline, too.
#include "conv/atc/document.h"
#include "conv/atc/qualified_name.h"
#include "vlb/gstring.h"

namespace {

using Entries = std::span<gHashIndex::Entry const>;

// True if `name` is the whole or what stands behind a separator in it.
bool is_tail(std::string_view whole, std::string_view name) {
  return whole.ends_with(name) && (whole.size() == name.size() ||
                                   Atc::separator_before(whole, whole.size() - name.size()) != 0);
}

std::uint64_t hash_of(std::string_view text) {
  return gHashIndex::add(gHashIndex::start, text);
}

std::uint64_t hash_of_label(std::string_view label) {
  std::uint64_t hash = gHashIndex::start;
  for (std::size_t i = label.size(); i-- > 0;)
    hash = gHashIndex::add(hash, Vlb::upper(label[i]));
  return hash;
}

// As code may write it: no blanks around separators, no parameter list.
std::string without_trimmings(std::string_view name) {
  if (!name.empty() && name.back() == ')' && name.find("operator") == name.npos)
    name = name.substr(0, name.find('('));
  gString plain{name};
  plain.wsp_trim();
  std::string result;
  for (std::size_t i = 0; i < plain.size(); ++i) {
    bool const at_separator =
        plain[i] == ' ' && ((i > 0 && plain[i - 1] == ':') || plain[i + 1] == ':');
    if (!at_separator)
      result += plain[i];
  }
  return result;
}

bool is_one_of(std::string_view word, std::initializer_list<std::string_view> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

std::string_view next_word(std::string_view & text) {
  while (!text.empty() && !Vlb::is_word(text.front()))
    text.remove_prefix(1);
  std::size_t size = 0;
  while (size < text.size() && Vlb::is_word(text[size]))
    ++size;
  std::string_view const word = text.substr(0, size);
  text.remove_prefix(size);
  return word;
}

// What stands behind the angle brackets that the text begins with.
std::string_view behind_brackets(std::string_view text) {
  int open = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    open += (text[at] == '<') - (text[at] == '>');
    if (open == 0)
      return text.substr(at + 1);
  }
  return {};
}

// A declaration behind its template parameters.
std::string_view behind_template(std::string_view text) {
  while (true) {
    std::string_view rest = text;
    if (next_word(rest) != "template")
      return text;
    std::size_t const bracket = rest.find_first_not_of(" \t\n");
    if (bracket == rest.npos || rest[bracket] != '<')
      return text;
    text = behind_brackets(rest.substr(bracket));
  }
}

// Behind the name: TName = class
bool is_pascal_type(std::string_view text) {
  std::size_t const sign = text.find_first_not_of(" \t\n");
  if (sign == text.npos || text[sign] != '=')
    return false;
  text.remove_prefix(sign);
  return is_one_of(next_word(text), {"class", "record", "object", "interface", "packed", "set",
                                     "array", "procedure", "function", "type"});
}

// In a declaration most words that are somebody's name aren't meant so: parameters, members of
// other classes. What a reader wants to follow are types; of a class that is only announced there
// is nothing to read.
bool is_type(std::string_view declaration, std::string_view name) {
  std::string_view text = behind_template(declaration);
  bool const announced = text.ends_with(';');
  for (int i = 0; i < 8 && !text.empty(); ++i) {
    std::string_view const word = next_word(text);
    if (is_one_of(word, {"class", "struct", "union"}))
      return !announced;
    if (is_one_of(word, {"enum", "typedef", "using", "namespace", "concept", "interface", "unit",
                         "type"}))
      return true;
    if (word == name)
      return is_pascal_type(text);
  }
  return false;
}

bool is_type_kind(std::string_view kind) {
  return is_one_of(kind,
                   {"class",         "struct",        "union",           "enum",    "enum class",
                    "typedef",       "alias",         "alias template",  "concept", "namespace",
                    "interface",     "dispinterface", "object",          "record",  "class helper",
                    "record helper", "type helper",   "class reference", "set",     "enumeration",
                    "type",          "unit"});
}

bool is_type(gUnitRecord const & unit) {
  if (!unit.facts.kind.empty())
    return is_type_kind(unit.facts.kind) && !unit.facts.has_mark("forward");
  return is_type(unit.declaration, Atc::last_component(unit));
}

} // namespace

void gDocument::enter_name(int unit) {
  std::string_view const name = units[unit].name;
  bool const type = is_type(units[unit]);
  std::uint64_t hash = gHashIndex::start;
  for (std::size_t at = name.size(); at-- > 0;) {
    hash = gHashIndex::add(hash, name[at]);
    if (at > 0 && Atc::separator_before(name, at) == 0)
      continue;
    tails_.enter(hash, unit);
    if (type)
      type_tails_.enter(hash, unit);
    if (type && at == 0)
      types_.enter(hash, unit);
  }
}

void gDocument::make_tables() {
  make_tree();
  for (std::size_t i = 0; i < units.size(); ++i) {
    labels_.enter(hash_of_label(units[i].label), static_cast<int>(i));
    enter_name(static_cast<int>(i));
  }
  for (std::size_t i = 0; i < bookmarks_.size(); ++i)
    labels_.enter(hash_of_label(bookmarks_[i].bookmark), static_cast<int>(units.size() + i));
  for (gHashIndex * index : {&labels_, &tails_, &types_, &type_tails_})
    index->sort();
}

gTarget gDocument::find_label(std::string_view label) const {
  if (label.empty()) // of a unit whose head is damaged
    return {};
  for (auto const & [hash, id] : labels_.find(hash_of_label(label))) {
    auto const at = static_cast<std::size_t>(id);
    bool const is_unit = at < units.size();
    gTarget const target = is_unit ? gTarget{id, {}} : bookmarks_[at - units.size()];
    if (Vlb::compare_i(is_unit ? units[at].label : target.bookmark, label) == 0)
      return target;
  }
  return {};
}

int gDocument::common_depth(int a, int b) const {
  if (units[a].section != units[b].section)
    return -1;
  while (depths_[a] > depths_[b])
    a = units[a].parent;
  while (depths_[b] > depths_[a])
    b = units[b].parent;
  while (a != b) {
    a = units[a].parent;
    b = units[b].parent;
  }
  return a < 0 ? 0 : depths_[a] + 1;
}

// Of the units in front of the place and behind it the one that shares more of the outline with it;
// then the first of those that stand together under one name.
int gDocument::nearest(int from, Entries entries, std::string_view name) const {
  auto const fits = [&](gHashIndex::Entry const & entry) {
    return is_tail(units[entry.id].name, name);
  };
  if (entries.empty() || !fits(entries.front()))
    return -1;
  if (from < 0 || entries.size() == 1)
    return entries.front().id;
  auto const position = [&](int unit) {
    return std::lower_bound(entries.begin(), entries.end(),
                            gHashIndex::Entry{entries.front().hash, unit});
  };
  auto const before = position(from);
  auto const behind = position(from + 1);
  int found = before != entries.begin() ? before[-1].id
              : behind != entries.end() ? behind->id
                                        : from;
  if (before != entries.begin() && behind != entries.end() &&
      common_depth(from, behind->id) > common_depth(from, found))
    found = behind->id;
  auto const first = position(units[found].parent + 1);
  bool const same = first != entries.end() && units[first->id].parent == units[found].parent &&
                    units[first->id].section == units[found].section &&
                    units[first->id].name == units[found].name && first->id != from;
  return same ? first->id : found;
}

gTarget gDocument::find_name(int from, std::string_view name) const {
  if (gTarget const target = find_label(name))
    return target;
  int found = nearest(from, tails_.find(hash_of(name)), name);
  if (found < 0) {
    std::string const plain = without_trimmings(name);
    found = nearest(from, tails_.find(hash_of(plain)), plain);
  }
  return {found, {}};
}

// The type whose whole name is the word in the innermost scope around the unit.
int gDocument::type_in_scope(int from, std::string_view name) const {
  std::uint64_t const tail = hash_of(name);
  std::string_view scope = units[from].name;
  for (; !scope.empty(); scope = Atc::scope_of(scope))
    for (std::string_view separator : {"::", "."}) {
      std::uint64_t const hash = gHashIndex::add(gHashIndex::add(tail, separator), scope);
      if (Entries const found = types_.find(hash); !found.empty())
        return found.front().id;
    }
  Entries const found = types_.find(tail);
  return found.empty() ? -1 : found.front().id;
}

int gDocument::find_type(std::string_view name) const {
  Entries const found = types_.find(hash_of(name));
  return found.empty() || units[found.front().id].name != name ? -1 : found.front().id;
}

// A type with a name that no other has may still not be the one that is meant, if it stands within
// something. What a unit of Pascal declares is known to those that use the unit.
bool gDocument::is_in_sight(int unit) const {
  gUnitRecord const & record = units[unit];
  int const around = find_type(Atc::scope_of(record));
  return !record.facts.known || Atc::scope_of(record).empty() ||
         (around >= 0 && units[around].facts.kind == "unit");
}

int gDocument::find_word(int from, std::string_view word) const {
  Entries const entries = type_tails_.find(hash_of(word));
  if (entries.empty() || from < 0)
    return -1;
  int found = type_in_scope(from, word);
  if (found < 0 && entries.size() == 1 && is_in_sight(entries.front().id))
    found = entries.front().id;
  bool const fits = found >= 0 && is_tail(units[found].name, word);
  return fits && units[found].name != units[from].name ? found : -1;
}

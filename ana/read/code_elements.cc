// One declaration, one element. The name is that of the scopes around it; the declaration's text is
// as written, on one line, without body.
#include "ana/read/code_elements.h"

#include <algorithm>
#include <unordered_map>

#include "ana/read/declaration_text.h"
#include "ana/read/signature.h"
#include "ana/read/unit_kinds.h"

namespace {

using namespace Decl;

// Written within a class, but no members of it.
bool is_guest(gKind kind) {
  return kind == gKind::friend_ || kind == gKind::macro || kind == gKind::function_macro;
}

// Names grow with their scopes, so that what is nested deeper would cost more than its source.
constexpr int most_scopes = 100;

class Elements {
public:
  Elements(std::string_view text, gFileDeclarations const & found, gSrcFile const & file)
      : text_(text),
        found_(found),
        file_(file),
        pascal_(file.language() == gLanguage::pascal),
        syntax_(pascal_ ? gSyntax::pascal : gSyntax::cpp),
        signatures_(text, found, pascal_) {}

  gReadElements run();

private:
  void enter(std::size_t index);
  bool is_left_out(std::size_t index) const;
  int type_of(std::size_t index) const;
  gDeclaration const * namer_of(std::size_t index) const;
  void take_values(std::size_t index, gDeclParts & parts);
  void note_friend(gDeclaration const & one);
  bool repeats_its_tag(std::size_t index) const;
  bool is_version(gDeclaration const & one) const;
  gStrList const & scope_names(std::int32_t scope);
  void add_scope(gStrList & names, std::int32_t scope) const;
  void add_qualifier(gStrList & names, std::string_view qualifier, bool arguments) const;
  gString own_name(gDeclaration const & one) const;
  gStrList names_of(std::size_t index);
  cRef<gString const> condition_of(std::int32_t condition);
  void measure_scopes();
  void note_namer(std::size_t index);
  gDeclaration const & item(std::int32_t i) const {
    return found_.items[static_cast<std::size_t>(i)];
  }

  std::string_view text_;
  gFileDeclarations const & found_;
  gSrcFile const & file_;
  bool pascal_;
  gSyntax syntax_;
  gSignatures signatures_;
  std::vector<cRef<gString const>> conditions_;
  struct Scope {
    int depth = 0;
    gSeclusion seclusion = gSeclusion::open;
  };
  std::vector<Scope> scopes_;                              // by declaration: what stands around it
  std::unordered_map<std::int32_t, gStrList> scope_names_; // by scope: the names around its members
  // By declaration without a name: what gives it one, -1 for nothing.
  std::vector<std::int32_t> namers_;
  std::unordered_map<std::int32_t, cRef<gDeclLists>> lists_; // by declaration
  std::int32_t valued_ = -1; // the last enumeration whose values something has taken
  gReadElements result_;
};

// A specialisation is told from its template by its arguments.
gString Elements::own_name(gDeclaration const & one) const {
  gString name(shown_name(text_, found_, one, syntax_));
  if (!one.arguments.empty())
    name += one_line(text_, one.arguments, syntax_);
  return name;
}

// "inline namespace v9" tells the linker which version it is; who calls its functions doesn't.
bool Elements::is_version(gDeclaration const & one) const {
  if (one.kind != gKind::name_space || (one.marks & mark_inline) == 0)
    return false;
  std::string const name = shown_name(text_, found_, one);
  return !name.empty() && name.back() >= '0' && name.back() <= '9';
}

// Scopes without a name, such as unnamed namespaces, aren't part of names.
void Elements::add_scope(gStrList & names, std::int32_t scope) const {
  gDeclaration const & outer = item(scope);
  if (!outer.qualifier.empty())
    add_qualifier(names, outer.qualifier.of(text_), false);
  gDeclaration const * namer = namer_of(static_cast<std::size_t>(scope));
  if (!outer.name.empty() && outer.kind != gKind::module && !is_version(outer))
    names.append(own_name(outer));
  else if (namer && is_class_like(outer.kind))
    names.append(own_name(*namer));
}

// All members of a scope share the texts.
gStrList const & Elements::scope_names(std::int32_t scope) {
  std::vector<std::int32_t> unknown;
  for (; scope >= 0 && !scope_names_.contains(scope); scope = item(scope).scope)
    unknown.push_back(scope);
  for (auto one = unknown.rbegin(); one != unknown.rend(); scope = *one++) {
    gStrList names = scope_names_[scope];
    add_scope(names, *one);
    scope_names_[*one] = std::move(names);
  }
  return scope_names_[scope];
}

// "A<T>::B" as "A" and "B" or, with the arguments, as "A<T>" and "B".
void Elements::add_qualifier(gStrList & names, std::string_view qualifier, bool arguments) const {
  std::string part;
  int depth = 0;
  auto const put = [&] {
    if (!part.empty())
      names.append(gString(part));
    part.clear();
  };
  for (std::size_t at = 0; at < qualifier.size(); ++at) {
    char const c = qualifier[at];
    depth += c == '<' ? 1 : c == '>' ? -1 : 0;
    bool const sign = pascal_ ? c == '.' : c == ':';
    if (depth == 0 && sign)
      put();
    else if (arguments || (depth == 0 && c != '>'))
      part += static_cast<unsigned char>(c) > ' ' || depth > 0 ? std::string(1, c) : std::string();
  }
  put();
}

// A function that is declared as a friend belongs to the scope around the class.
gStrList Elements::names_of(std::size_t index) {
  gDeclaration const & one = found_.items[index];
  std::int32_t scope = one.scope;
  if (is_guest(one.kind))
    while (scope >= 0 && (is_class_like(item(scope).kind) || one.kind != gKind::friend_))
      scope = item(scope).scope;
  gStrList names = scope_names(scope);
  if (!one.qualifier.empty())
    add_qualifier(names, one_line(text_, one.qualifier, syntax_), true);
  gDeclaration const * namer = one.name.empty() ? namer_of(index) : nullptr;
  names.append(own_name(namer ? *namer : one));
  return names;
}

// "struct {...} pos": what stands within is known by what is declared with it. A list of constants
// without a name is known by the first of them.
gDeclaration const * Elements::namer_of(std::size_t index) const {
  return namers_[index] < 0 ? nullptr : &item(namers_[index]);
}

// In brackets, where "&&" beside it would bind stronger than what it holds.
std::string as_part(std::string const & condition) {
  return condition.find("||") == condition.npos ? condition : "(" + condition + ")";
}

// An outer condition stands in front of those in it. Text that says the same at each depth would
// grow with the square of the depth, so a long one isn't prolonged.
cRef<gString const> Elements::condition_of(std::int32_t condition) {
  constexpr std::size_t longest = 1000;
  if (condition < 0)
    return nullptr;
  for (auto at = conditions_.size(); at <= static_cast<std::size_t>(condition); ++at) {
    gCondition const & one = found_.conditions[at];
    cRef<gString const> const outer = one.outer >= 0 && static_cast<std::size_t>(one.outer) < at
                                          ? conditions_[static_cast<std::size_t>(one.outer)]
                                          : nullptr;
    bool const prolonged = outer && outer->size() <= longest;
    conditions_.push_back(
        outer && !prolonged ? outer
        : prolonged         ? make_ref<gString const>(as_part(*outer) + " && " + as_part(one.text))
                            : make_ref<gString const>(one.text));
  }
  return conditions_[static_cast<std::size_t>(condition)];
}

// "typedef struct T {...} T" is the struct alone.
bool Elements::repeats_its_tag(std::size_t index) const {
  gDeclaration const & one = found_.items[index];
  if (one.kind != gKind::typedef_ || one.statement < 0 ||
      static_cast<std::size_t>(one.statement) >= index)
    return false;
  gDeclaration const & tag = item(one.statement);
  return tag.name.of(text_) == one.name.of(text_);
}

bool is_detail(std::string_view name) {
  static constexpr std::string_view names[] = {"detail",  "details", "internal", "internals",
                                               "impl",    "priv",    "private_", "_impl",
                                               "detail_", "aux_",    "__detail", "aux"};
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

// Names the unnamed things in front that this declaration stands behind or in.
void Elements::note_namer(std::size_t index) {
  gDeclaration const & one = found_.items[index];
  auto const name = [&](std::int32_t unnamed) {
    if (unnamed >= 0 && static_cast<std::size_t>(unnamed) < index && item(unnamed).name.empty() &&
        namers_[static_cast<std::size_t>(unnamed)] < 0)
      namers_[static_cast<std::size_t>(unnamed)] = static_cast<std::int32_t>(index);
  };
  if (one.kind == gKind::enumerator)
    name(one.scope);
  else if (one.statement < 0 || static_cast<std::size_t>(one.statement) >= index)
    return;
  else if (is_class_like(item(one.statement).kind))
    name(one.statement);
  else
    namers_[static_cast<std::size_t>(one.statement)] = -1; // the variable has the comment
}

bool is_friend_type(gDeclaration const & one) {
  return one.kind == gKind::friend_ && one.parameter_list.empty();
}

// "class lib::B<T>" of "template <class T> friend class lib::B<T>;".
void Elements::note_friend(gDeclaration const & one) {
  constexpr std::string_view word = "friend ";
  std::string const line = one_line(text_, one.text.empty() ? one.whole : one.text, syntax_);
  std::size_t const at = line.find(word);
  if (one.scope < 0 || at == line.npos)
    return;
  std::string_view type = std::string_view(line).substr(at + word.size());
  cRef<gDeclLists> & lists = lists_[one.scope];
  if (!lists)
    lists = make_ref<gDeclLists>();
  lists->friends.emplace_back(type.substr(0, type.find_last_not_of(" ;") + 1));
}

// A scope stands in front of its members, so one pass is enough.
void Elements::measure_scopes() {
  scopes_.resize(found_.items.size());
  namers_.assign(found_.items.size(), -1);
  for (std::size_t i = 0; i < found_.items.size(); ++i) {
    note_namer(i);
    if (is_friend_type(found_.items[i]))
      note_friend(found_.items[i]);
    std::int32_t const outer = found_.items[i].scope;
    if (outer < 0 || static_cast<std::size_t>(outer) >= i)
      continue;
    Scope const & around = scopes_[static_cast<std::size_t>(outer)];
    gDeclaration const & scope = item(outer);
    scopes_[i].depth = around.depth + 1;
    bool const space = scope.kind == gKind::name_space;
    scopes_[i].seclusion = space && scope.name.empty() ? gSeclusion::unnamed
                           : space && is_detail(shown_name(text_, found_, scope))
                               ? std::max(around.seclusion, gSeclusion::detail)
                               : around.seclusion;
  }
}

// The values of an enumeration without a name are constants of what stands around it.
int Elements::type_of(std::size_t index) const {
  gDeclaration const & one = found_.items[index];
  auto const in_class = [&](std::int32_t scope) {
    while (scope >= 0 && item(scope).name.empty() && !is_class_like(item(scope).kind))
      scope = item(scope).scope;
    return scope >= 0 && is_class_like(item(scope).kind);
  };
  bool const constant = one.kind == gKind::enumerator && one.scope >= 0 &&
                        item(one.scope).name.empty() && !in_class(one.scope);
  bool const member = (one.scope >= 0 && is_class_like(item(one.scope).kind)) ||
                      (one.marks & mark_out_of_class) != 0;
  return constant ? ut_var : unit_type_of(one.kind, member);
}

bool Elements::is_left_out(std::size_t index) const {
  gDeclaration const & one = found_.items[index];
  bool const nameless = one.name.empty() && namers_[index] < 0;
  return nameless || is_friend_type(one) || scopes_[index].depth > most_scopes ||
         repeats_its_tag(index) || is_version(one) ||
         static_cast<std::int32_t>(index) == found_.guard;
}

// Of "typedef enum {...} A, B" the first name has the values.
void Elements::take_values(std::size_t index, gDeclParts & parts) {
  gDeclaration const & one = found_.items[index];
  auto const is_enumeration = [](gKind kind) {
    return kind == gKind::enum_ || kind == gKind::enum_class || kind == gKind::enumeration;
  };
  bool const names_first = one.kind == gKind::typedef_ && one.statement >= 0 &&
                           static_cast<std::size_t>(one.statement) < index &&
                           is_enumeration(item(one.statement).kind);
  std::int32_t const from = is_enumeration(one.kind) ? static_cast<std::int32_t>(index)
                            : names_first            ? one.statement
                                                     : -1;
  if (from < 0 || from == valued_)
    return;
  valued_ = from;
  parts.values = enum_values(text_, found_, static_cast<std::size_t>(from), syntax_);
}

void Elements::enter(std::size_t index) {
  gDeclaration const & one = found_.items[index];
  int const type = type_of(index);
  if (scopes_[index].depth == most_scopes + 1 && result_.too_deep < 0)
    result_.too_deep = static_cast<std::int32_t>(index);
  if (type == ut_undefined || is_left_out(index))
    return;
  auto parts = std::make_unique<gDeclParts>();
  gString text = declaration_text(text_, found_, one, syntax_, *parts);
  parts->marks = one.marks;
  parts->condition = condition_of(one.condition);
  parts->seclusion = scopes_[index].seclusion;
  take_values(index, *parts);
  if (auto const found = lists_.find(static_cast<std::int32_t>(index)); found != lists_.end())
    parts->lists = found->second;
  if (std::string what = signatures_.of(one); !what.empty())
    parts->signature = make_ref<gString const>(std::move(what));
  auto element =
      make_ref<gCodeElem>(gStrList(), file_, static_cast<int>(one.line), type, gString(),
                          gString(visibility_of(is_guest(one.kind) ? gAccess::none : one.access)),
                          specifiers_of(one.marks));
  element->names = names_of(index);
  element->decl = std::move(text);
  element->column = static_cast<int>(one.column);
  element->end_line = static_cast<int>(one.end_line);
  element->kind = one.kind;
  element->heritage = one_line(text_, one.bases, syntax_);
  element->parts = std::move(parts);
  result_.of[index] = static_cast<std::int32_t>(result_.elements.size());
  result_.elements.push_back(std::move(element));
}

gReadElements Elements::run() {
  measure_scopes();
  result_.of.assign(found_.items.size(), -1);
  result_.elements.reserve(found_.items.size());
  for (std::size_t i = 0; i < found_.items.size(); ++i)
    enter(i);
  return std::move(result_);
}

} // namespace

gReadElements make_code_elements(std::string_view text, gFileDeclarations const & found,
                                 gSrcFile const & file) {
  return Elements(text, found, file).run();
}

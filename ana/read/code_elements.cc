// One declaration, one element. The name is that of the scopes around it; the declaration's text is
// as written, on one line, without body.
#include "ana/read/code_elements.h"

#include <algorithm>

#include "ana/read/signature.h"

namespace {

using namespace Decl;

int unit_type_of(gKind kind, bool in_class) {
  switch (kind) {
  case gKind::class_:
  case gKind::struct_:
  case gKind::union_:
  case gKind::interface:
  case gKind::dispinterface:
  case gKind::object:
  case gKind::record:
  case gKind::class_helper:
  case gKind::record_helper:
  case gKind::type_helper:
    return ut_class;
  case gKind::enum_:
  case gKind::enum_class:
  case gKind::enumeration:
  case gKind::typedef_:
  case gKind::alias:
  case gKind::alias_template:
  case gKind::concept_:
  case gKind::set:
  case gKind::class_reference:
  case gKind::type:
    return ut_type;
  case gKind::function:
  case gKind::constructor:
  case gKind::destructor:
  case gKind::operator_:
  case gKind::conversion:
  case gKind::method:
  case gKind::procedure:
  case gKind::class_method:
  case gKind::message_method:
  case gKind::signal:
  case gKind::slot:
    return in_class ? ut_method : ut_function;
  case gKind::friend_:
  case gKind::deduction_guide:
  case gKind::function_macro:
    return ut_function;
  case gKind::macro:
    return ut_var;
  case gKind::variable:
  case gKind::constant:
  case gKind::typed_constant:
  case gKind::resource_string:
  case gKind::thread_variable:
    return in_class ? ut_member : ut_var;
  case gKind::member:
  case gKind::bit_field:
  case gKind::enumerator:
    return ut_member;
  case gKind::property:
    return ut_property;
  case gKind::event:
    return ut_event;
  case gKind::name_space:
  case gKind::module:
  case gKind::unit:
  case gKind::program:
  case gKind::library:
  case gKind::package:
    return ut_unit;
  case gKind::using_declaration:
  case gKind::none:
    break;
  }
  return ut_undefined;
}

char const * visibility_of(gAccess access) {
  switch (access) {
  case gAccess::public_:
    return "public";
  case gAccess::protected_:
  case gAccess::strict_protected:
    return "protected";
  case gAccess::private_:
  case gAccess::strict_private:
    return "private";
  case gAccess::published:
    return "published";
  case gAccess::none:
    break;
  }
  return "undefined";
}

int specifiers_of(std::uint32_t marks) {
  constexpr std::pair<std::uint32_t, int> bits[] = {
      {mark_static, spec_static},   {mark_extern, spec_extern},   {mark_mutable, spec_mutable},
      {mark_inline, spec_inline},   {mark_virtual, spec_virtual}, {mark_explicit, spec_explicit},
      {mark_typedef, spec_typedef}, {mark_friend, spec_friend},   {mark_override, spec_virtual},
      {mark_dynamic, spec_virtual}};
  int flags = 0;
  for (auto const & [mark, flag] : bits)
    flags |= marks & mark ? flag : 0;
  return flags;
}

// Written within a class, but no members of it.
bool is_guest(gKind kind) {
  return kind == gKind::friend_ || kind == gKind::macro || kind == gKind::function_macro;
}

// Names grow with their scopes, so that what is nested deeper would cost more than its source.
constexpr int most_scopes = 100;

bool is_scope_of_members(gKind kind) {
  return unit_type_of(kind, false) == ut_class;
}

class Elements {
public:
  Elements(std::string_view text, gFileDeclarations const & found, gSrcFile const & file)
      : text_(text),
        found_(found),
        file_(file),
        pascal_(file.language() == gLanguage::pascal),
        syntax_(pascal_ ? gSyntax::pascal : gSyntax::cpp) {}

  gReadElements run();

private:
  void enter(std::size_t index);
  bool repeats_its_tag(std::size_t index) const;
  bool is_version(gDeclaration const & one) const;
  void add_scope(gStrList & names, std::int32_t scope) const;
  void add_qualifier(gStrList & names, std::string_view qualifier) const;
  gString own_name(gDeclaration const & one) const;
  gStrList names_of(gDeclaration const & one) const;
  bool shows_contents(gDeclaration const & one) const;
  gString declaration_text(gDeclaration const & one, gDeclParts & parts) const;
  cRef<gString const> condition_of(std::int32_t condition);
  void measure_scopes();
  gDeclaration const & item(std::int32_t i) const {
    return found_.items[static_cast<std::size_t>(i)];
  }

  std::string_view text_;
  gFileDeclarations const & found_;
  gSrcFile const & file_;
  bool pascal_;
  gSyntax syntax_;
  std::vector<cRef<gString const>> conditions_;
  struct Scope {
    int depth = 0;
    gSeclusion seclusion = gSeclusion::open;
  };
  std::vector<Scope> scopes_; // by declaration: what stands around it
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
  std::vector<std::int32_t> around;
  for (; scope >= 0; scope = item(scope).scope)
    around.push_back(scope);
  for (auto one = around.rbegin(); one != around.rend(); ++one) {
    gDeclaration const & outer = item(*one);
    if (!outer.qualifier.empty())
      add_qualifier(names, outer.qualifier.of(text_));
    if (!outer.name.empty() && outer.kind != gKind::module && !is_version(outer))
      names.append(own_name(outer));
  }
}

// "A<T>::B" as "A" and "B".
void Elements::add_qualifier(gStrList & names, std::string_view qualifier) const {
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
    else if (depth == 0 && c != '>' && static_cast<unsigned char>(c) > ' ')
      part += c;
  }
  put();
}

// A function that is declared as a friend belongs to the scope around the class.
gStrList Elements::names_of(gDeclaration const & one) const {
  std::int32_t scope = one.scope;
  if (is_guest(one.kind))
    while (scope >= 0 && (is_scope_of_members(item(scope).kind) || one.kind != gKind::friend_))
      scope = item(scope).scope;
  gStrList names;
  add_scope(names, scope);
  if (!one.qualifier.empty())
    add_qualifier(names, one.qualifier.of(text_));
  names.append(own_name(one));
  return names;
}

// The values of an enumeration say what it is, and so do the fields of a structure without a name
// of its own, if they are few.
bool Elements::shows_contents(gDeclaration const & one) const {
  constexpr std::uint32_t longest = 800;
  if (one.whole.end - one.whole.begin > longest)
    return false;
  bool const values = one.kind == gKind::enum_ || one.kind == gKind::enum_class;
  bool const fields = (one.kind == gKind::struct_ || one.kind == gKind::union_) &&
                      one.whole.of(text_).starts_with("typedef");
  return values || fields;
}

gString Elements::declaration_text(gDeclaration const & one, gDeclParts & parts) const {
  if (one.spelled >= 0) {
    constexpr std::string_view head = "namespace ";
    std::string const name = shown_name(text_, found_, one);
    parts.name = {head.size(), static_cast<std::uint32_t>(head.size() + name.size())};
    return gString(std::string(head) + name);
  }
  parts.name = one.name;
  parts.template_head = one.template_head;
  parts.parameters = one.parameter_list;
  parts.bases = one.bases;
  parts.result = one.result;
  gRange const shown = shows_contents(one) ? one.whole : one.text.empty() ? one.whole : one.text;
  gString text =
      one_line(text_, shown, syntax_,
               {&parts.name, &parts.template_head, &parts.parameters, &parts.bases, &parts.result});
  bool const ends = text.ends_with(';') || text.ends_with('}') || is_scope_of_members(one.kind) ||
                    one.kind == gKind::macro || one.kind == gKind::function_macro ||
                    one.kind == gKind::enumerator || unit_type_of(one.kind, false) == ut_unit;
  if (!ends && !text.empty())
    text += ';';
  return text;
}

cRef<gString const> Elements::condition_of(std::int32_t condition) {
  if (condition < 0)
    return nullptr;
  auto const at = static_cast<std::size_t>(condition);
  conditions_.resize(std::max(conditions_.size(), at + 1));
  if (!conditions_[at]) {
    gString text;
    for (std::int32_t i = condition; i >= 0;
         i = found_.conditions[static_cast<std::size_t>(i)].outer) {
      std::string const & one = found_.conditions[static_cast<std::size_t>(i)].text;
      text = text.empty() ? one : one + " && " + text;
    }
    conditions_[at] = make_ref<gString const>(text);
  }
  return conditions_[at];
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

// A scope stands in front of its members, so one pass is enough.
void Elements::measure_scopes() {
  scopes_.resize(found_.items.size());
  for (std::size_t i = 0; i < found_.items.size(); ++i) {
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

void Elements::enter(std::size_t index) {
  gDeclaration const & one = found_.items[index];
  bool const in_class = (one.scope >= 0 && is_scope_of_members(item(one.scope).kind)) ||
                        (one.marks & mark_out_of_class) != 0;
  int const type = unit_type_of(one.kind, in_class);
  if (type == ut_undefined || one.name.empty() || scopes_[index].depth > most_scopes ||
      repeats_its_tag(index) || is_version(one) || static_cast<std::int32_t>(index) == found_.guard)
    return;
  auto parts = std::make_unique<gDeclParts>();
  gString text = declaration_text(one, *parts);
  parts->marks = one.marks;
  parts->condition = condition_of(one.condition);
  parts->seclusion = scopes_[index].seclusion;
  if (std::string const what = signature(text_, found_, one, pascal_); !what.empty())
    parts->signature = make_ref<gString const>(what);
  auto element =
      make_ref<gCodeElem>(gStrList(), file_, static_cast<int>(one.line), type, gString(),
                          gString(visibility_of(is_guest(one.kind) ? gAccess::none : one.access)),
                          specifiers_of(one.marks));
  element->names = names_of(one);
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

// One extent understood: what kind of declaration it is, and its parts.
#include "ana/decl/cpp_params.h"
#include "ana/decl/cpp_reader.h"

namespace Decl {

void gCppReader::declare(gExtent const & extent) {
  gHead head = read_head(source_, extent.first, extent.head_end);
  if (scope().linkage_c)
    head.marks |= mark_linkage_c;
  std::uint32_t const at = head.next;
  gWord const word = at < extent.last ? source_.word(at) : gWord::name;
  bool const module_word =
      (word == gWord::module_ || word == gWord::import_) && scope().kind == Scope::file;
  if (extent.shape == gExtent::block)
    open_block(extent, head);
  else if (extent.shape == gExtent::contents)
    contents(extent, head);
  else if (word == gWord::namespace_)
    name_space(extent, head);
  else if (word == gWord::using_)
    using_(extent, head);
  else if (word == gWord::concept_)
    concept_(extent, head);
  else if (module_word && (source_.is_name(at + 1) || source_.type(at + 1) != token_word))
    module_(extent);
  else if (is_class_key(word) && is_forward(at, extent.head_end))
    forward(extent, head);
  else if (source_.type(extent.first) == '}')
    return; // the map of brackets has reported it
  else if (word != gWord::static_assert_ && word != gWord::asm_ && word != gWord::statement)
    simple(extent, head);
}

// extern "C" {...}, export {...}
void gCppReader::open_block(gExtent const & extent, gHead const & head) {
  Scope inner = scope();
  inner.linkage_c = inner.linkage_c || (head.marks & mark_linkage_c);
  inner.opener = -1;
  inner.end = std::min(source_.behind(extent.open) - 1, scope().end);
  inner.resume = extent.last;
  inner.extent = {};
  at_ = extent.open + 1;
  scopes_.push_back(inner);
}

// "namespace a = b::c;"; with contents it is another extent.
void gCppReader::name_space(gExtent const & extent, gHead const & head) {
  std::uint32_t const name = head.next + 1;
  if (!source_.is_name(name) || source_.type(name + 1) != '=')
    return;
  gDeclaration item = make(gKind::alias, extent, head);
  item.name = source_.range(name, name + 1);
  item.result = source_.range(name + 2, extent.last - 1);
  add(item);
}

void gCppReader::using_(gExtent const & extent, gHead const & head) {
  std::uint32_t const at = head.next + 1;
  std::uint32_t const last = extent.head_end;
  bool const alias = source_.is_name(at) && at + 1 < last;
  std::uint32_t equals = at + 1;
  while (alias && equals < last && behind_attribute(source_, equals) != equals)
    equals = behind_attribute(source_, equals);
  if (alias && source_.type(equals) == '=') {
    bool const with_head = head.template_last > 0;
    gDeclaration item = make(with_head ? gKind::alias_template : gKind::alias, extent, head);
    item.name = source_.range(at, at + 1);
    item.result = source_.range(equals + 1, last - (source_.type(last - 1) == ';' ? 1 : 0));
    item.marks |= mark_definition;
    add(item);
    return;
  }
  if (source_.is_word(at, gWord::namespace_))
    return; // a directive declares nothing
  Statement statement{extent, head};
  for (std::uint32_t from = at; from < last;) {
    while (from < last &&
           (source_.is_word(from, gWord::typename_) || is_class_key(source_.word(from))))
      ++from;
    gChain const name = read_chain(source_, from, last);
    if (name.empty())
      return;
    gDeclaration item = make(gKind::using_declaration, extent, head);
    set_name(item, name);
    item.result = source_.range(from, name.last);
    item.statement = statement.first;
    std::int32_t const index = add(item);
    if (statement.first < 0)
      statement.first = index;
    from = name.last;
    while (from < last && source_.type(from) != ',')
      ++from;
    ++from;
  }
}

void gCppReader::concept_(gExtent const & extent, gHead const & head) {
  std::uint32_t const name = head.next + 1;
  if (!source_.is_name(name))
    return;
  gDeclaration item = make(gKind::concept_, extent, head);
  item.name = source_.range(name, name + 1);
  item.marks |= mark_definition;
  std::uint32_t const equals = name + 1;
  if (source_.type(equals) == '=')
    item.initialiser =
        source_.range(equals + 1, extent.last - (source_.type(extent.last - 1) == ';' ? 1 : 0));
  add(item);
}

// "export module a.b:part;"
void gCppReader::module_(gExtent const & extent) {
  std::uint32_t at = extent.first;
  while (at < extent.last && !source_.is_word(at, gWord::module_))
    ++at;
  std::uint32_t const first = at + 1;
  std::uint32_t last = first;
  while (last < extent.last && (source_.is_name(last) || source_.type(last) == '.' ||
                                (source_.type(last) == ':' && last > first)))
    ++last;
  if (first >= last)
    return; // "module;", "module : private;", "import x;"
  gDeclaration item = make(gKind::module, extent, {});
  item.name = source_.range(first, last);
  add(item);
}

// "class X;", "enum E : int;", "template class X<int>;" against "struct X * p;".
bool gCppReader::is_forward(std::uint32_t at, std::uint32_t last) const {
  if (last > at && source_.type(last - 1) == ';')
    --last;
  bool const enumeration = source_.is_word(at, gWord::enum_);
  bool const of_class = source_.is_word(at, gWord::class_); // which C doesn't know
  std::uint32_t names = 0;
  while (at < last) {
    if (std::uint32_t const behind = behind_attribute(source_, at); behind != at)
      at = behind;
    else if (is_class_key(source_.word(at)))
      ++at;
    else if (source_.type(at) == ':' && enumeration && names > 0)
      return true;
    else {
      gChain const name = read_chain(source_, at, last);
      if (name.empty() || name.kind != gChain::plain)
        return false;
      bool const call = name.last < last && source_.type(name.last) == '(';
      bool const shaped = names == 0 && (source_.is_attribute_macro(name.name_first) ||
                                         (of_class && source_.is_capital(name.name_first)));
      bool const macro = call ? source_.is_capital(name.name_first)
                              : (name.last < last && shaped) ||
                                    (names > 0 && source_.is_known_attribute(name.name_first));
      if (call && !macro)
        return false;
      names += macro ? 0 : 1;
      at = call ? source_.behind(name.last) : name.last;
    }
  }
  return names == 1;
}

void gCppReader::forward(gExtent const & extent, gHead const & head) {
  std::uint32_t const at = head.next;
  bool const strong = is_class_key(source_.word(at + 1)) && source_.is_word(at, gWord::enum_);
  static constexpr gKind kinds[] = {gKind::class_, gKind::struct_, gKind::union_, gKind::enum_};
  gKind kind = kinds[static_cast<int>(source_.word(at)) - static_cast<int>(gWord::class_)];
  if (strong)
    kind = gKind::enum_class;
  std::uint32_t name_end = extent.head_end;
  if (source_.type(name_end - 1) == ';')
    --name_end;
  gChain const name = class_name(at + (strong ? 2 : 1), name_end, name_end);
  if (name.empty())
    return;
  bool const of_friend = head.marks & mark_friend;
  gDeclaration item = make(of_friend ? gKind::friend_ : kind, extent, head);
  set_name(item, name);
  item.marks |= mark_forward;
  if (!item.arguments.empty())
    item.marks |= mark_specialisation;
  add(item);
}

// Functions and variables.

namespace {

// Template arguments in initialisers; those in front of the first "=" are known.
void link_values(gSource const & source, std::uint32_t at, std::uint32_t last) {
  while (at < last && source.type(at) != '=') {
    std::uint8_t const type = source.type(at);
    at = type == '(' || type == '[' || type == '{' ? source.behind(at) : at + 1;
  }
  source.link_angles(at, last, true);
}

} // namespace

void gCppReader::simple(gExtent const & extent, gHead const & head) {
  Statement statement{extent, head};
  std::uint32_t last = extent.head_end;
  if (extent.shape == gExtent::plain && last > extent.first && source_.type(last - 1) == ';')
    --last;
  if (extent.shape == gExtent::other || head.next >= last)
    return; // braces behind a macro, a macro or attributes alone
  if (!bindings(statement, head.next, last))
    simple_from(statement, head.next, last, false);
}

// "auto [a, b] = pair;": a variable each.
bool gCppReader::bindings(Statement & statement, std::uint32_t at, std::uint32_t last) {
  std::uint32_t const first = at;
  while (at < last && (source_.word(at) == gWord::builtin || source_.word(at) == gWord::const_ ||
                       source_.type(at) == '&' || source_.type(at) == token_both))
    ++at;
  std::uint32_t const close = source_.partner(at);
  if (at == first || at >= last || source_.type(at) != '[' || close == no_token || close >= last ||
      source_.type(at + 1) == '[')
    return false;
  for (std::uint32_t name = at + 1; name < close; ++name) {
    if (!source_.is_name(name))
      continue;
    gDeclaration item = make(gKind::variable, statement.extent, statement.head);
    item.name = source_.range(name, name + 1);
    item.result = source_.range(first, at);
    item.marks |= mark_definition;
    item.statement = statement.first;
    std::int32_t const index = add(item);
    if (statement.first < 0)
      statement.first = index;
  }
  return true;
}

void gCppReader::simple_from(Statement & statement, std::uint32_t at, std::uint32_t last,
                             bool type_known) {
  gDeclaratorPlace place;
  place.in_class = in_class();
  place.class_name = scope().name;
  place.with_body = statement.extent.shape == gExtent::function;
  place.type_known = type_known;
  link_values(source_, at, last);
  std::uint32_t const type_first = type_known ? statement.head.next : at;
  while (at < last) {
    gDeclarator const one = read_declarator(source_, at, last, place);
    if (!declarator(statement, one, type_first))
      return;
    at = one.last + 1;
    place.type_known = true;
  }
}

// Capital words without a ";".
bool gCppReader::is_macros_alone(gExtent const & extent, gDeclarator const & one) const {
  return extent.shape == gExtent::plain && source_.type(extent.last - 1) != ';' &&
         source_.is_capital(one.name.name_first) && one.value_first == 0;
}

bool gCppReader::declarator(Statement & statement, gDeclarator const & one,
                            std::uint32_t type_first) {
  gExtent const & extent = statement.extent;
  gHead const & head = statement.head;
  bool const friend_type = (head.marks & mark_friend) && !one.function;
  if (one.name.empty())
    return true; // a bit field that only fills
  bool const typed = one.type_last > type_first || one.first > type_first;
  if (one.call && !one.constructor) {
    // Without a type it is a call of a macro, or of a time when "int" could be left out.
    bool const macro = source_.is_capital(one.name.name_first) ||
                       source_.macros.find(source_.spelling(one.name.name_first));
    bool const specified =
        head.looked_through || (head.marks & (mark_static | mark_extern | mark_friend));
    if (macro || (extent.shape != gExtent::function && !specified))
      return false;
  } else if (!one.function && ((!typed && !friend_type) || is_macros_alone(extent, one)))
    return false;
  gDeclaration item = make(kind_of(one, head), extent, head);
  set_name(item, one.name);
  if (one.pointer) // the name stands within
    item.result = source_.range(type_first, one.value_first > 0 ? one.value_first - 1 : one.last);
  else if (one.first > type_first && statement.first >= 0)
    item.result = out_.items[static_cast<std::size_t>(statement.first)].result;
  else
    item.result = source_.range(type_first, one.type_last);
  if (!item.qualifier.empty() && item.kind != gKind::friend_)
    item.marks |= mark_out_of_class;
  if (one.function)
    function_parts(item, one, extent);
  value_marks(item, one);
  item.statement = statement.first;
  std::int32_t const index = add(item);
  if (statement.first < 0)
    statement.first = index;
  return true;
}

gKind gCppReader::kind_of(gDeclarator const & one, gHead const & head) const {
  if (head.marks & mark_friend)
    return gKind::friend_;
  if (head.marks & mark_typedef)
    return gKind::typedef_;
  bool const qualified = one.name.qualifier_last != one.name.first;
  bool const of_class = in_class() || qualified;
  if (one.bits && of_class)
    return gKind::bit_field;
  if (!one.function)
    return of_class ? gKind::member : gKind::variable;
  switch (one.name.kind) {
  case gChain::destructor:
    return gKind::destructor;
  case gChain::conversion:
    return gKind::conversion;
  case gChain::operator_:
    return gKind::operator_;
  default:
    break;
  }
  if (one.trailing < source_.tokens.size() && source_.type(one.trailing) == token_arrow &&
      one.type_last == one.first)
    return gKind::deduction_guide;
  if (one.constructor)
    return gKind::constructor;
  gKind const section = scope().section;
  if (in_class() && section != gKind::none)
    return section;
  return of_class ? gKind::method : gKind::function;
}

void gCppReader::function_parts(gDeclaration & item, gDeclarator const & one,
                                gExtent const & extent) {
  if (one.parameters != no_token && source_.partner(one.parameters) != no_token) {
    item.parameter_list = source_.range(one.parameters, source_.partner(one.parameters) + 1);
    read_parameters(source_, one.parameters, out_.parameters);
  }
  item.trailing = source_.range(one.trailing, one.last);
  trailing_marks(item, one.trailing, one.last);
  if (extent.shape != gExtent::function)
    return;
  item.marks |= mark_definition;
  bool const old_style = extent.open > extent.head_end && source_.type(extent.open - 1) == ';';
  if (old_style && one.parameters != no_token)
    old_style_parameters(item, extent.head_end, extent.open);
  if (source_.type(extent.open) == '{')
    item.body = source_.range(extent.open, std::max(extent.tail, extent.open + 1));
}

void gCppReader::trailing_marks(gDeclaration & item, std::uint32_t first, std::uint32_t last) {
  for (std::uint32_t at = first; at < last; ++at) {
    switch (source_.word(at)) {
    case gWord::const_:
      item.marks |= mark_const;
      break;
    case gWord::volatile_:
      item.marks |= mark_volatile;
      break;
    case gWord::override_:
      item.marks |= mark_override;
      break;
    case gWord::final_:
      item.marks |= mark_final;
      break;
    case gWord::noexcept_:
      item.marks |= mark_noexcept;
      break;
    default:
      if (source_.spelling(at) == "PURE") // "= 0" in headers of interfaces
        mark_pure_method(item);
      break;
    }
    std::uint8_t const type = source_.type(at);
    if (type == token_arrow || type == '=' || type == ':')
      return;
    if (type == '(' || type == '[')
      at = std::max(at, source_.behind(at) - 1);
  }
}

void gCppReader::mark_pure_method(gDeclaration & item) {
  item.marks |= mark_pure;
  if (in_class() && item.scope >= 0)
    out_.items[static_cast<std::size_t>(item.scope)].marks |= mark_abstract_class;
}

void gCppReader::value_marks(gDeclaration & item, gDeclarator const & one) {
  if (one.value_first == 0)
    return;
  if (!one.function) {
    item.initialiser = source_.range(one.value_first, one.value_last);
    if (!(item.marks & mark_extern))
      item.marks |= mark_definition;
    return;
  }
  if (source_.is_word(one.value_first, gWord::default_))
    item.marks |= mark_defaulted;
  else if (source_.is_word(one.value_first, gWord::delete_))
    item.marks |= mark_deleted;
  else if (source_.type(one.value_first) == token_number)
    mark_pure_method(item);
}

} // namespace Decl

// What has contents: namespaces, classes, enumerations; and the declarators behind a class.
#include "ana/decl/cpp_reader.h"

namespace Decl {

void gCppReader::contents(gExtent const & extent, gHead const & head) {
  if (source_.word(extent.key) != gWord::namespace_)
    return class_contents(extent, head);
  std::uint32_t name_end = extent.open;
  std::uint32_t at = extent.key + 1;
  while (at < extent.open && behind_attribute(source_, at) != at)
    at = behind_attribute(source_, at);
  // "namespace a::inline b"
  gChain name = read_chain(source_, at, name_end);
  while (!name.empty() && source_.type(name.last) == token_scope &&
         source_.is_word(name.last + 1, gWord::inline_)) {
    gChain const inner = read_chain(source_, name.last + 2, name_end);
    if (inner.empty())
      break;
    gChain joined = inner;
    joined.first = name.first;
    if (inner.qualifier_last == inner.first)
      joined.qualifier_last = name.last;
    name = joined;
  }
  // "a::b" are two, one within the other.
  Scope inner;
  inner.kind = Scope::name_space;
  inner.linkage_c = scope().linkage_c;
  inner.item = scope().item;
  for (at = name.first; at < name.last || name.empty(); ++at) {
    if (!name.empty() && !source_.is_name(at))
      continue;
    gDeclaration item = make(gKind::name_space, extent, head);
    if (name.empty())
      item.marks |= mark_unnamed;
    else
      item.name = source_.range(at, at + 1);
    item.marks |= mark_definition;
    if (at > name.first && source_.is_word(at - 1, gWord::inline_))
      item.marks |= mark_inline;
    item.access = gAccess::none;
    item.scope = inner.item;
    item.body = source_.range(extent.open, std::max(extent.tail, extent.open + 1));
    inner.opener = inner.item = add(item);
    if (name.empty())
      break;
  }
  open_scope(inner, extent);
}

void gCppReader::open_scope(Scope inner, gExtent const & extent) {
  inner.end = std::min(source_[source_.partner(extent.open)].link == extent.open
                           ? source_.partner(extent.open)
                           : source_.behind(extent.open),
                       scope().end);
  inner.resume = extent.last;
  inner.extent = extent;
  at_ = extent.open + 1;
  scopes_.push_back(std::move(inner));
}

// The name of a class head between the class word and its bases: the last one, but for "final" and
// macros behind it. Sets `name_end` to where bases or contents begin.
gChain gCppReader::class_name(std::uint32_t first, std::uint32_t last,
                              std::uint32_t & name_end) const {
  gChain name;
  std::uint32_t at = first;
  while (at < last && source_.type(at) != ':') {
    if (std::uint32_t const behind = behind_attribute(source_, at); behind != at) {
      at = behind;
      continue;
    }
    gChain const one = read_chain(source_, at, last);
    if (one.empty()) {
      at = source_.type(at) == '(' || source_.type(at) == '[' ? source_.behind(at) : at + 1;
      continue;
    }
    at = std::max(one.last, at + 1);
    bool const call = at < last && source_.type(at) == '(';
    if (call)
      at = source_.behind(at);
    bool const final_word = source_.is_word(one.name_first, gWord::final_) && !name.empty();
    bool const macro_behind = !name.empty() && !source_.is_attribute_macro(name.name_first) &&
                              (source_.is_attribute_macro(one.name_first) ||
                               source_.is_word(one.name_first, gWord::final_));
    if (name.empty() || (!call && !final_word && !macro_behind))
      name = one;
  }
  name_end = at;
  return name;
}

// "DECLARE_INTERFACE_(A, B) {": the name, and in front of its base a ",".
gChain gCppReader::name_in_call(gExtent const & extent, std::uint32_t & bases) const {
  std::uint32_t const first = extent.key + 2;
  gChain const name = read_chain(source_, first, extent.open);
  if (!name.empty() && source_.type(name.last) == ',')
    bases = name.last;
  return name;
}

void gCppReader::class_contents(gExtent const & extent, gHead const & head) {
  static constexpr gKind kinds[] = {gKind::class_, gKind::struct_, gKind::union_, gKind::enum_};
  bool const enumeration = source_.is_word(extent.key, gWord::enum_);
  bool const strong = enumeration && is_class_key(source_.word(extent.key + 1));
  gWord const word =
      is_class_key(source_.word(extent.key)) ? source_.word(extent.key) : gWord::struct_;
  gKind const kind =
      strong ? gKind::enum_class : kinds[static_cast<int>(word) - static_cast<int>(gWord::class_)];
  std::uint32_t bases = extent.open;
  gChain name = class_name(extent.key + (strong ? 2 : 1), extent.open, bases);
  if (name.empty() && extent.key + 1 < extent.open && source_.type(extent.key + 1) == '(')
    name = name_in_call(extent, bases);
  gDeclaration item = make(kind, extent, head);
  bool const plain_tail = extent.tail < extent.last && source_.type(extent.tail) != ';';
  bool nameless = name.empty();
  if (nameless && (head.marks & mark_typedef))
    name = name_in_tail(extent);
  item.marks &= ~std::uint32_t(mark_typedef);
  item.marks |= mark_definition;
  if (name.empty())
    item.marks |= mark_unnamed;
  else
    set_name(item, name);
  if (!nameless && !item.arguments.empty())
    item.marks |= mark_specialisation;
  if (!item.qualifier.empty())
    item.marks |= mark_out_of_class;
  for (std::uint32_t at = extent.key; at < bases; ++at)
    if (source_.is_word(at, gWord::final_) && source_[at].begin != item.name.begin)
      item.marks |= mark_final;
  if (bases < extent.open && source_.type(bases) == ',')
    item.bases = source_.range(bases + 1, bases + 2);
  else if (bases < extent.open)
    item.bases = source_.range(bases + 1, extent.open);
  item.body = source_.range(extent.open, std::max(extent.tail, extent.open + 1));
  std::int32_t const index = add(item);
  Scope inner;
  inner.kind = enumeration ? Scope::enumeration : Scope::class_;
  inner.access = enumeration             ? scope().access
                 : kind == gKind::class_ ? gAccess::private_
                                         : gAccess::public_;
  inner.linkage_c = scope().linkage_c;
  inner.opener = inner.item = index;
  inner.head = head;
  if (!nameless)
    inner.name = source_.spelling(name.name_first);
  // What an unnamed struct or union within a class holds belongs to the class.
  bool const transparent = name.empty() && !enumeration && !plain_tail && in_class();
  if (transparent) {
    inner.item = scope().item;
    inner.access = scope().access;
    inner.name = scope().name;
  }
  open_scope(inner, extent);
}

// "typedef struct {...} name, * pointer;"
gChain gCppReader::name_in_tail(gExtent const & extent) const {
  gDeclaratorPlace place;
  place.type_known = true;
  for (std::uint32_t at = extent.tail; at + 1 < extent.last;) {
    gDeclarator const one = read_declarator(source_, at, extent.last - 1, place);
    bool const plain = !one.name.empty() && !one.function && !one.pointer &&
                       source_.type(at) != '*' && source_.type(one.name.arguments_last) != '[';
    if (plain)
      return one.name;
    at = one.last + 1;
  }
  return {};
}

// The declarators behind a class that was just left.
// "} __packed __aligned(8);": words of the compiler alone say what the type is like.
bool gCppReader::is_reserved_tail(gExtent const & extent) const {
  for (std::uint32_t at = extent.tail; at + 1 < extent.last;) {
    if (!source_.is_name(at) || !source_.spelling(at).starts_with("__"))
      return false;
    ++at;
    if (source_.type(at) == '(')
      at = source_.behind(at);
  }
  return true;
}

void gCppReader::tail(Scope const & closed) {
  gExtent const & extent = closed.extent;
  bool const ends =
      closed.opener < 0 || closed.kind == Scope::name_space || extent.tail + 1 >= extent.last;
  if (ends || (!(closed.head.marks & mark_typedef) && is_reserved_tail(extent)))
    return;
  Statement statement{extent, closed.head, closed.opener};
  gDeclaratorPlace place;
  place.type_known = true;
  place.in_class = in_class();
  source_.link_angles(extent.tail, extent.last, true);
  gRange const own = out_.items[static_cast<std::size_t>(closed.opener)].name;
  for (std::uint32_t at = extent.tail; at + 1 < extent.last;) {
    gDeclarator const one = read_declarator(source_, at, extent.last - 1, place);
    at = one.last + 1;
    if (one.name.empty())
      continue;
    gRange const name = source_.range(one.name.name_first, one.name.name_last);
    bool const same = (closed.head.marks & mark_typedef) && !own.empty() &&
                      name.of(source_.text) == own.of(source_.text) && !one.pointer;
    bool const attribute =
        source_.is_known_attribute(one.name.name_first) ||
        (!(closed.head.marks & mark_typedef) && source_.is_attribute_macro(one.name.name_first));
    if (!same && !attribute)
      declarator(statement, one, extent.first);
  }
}

// "A<b, c>::d" rather than two comparisons.
bool gCppReader::names_value(std::uint32_t angle) const {
  std::uint8_t const behind = source_.type(source_.partner(angle) + 1);
  return behind == token_scope || behind == '(' || behind == '{';
}

// A value of an enumeration, or a macro that stands for some.
void gCppReader::enumerator() {
  gExtent extent;
  extent.first = at_;
  std::uint32_t const end = scope().end;
  std::uint32_t equals = no_token;
  std::uint32_t at = at_;
  if (angles_linked_ <= at_) {
    source_.link_angles(at_, end);
    angles_linked_ = end;
  }
  for (; at < end && source_.type(at) != ','; ++at) {
    std::uint8_t const type = source_.type(at);
    if (type == '=' && equals == no_token)
      equals = at;
    bool const arguments = type == '<' && source_.partner(at) != no_token && names_value(at);
    if (type == '(' || type == '[' || type == '{' || arguments)
      at = std::max(at, source_.behind(at) - 1);
    // A macro with arguments and without a "," takes its line.
    bool const call = type == '(' && equals == no_token && at + 1 < end &&
                      source_[at + 1].line_head && source_.is_name(at + 1);
    if (call) {
      ++at;
      break;
    }
  }
  extent.last = extent.head_end = at;
  at_ = at < end && source_.type(at) == ',' ? at + 1 : std::max(at, at_ + 1);
  std::uint32_t name = extent.first;
  while (name < extent.last && behind_attribute(source_, name) != name)
    name = behind_attribute(source_, name);
  if (name >= extent.last || !source_.is_name(name) ||
      (name + 1 < extent.last && source_.type(name + 1) == '('))
    return;
  gDeclaration item = make(gKind::enumerator, extent, {});
  item.name = source_.range(name, name + 1);
  item.marks |= mark_definition;
  if (equals != no_token)
    item.initialiser = source_.range(equals + 1, extent.last);
  add(item);
}

} // namespace Decl

// Each table stands here once, so that a new kind has one place.
#include "ana/read/unit_kinds.h"

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

bool is_class_like(gKind kind) {
  return unit_type_of(kind, false) == ut_class;
}

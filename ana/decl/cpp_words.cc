// A closed hash table, made at compile time.
#include "ana/decl/cpp_words.h"

#include <array>

namespace Decl {

namespace {

struct Row {
  std::string_view text;
  gWord word = gWord::name;
};

constexpr Row rows[] = {
    {"class", gWord::class_},
    {"struct", gWord::struct_},
    {"__interface", gWord::struct_},
    {"union", gWord::union_},
    {"enum", gWord::enum_},
    {"namespace", gWord::namespace_},
    {"template", gWord::template_},
    {"typedef", gWord::typedef_},
    {"using", gWord::using_},
    {"concept", gWord::concept_},
    {"friend", gWord::friend_},
    {"extern", gWord::extern_},
    {"static", gWord::static_},
    {"inline", gWord::inline_},
    {"__inline", gWord::inline_},
    {"__inline__", gWord::inline_},
    {"__forceinline", gWord::inline_},
    {"_Noreturn", gWord::specifier},
    {"virtual", gWord::virtual_},
    {"explicit", gWord::explicit_},
    {"mutable", gWord::mutable_},
    {"thread_local", gWord::thread_local_},
    {"_Thread_local", gWord::thread_local_},
    {"__thread", gWord::thread_local_},
    {"constexpr", gWord::constexpr_},
    {"consteval", gWord::constexpr_},
    {"constinit", gWord::constexpr_},
    {"register", gWord::specifier},
    {"__extension__", gWord::specifier},
    {"__global__", gWord::specifier},
    {"__device__", gWord::specifier},
    {"__host__", gWord::specifier},
    {"__shared__", gWord::specifier},
    {"__constant__", gWord::specifier},
    {"__managed__", gWord::specifier},
    {"__kernel", gWord::specifier},
    {"__cdecl", gWord::specifier},
    {"__stdcall", gWord::specifier},
    {"__fastcall", gWord::specifier},
    {"__thiscall", gWord::specifier},
    {"__vectorcall", gWord::specifier},
    {"__pascal", gWord::specifier},
    {"_cdecl", gWord::specifier},
    {"_stdcall", gWord::specifier},
    {"WINAPI", gWord::specifier},
    {"APIENTRY", gWord::specifier},
    {"__restrict", gWord::specifier},
    {"__restrict__", gWord::specifier},
    {"__ptr64", gWord::specifier},
    {"__unaligned", gWord::specifier},
    {"export", gWord::export_},
    {"module", gWord::module_},
    {"import", gWord::import_},
    {"static_assert", gWord::static_assert_},
    {"_Static_assert", gWord::static_assert_},
    {"asm", gWord::asm_},
    {"__asm__", gWord::asm_},
    {"__asm", gWord::asm_},
    {"const", gWord::const_},
    {"__const", gWord::const_},
    {"__const__", gWord::const_},
    {"volatile", gWord::volatile_},
    {"__volatile__", gWord::volatile_},
    {"__volatile", gWord::volatile_},
    {"int", gWord::builtin},
    {"char", gWord::builtin},
    {"bool", gWord::builtin},
    {"long", gWord::builtin},
    {"short", gWord::builtin},
    {"float", gWord::builtin},
    {"double", gWord::builtin},
    {"signed", gWord::builtin},
    {"unsigned", gWord::builtin},
    {"__signed__", gWord::builtin},
    {"wchar_t", gWord::builtin},
    {"char8_t", gWord::builtin},
    {"char16_t", gWord::builtin},
    {"char32_t", gWord::builtin},
    {"auto", gWord::builtin},
    {"__auto_type", gWord::builtin},
    {"_Bool", gWord::builtin},
    {"_Complex", gWord::builtin},
    {"__int64", gWord::builtin},
    {"__int128", gWord::builtin},
    {"__float128", gWord::builtin},
    {"void", gWord::void_},
    {"typename", gWord::typename_},
    {"decltype", gWord::type_call},
    {"typeof", gWord::type_call},
    {"__typeof__", gWord::type_call},
    {"__typeof", gWord::type_call},
    {"typeof_unqual", gWord::type_call},
    {"_BitInt", gWord::type_call},
    {"__underlying_type", gWord::type_call},
    {"__attribute__", gWord::attribute},
    {"__attribute", gWord::attribute},
    {"__declspec", gWord::attribute},
    {"alignas", gWord::attribute},
    {"_Alignas", gWord::attribute},
    {"__pragma", gWord::attribute},
    {"_Pragma", gWord::attribute},
    {"__launch_bounds__", gWord::attribute},
    {"operator", gWord::operator_},
    {"requires", gWord::requires_},
    {"noexcept", gWord::noexcept_},
    {"throw", gWord::throw_},
    {"override", gWord::override_},
    {"final", gWord::final_},
    {"sealed", gWord::final_},
    {"try", gWord::try_},
    {"catch", gWord::catch_},
    {"default", gWord::default_},
    {"delete", gWord::delete_},
    {"public", gWord::public_},
    {"protected", gWord::protected_},
    {"private", gWord::private_},
    {"signals", gWord::signals},
    {"Q_SIGNALS", gWord::signals},
    {"slots", gWord::slots},
    {"Q_SLOTS", gWord::slots},
    {"Q_PROPERTY", gWord::qt_property},
    {"Q_PRIVATE_PROPERTY", gWord::qt_property},
    {"Q_OBJECT", gWord::qt_statement},
    {"Q_OBJECT_FAKE", gWord::qt_statement},
    {"Q_GADGET", gWord::qt_statement},
    {"Q_NAMESPACE", gWord::qt_statement},
    {"Q_ENUM", gWord::qt_statement},
    {"Q_ENUMS", gWord::qt_statement},
    {"Q_ENUM_NS", gWord::qt_statement},
    {"Q_FLAG", gWord::qt_statement},
    {"Q_FLAGS", gWord::qt_statement},
    {"Q_FLAG_NS", gWord::qt_statement},
    {"Q_INTERFACES", gWord::qt_statement},
    {"Q_CLASSINFO", gWord::qt_statement},
    // Heads of interfaces, whose definitions lie in headers of the system.
    {"MIDL_INTERFACE", gWord::struct_},
    {"DECLARE_INTERFACE", gWord::struct_},
    {"DECLARE_INTERFACE_", gWord::struct_},
    {"DECLARE_INTERFACE_IID", gWord::struct_},
    {"DECLARE_INTERFACE_IID_", gWord::struct_},
    {"Q_PLUGIN_METADATA", gWord::qt_statement},
    {"Q_DISABLE_COPY", gWord::qt_statement},
    {"Q_DISABLE_COPY_MOVE", gWord::qt_statement},
    {"Q_DECLARE_PRIVATE", gWord::qt_statement},
    {"Q_DECLARE_PRIVATE_D", gWord::qt_statement},
    {"Q_DECLARE_PUBLIC", gWord::qt_statement},
    {"Q_PRIVATE_SLOT", gWord::qt_statement},
    {"Q_DECLARE_TR_FUNCTIONS", gWord::qt_statement},
    {"Q_DECLARE_FLAGS", gWord::qt_statement},
    {"Q_DECLARE_METATYPE", gWord::qt_statement},
    {"Q_DECLARE_TYPEINFO", gWord::qt_statement},
    {"Q_DECLARE_OPERATORS_FOR_FLAGS", gWord::qt_statement},
    {"Q_MOC_INCLUDE", gWord::qt_statement},
    {"QML_ELEMENT", gWord::qt_statement},
    {"if", gWord::statement},
    {"else", gWord::statement},
    {"for", gWord::statement},
    {"while", gWord::statement},
    {"do", gWord::statement},
    {"switch", gWord::statement},
    {"case", gWord::statement},
    {"return", gWord::statement},
    {"goto", gWord::statement},
    {"break", gWord::statement},
    {"continue", gWord::statement},
    {"new", gWord::statement},
    {"sizeof", gWord::statement},
    {"this", gWord::this_},
};

constexpr std::size_t slots_of_table = 1024;

constexpr std::size_t slot_of(std::string_view text) {
  std::size_t const last = text.size() - 1;
  auto const c = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  return (c(0) * 37u + c(last) * 101u + c(text.size() / 2) * 11u + text.size() * 271u +
          c(last / 3) * 7u) %
         slots_of_table;
}

constexpr std::array<Row, slots_of_table> make_table() {
  std::array<Row, slots_of_table> table;
  for (Row const & row : rows) {
    std::size_t at = slot_of(row.text);
    while (!table[at].text.empty())
      at = (at + 1) % slots_of_table;
    table[at] = row;
  }
  return table;
}

constexpr std::array<Row, slots_of_table> table = make_table();

} // namespace

gWord word_of(std::string_view text) {
  if (text.size() < 2 || text.size() > 29)
    return gWord::name;
  for (std::size_t at = slot_of(text); !table[at].text.empty(); at = (at + 1) % slots_of_table)
    if (table[at].text == text)
      return table[at].word;
  return gWord::name;
}

bool is_specifier(gWord word) {
  return word >= gWord::friend_ && word <= gWord::export_;
}

bool begins_declaration(gWord word) {
  return (word >= gWord::class_ && word <= gWord::explicit_) || word == gWord::constexpr_ ||
         (word >= gWord::public_ && word <= gWord::qt_statement) || word == gWord::void_ ||
         word == gWord::static_assert_ || word == gWord::export_;
}

bool is_class_key(gWord word) {
  return word >= gWord::class_ && word <= gWord::enum_;
}

bool is_type_word(gWord word) {
  return word == gWord::builtin || word == gWord::void_;
}

bool is_trailing(gWord word) {
  switch (word) {
  case gWord::const_:
  case gWord::volatile_:
  case gWord::noexcept_:
  case gWord::throw_:
  case gWord::override_:
  case gWord::final_:
  case gWord::requires_:
  case gWord::try_:
  case gWord::attribute:
  case gWord::asm_:
  case gWord::specifier:
    return true;
  default:
    return false;
  }
}

bool is_capital(std::string_view text) {
  if (text.size() < 2)
    return false;
  bool letter = false;
  for (char const c : text) {
    if (c >= 'a' && c <= 'z')
      return false;
    letter = letter || (c >= 'A' && c <= 'Z');
  }
  return letter;
}

} // namespace Decl

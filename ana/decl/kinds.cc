// Kinds and their words: one table, read in both directions.
#include "ana/decl/declaration.h"

#include <algorithm>
#include <iterator>

namespace Decl {

namespace {

struct Word {
  gKind kind;
  std::string_view word;
};

// In the order of gKind.
constexpr Word words[] = {
    {gKind::none, ""},
    {gKind::name_space, "namespace"},
    {gKind::class_, "class"},
    {gKind::struct_, "struct"},
    {gKind::union_, "union"},
    {gKind::enum_, "enum"},
    {gKind::enum_class, "enum class"},
    {gKind::enumerator, "enumerator"},
    {gKind::function, "function"},
    {gKind::constructor, "constructor"},
    {gKind::destructor, "destructor"},
    {gKind::operator_, "operator"},
    {gKind::conversion, "conversion"},
    {gKind::method, "method"},
    {gKind::friend_, "friend"},
    {gKind::variable, "variable"},
    {gKind::member, "member"},
    {gKind::bit_field, "bit field"},
    {gKind::typedef_, "typedef"},
    {gKind::alias, "alias"},
    {gKind::alias_template, "alias template"},
    {gKind::concept_, "concept"},
    {gKind::deduction_guide, "deduction guide"},
    {gKind::macro, "macro"},
    {gKind::function_macro, "function macro"},
    {gKind::module, "module"},
    {gKind::using_declaration, "using"},
    {gKind::property, "property"},
    {gKind::signal, "signal"},
    {gKind::slot, "slot"},
    {gKind::unit, "unit"},
    {gKind::program, "program"},
    {gKind::library, "library"},
    {gKind::package, "package"},
    {gKind::interface, "interface"},
    {gKind::dispinterface, "dispinterface"},
    {gKind::object, "object"},
    {gKind::record, "record"},
    {gKind::class_helper, "class helper"},
    {gKind::record_helper, "record helper"},
    {gKind::type_helper, "type helper"},
    {gKind::class_reference, "class reference"},
    {gKind::set, "set"},
    {gKind::enumeration, "enumeration"},
    {gKind::constant, "constant"},
    {gKind::typed_constant, "typed constant"},
    {gKind::resource_string, "resource string"},
    {gKind::thread_variable, "thread variable"},
    {gKind::procedure, "procedure"},
    {gKind::class_method, "class method"},
    {gKind::event, "event"},
    {gKind::message_method, "message method"},
    {gKind::type, "type"},
};

constexpr bool in_order() {
  for (std::size_t at = 0; at < std::size(words); ++at)
    if (static_cast<std::size_t>(words[at].kind) != at)
      return false;
  return std::size(words) == static_cast<std::size_t>(gKind::type) + 1;
}
static_assert(in_order());

} // namespace

std::string_view kind_word(gKind kind) {
  return words[static_cast<std::size_t>(kind)].word;
}

gKind kind_of_word(std::string_view word) {
  auto const * found = std::ranges::find(words, word, &Word::word);
  return found == std::end(words) ? gKind::none : found->kind;
}

} // namespace Decl

// The words of C, C++ and their kin that say something about a declaration.
#pragma once

#include <cstdint>
#include <string_view>

namespace Decl {

enum class gWord : std::uint8_t {
  name, // any other identifier
  // Heads.
  class_,
  struct_,
  union_,
  enum_,
  namespace_,
  template_,
  typedef_,
  using_,
  concept_,
  friend_,
  extern_,
  static_,
  inline_,
  virtual_,
  explicit_,
  mutable_,
  thread_local_,
  constexpr_,
  specifier, // register, __extension__, CUDA's words, calling conventions ...
  export_,
  module_,
  import_,
  static_assert_,
  asm_,
  // Types.
  const_,
  volatile_,
  builtin, // int, unsigned, auto ...
  void_,
  typename_,
  type_call, // decltype(...), typeof(...)
  // Attributes with an argument in parentheses.
  attribute,
  // Names and what stands behind parameters.
  operator_,
  requires_,
  noexcept_,
  throw_,
  override_,
  final_,
  try_,
  catch_,
  default_,
  delete_,
  // Sections of classes.
  public_,
  protected_,
  private_,
  signals,
  slots,
  // Qt's statements without a semicolon.
  qt_property,
  qt_statement,
  // Begins or belongs to an expression or a statement.
  statement,
  this_,
};

gWord word_of(std::string_view text);

// Specifiers that stand in front of a type, in any order.
bool is_specifier(gWord word);
// Words that only the begin of a declaration or of a section has.
bool begins_declaration(gWord word);
bool is_class_key(gWord word); // with enum
bool is_type_word(gWord word); // builtin, void, auto ...
// const, noexcept and all that may stand behind a parameter list.
bool is_trailing(gWord word);

// Shaped as the name of a macro: no small letter, at least two characters.
bool is_capital(std::string_view text);

} // namespace Decl

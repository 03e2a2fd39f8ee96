// What the readers of declarations answer: facts about one file, as ranges of its bytes.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace Decl {

// A stretch of the text in bytes, half open. Empty where there is no such part.
struct gRange {
  std::uint32_t begin = 0, end = 0;

  bool empty() const { return begin >= end; }
  std::string_view of(std::string_view text) const {
    return empty() ? std::string_view() : text.substr(begin, end - begin);
  }
};

enum class gKind : std::uint8_t {
  none,
  // C and C++.
  name_space,
  class_,
  struct_,
  union_,
  enum_,
  enum_class,
  enumerator,
  function,
  constructor,
  destructor,
  operator_,
  conversion,
  method,
  friend_,
  variable,
  member, // a field
  bit_field,
  typedef_,
  alias,
  alias_template,
  concept_,
  deduction_guide,
  macro,          // without parameters
  function_macro, // with parameters
  module,
  using_declaration,
  property, // of Qt or Pascal
  signal,
  slot,
  // Pascal.
  unit,
  program,
  library,
  package,
  interface,
  dispinterface,
  object,
  record,
  class_helper,
  record_helper,
  type_helper,
  class_reference,
  set,
  enumeration, // its values are enumerators
  constant,
  typed_constant,
  resource_string,
  thread_variable,
  procedure,
  class_method,
  event,
  message_method,
  type, // any other type: procedural, array, subrange, pointer ...
};

// The word that scripts filter and pages print, such as "enum class" or "class helper"; and back
// (`none` for an unknown word).
std::string_view kind_word(gKind kind);
gKind kind_of_word(std::string_view word);

enum class gAccess : std::uint8_t {
  none, // outside of classes
  public_,
  protected_,
  private_,
  published,
  strict_protected,
  strict_private,
};

// Specifiers and marks, a bit each.
enum gMark : std::uint32_t {
  mark_static = 1u << 0,
  mark_extern = 1u << 1,
  mark_inline = 1u << 2,
  mark_virtual = 1u << 3,
  mark_pure = 1u << 4, // "= 0", Pascal's abstract
  mark_override = 1u << 5,
  mark_final = 1u << 6, // Pascal's sealed
  mark_const = 1u << 7, // a method that leaves its object alone
  mark_volatile = 1u << 8,
  mark_constexpr = 1u << 9, // constexpr, consteval, constinit
  mark_explicit = 1u << 10,
  mark_mutable = 1u << 11,
  mark_thread_local = 1u << 12,
  mark_noexcept = 1u << 13,
  mark_defaulted = 1u << 14,
  mark_deleted = 1u << 15,
  mark_friend = 1u << 16,
  mark_typedef = 1u << 17,
  mark_definition = 1u << 18, // has its body or contents here
  mark_forward = 1u << 19,    // announces what is declared elsewhere: "class X;", "TFoo = class;"
  mark_specialisation = 1u << 20, // "template<>" or partial; also explicit instantiations
  mark_unnamed = 1u << 21,        // has no name of its own
  mark_linkage_c = 1u << 22,      // within extern "C"
  mark_abstract_class = 1u << 23,
  mark_overload = 1u << 24, // Pascal's directives
  mark_reintroduce = 1u << 25,
  mark_dynamic = 1u << 26,
  mark_message = 1u << 27,
  mark_deprecated = 1u << 28,
  mark_class_member = 1u << 29,   // Pascal: class var, class function and so on
  mark_implementation = 1u << 30, // Pascal: behind "implementation"
  mark_out_of_class =
      1u << 31, // a definition outside of its class: the scope stands in `qualifier`
};

struct gParam {
  gRange whole, type, name, value; // value: the default, without its "="
};

// One declared thing. Things that stand in one statement ("int a, b;") are one each.
struct gDeclaration {
  gKind kind = gKind::none;
  gAccess access = gAccess::none;
  std::uint32_t marks = 0;     // union of gMark
  std::int32_t scope = -1;     // index of the declaration that this one stands in; -1 at the top
  std::int32_t condition = -1; // index into gFileDeclarations::conditions; -1 for none
  std::int32_t statement =
      -1; // the first of those that one statement declares; its own index if alone
  std::uint32_t line = 0, column = 0; // of the name or, without one, of the begin; from 1, in bytes
  std::uint32_t end_line = 0;         // the last line of `whole`
  std::uint32_t first_param = 0, params = 0; // stretch of gFileDeclarations::parameters

  gRange whole;          // all of it, from the template head to ";" or the closing bracket
  gRange text;           // what a reader is shown: `whole` without body, contents and ";"
  gRange template_head;  // "template <...>", all of them, with its requires clause; Pascal's <...>
  gRange qualifier;      // "A<T>::B" of a name that is defined outside of its class, without "::"
  gRange name;           // the name alone; of an operator from "operator" on
  gRange parameter_list; // with its brackets
  gRange result;         // type of a function's result, of a variable, member or alias
  gRange bases;          // behind ":" or within Pascal's brackets
  gRange initialiser;    // without "=", with its braces; a property's specifiers; a macro's value
  gRange attributes;     // in front: [[...]], __attribute__, __declspec
  gRange trailing;       // behind the parameter list: const noexcept -> T requires ...; directives
  gRange body;           // with its brackets; contents of a class, an enumeration, a namespace
  gRange arguments;      // template arguments behind the name, of a specialisation

  // A name that no stretch of the text spells, since a macro brings it, such as that of a namespace
  // which a macro opens: index into gFileDeclarations::spelled; -1 where `name` has it.
  std::int32_t spelled = -1;
  // Where `template_head` holds a macro that stands for one, and where `parameter_list` holds names
  // whose types stand behind it, as in C before 1989: what a reader is to see in their place, as
  // indices into gFileDeclarations::spelled; -1 for what the ranges hold.
  std::int32_t spelled_head = -1, spelled_list = -1;
};

// A comment, with what stands around it. Positions of code are those of tokens.
struct gComment {
  enum Place : std::uint8_t {
    between,    // among declarations
    within,     // inside a declaration's head, before its body or ";"
    parameters, // inside a parameter list
    body,       // inside a function's body
    values,     // among enumerators
    outside,    // in code that is left out (#if 0)
  };
  gRange whole;                         // with its opener and closer
  std::uint32_t line = 0, end_line = 0; // first and last
  std::uint32_t column = 0;             // of the opener, from 1
  std::uint32_t code_before = 0;        // end of the last token in front; 0 for none
  std::uint32_t code_behind = 0;        // begin of the next token; the text's size for none
  std::int32_t scope = -1;              // the innermost declaration whose body it stands in
  std::int32_t declaration = -1; // the declaration that it stands inside of, unless `between`
  Place place = between;
  bool line_start = false; // only blanks stand in front of it on its line
};

// A condition of the preprocessor that guards declarations, as text: "defined(_WIN32)".
struct gCondition {
  std::string text;
  std::int32_t outer = -1; // the condition around it
};

// A stretch that couldn't be understood; what stands in front of it and behind it could.
struct gSkipped {
  gRange whole;
  std::uint32_t line = 0, end_line = 0;
  std::int32_t scope = -1;
  std::string reason; // for the user: "`}` without `{`"
};

// Where a Pascal text begins, or takes another file in: an include file is read by itself, as if it
// stood there.
struct gPascalContext {
  enum Section : std::uint8_t {
    any, // unknown: the text tells
    interface,
    implementation,
    members, // of a class or record
    values,  // of an enumeration
    body,    // of a routine: nothing is declared
  };
  enum Block : std::uint8_t { none, types, variables, constants, resource_strings, labels };
  Section section = any;
  Block block = none;
  gAccess access = gAccess::none; // within members
};

struct gInclude {
  gRange name; // without quotes or angle brackets
  std::uint32_t line = 0;
  bool system = false;     // "<...>"
  std::int32_t scope = -1; // the declaration whose contents it belongs to
  gPascalContext context;  // of Pascal; of C++ the access alone, within a class
};

struct gFileDeclarations {
  std::vector<gDeclaration> items; // a scope stands in front of its members; else in text order
  std::vector<gParam> parameters;
  std::vector<gComment> comments; // in text order
  std::vector<gCondition> conditions;
  std::vector<gSkipped> skipped;
  std::vector<gInclude> includes;   // #include; of Pascal {$I file}
  std::vector<gRange> uses;         // Pascal: units of the uses clauses
  std::vector<std::string> spelled; // what no stretch of the text spells
  std::int32_t guard = -1;          // index of the macro that keeps the file from being read twice
};

// Which comments and literals a text holds.
enum class gSyntax : std::uint8_t { cpp, pascal };

// The text of a range on one line: comments, directives and line continuations gone, runs of white
// space one blank, none at the ends. Of branches of the preprocessor the first is kept.
std::string one_line(std::string_view text, gRange range, gSyntax syntax = gSyntax::cpp);
// The same; the parts, ranges of the text, become ranges of the line. Those that lie outside of the
// range become empty. No more than `most_parts`.
constexpr std::size_t most_parts = 8;
std::string one_line(std::string_view text, gRange range, gSyntax syntax,
                     std::initializer_list<gRange *> parts);
// What `template_head` and `parameter_list` hold or stand for.
std::string_view template_head(std::string_view text, gFileDeclarations const & file,
                               gDeclaration const & one);
std::string_view parameter_list(std::string_view text, gFileDeclarations const & file,
                                gDeclaration const & one);
// The name as it is shown: that which a macro brings, or the spelled one; of operators with one
// blank between words and none before signs.
std::string shown_name(std::string_view text, gFileDeclarations const & file,
                       gDeclaration const & one, gSyntax syntax = gSyntax::cpp);

} // namespace Decl

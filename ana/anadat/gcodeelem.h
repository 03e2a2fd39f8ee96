// A declared thing, and the bits that classify it.
#pragma once

#include <memory>

#include "ana/anadat/gfileobjtable.h"
#include "ana/decl/enum_values.h"
#include "vlb/gsrcfile.h"
#include "vlb/gstrlist.h"

// Unit types: one bit each, shared by code elements, text units and the option ana/alloc/gen_unit.
enum gUnitType : int {
  ut_undefined = 0,
  ut_class = 1,
  ut_function = 2,
  ut_member = 4,
  ut_method = 8,
  ut_event = 0x10,
  ut_property = 0x20,
  ut_type = 0x40,
  ut_var = 0x80,
  ut_unit = 0x100,
};

// Specifiers written in a C/C++ declaration.
enum gSpecifier : int {
  spec_auto = 1,
  spec_register = 2,
  spec_static = 4,
  spec_extern = 8,
  spec_mutable = 0x10,
  spec_inline = 0x20,
  spec_virtual = 0x40,
  spec_explicit = 0x80,
  spec_typedef = 0x100,
  spec_friend = 0x200,
};

// "class" and so on; empty for an unknown value. The inverse gives 0 for an unknown text.
gString unit_type_name(int type);
int unit_type_value(std::string_view name);

// How far a declaration is from what users of the code are to see.
enum class gSeclusion : std::uint8_t {
  open,
  detail,  // in a scope named "detail", "internal" and the like
  unnamed, // in an unnamed namespace
};

// A definition of a macro, and when it holds.
struct gMacroVariant {
  gString condition, text;
};

// What few declarations have.
struct gDeclLists : cShared {
  std::vector<gString> friends;        // of a class: the types that it lets in, as they are written
  std::vector<gMacroVariant> variants; // of a macro that has several definitions: all of them
};

// What a reader knows of a declaration beyond its text. The ranges lie in that text.
struct gDeclParts {
  Decl::gRange name;
  Decl::gRange template_head;
  Decl::gRange parameters; // with their brackets
  Decl::gRange bases;
  Decl::gRange result;
  std::uint32_t marks = 0; // union of Decl::gMark
  gSeclusion seclusion = gSeclusion::open;
  cRef<gString const> signature; // what tells overloads apart; null for none
  cRef<gString const> condition; // of the preprocessor; shared by all that it guards, null for none
  std::vector<Decl::gEnumValue> values; // of an enumeration
  cRef<gDeclLists const> lists;         // null: all are empty
};

// Where readers find a thing beside its scope.
struct gElemGroups : cShared {
  std::vector<gString> topics; // their places, each once
  gString heading;             // over it and its neighbours; empty for none
};

// One thing that a source declares. Held by cRef; after the code analysis only `type` may still
// change (association). A run holds very many, so what only some readers know lies apart.
struct gCodeElem : cShared {
  // A negative line raises gExcInternalErr.
  gCodeElem(gStrList const & names, gSrcFile const & file, int line, int type, gString const & decl,
            gString const & visibility, int flags);

  // The qualified name, joined by the separator of the file's language.
  gString name() const { return names.make_string(loc.file().name_sep()); }

  // What stands around it. Its own name may hold separators, such as "operator std::string".
  std::string scope() const;

  gLinePlace place() const { return {loc.line(), column}; }

  gStrList names;   // outermost scope first
  gLoc loc;         // the line that the parser noted, in the input file under analysis
  int column = 0;   // 0: not known
  int end_line = 0; // of the whole declaration; 0: not known
  int type;         // one gUnitType
  int flags;        // union of gSpecifier
  int text = -1; // which of its file's text units the reader bound to it; -1: one is searched for
  Decl::gKind kind = Decl::gKind::none; // none: no more is known than the type
  bool documented = false; // the comment that its reader bound to it is made for documentation
  gString decl;            // the declaration's text, white space normalised
  gString visibility;
  gString heritage;                        // the base clause as text
  std::unique_ptr<gDeclParts const> parts; // null: not known
  cRef<gElemGroups const> groups;          // null: none
};

// A source that others include: its extension begins with "h", or it has none.
bool is_header(gSrcFile const & file);

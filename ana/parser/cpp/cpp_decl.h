// The parts of one C/C++ declaration while it is being read.
#pragma once

#include <vector>

#include "ana/anadat/gcodeelem.h"

// A part of the left side of a declaration, in the order of the source.
class gCppDeclElem : public cShared {
public:
  virtual std::string_view text() const { return {}; }
  // Union of gSpecifier.
  virtual int flags() const { return 0; }
  virtual bool is_separator() const { return false; }

  // True for a name as long as it may be what the declaration declares.
  bool is_dcltor = false;
};

// A class, an enum, an elaborated type name, or "const" and "volatile".
class gCppTypeSpec : public gCppDeclElem {
public:
  explicit gCppTypeSpec(gString && text) : text_(std::move(text)) {}
  std::string_view text() const override { return text_; }

private:
  gString text_;
};

// A specifier for storage, functions or the declaration as a whole.
class gCppSFDSpec : public gCppDeclElem {
public:
  explicit gCppSFDSpec(int spec) : spec_(spec) {}
  std::string_view text() const override;
  int flags() const override { return spec_; }

private:
  int spec_;
};

// The comma between two declarators.
class gCppDcltorSep : public gCppDeclElem {
public:
  std::string_view text() const override { return ", "; }
  bool is_separator() const override { return true; }
};

// A name with what stands around it. Types aren't known, so a word of the type looks the same.
class gCppDcltor : public gCppDeclElem {
public:
  // The first item is the scope mark, "::" or empty; the components of the name follow.
  explicit gCppDcltor(gStrList && names);
  std::string_view text() const override { return text_; }
  virtual bool is_dcltor_class() const { return true; }

  gStrList const & names() const { return names_; }
  // The name in the scope where it is declared: as it stands if it begins with "::". The names are
  // used up.
  gStrList take_qualified_name(gStrList const & scope);
  void append(std::string_view text) { text_ += text; }
  void prepend(std::string const & text) { text_.prepend(text); }
  void enclose(); // in parentheses

  bool is_function = false;

private:
  gStrList names_;
  gString text_;
};

// The left side of a declaration.
struct gCppDecl {
  void append(cRef<gCppDeclElem> elem);
  // Tells the declarators from the words of the type: the last name of each group between commas
  // is its declarator.
  void finish();

  std::vector<cRef<gCppDeclElem>> elems;
  gString spec_text;                     // filled by finish()
  std::vector<cRef<gCppDcltor>> dcltors; // filled by finish()
  int flags = 0;                         // union of the elements' flags
};

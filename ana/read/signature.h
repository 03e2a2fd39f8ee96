// What tells overloads apart, whatever their spelling.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "ana/decl/declaration.h"

// The signatures of one file, whose text and declarations it borrows. What the members of a scope
// share is read once where they follow each other.
class gSignatures {
public:
  gSignatures(std::string_view text, Decl::gFileDeclarations const & file, bool pascal);
  ~gSignatures();

  // The types of a routine's parameters, without names, defaults and spelling, then what makes a
  // method another one: "(int,char*)const&". Of a function template a line feed follows, then its
  // parameters, constraints and result. Names of template parameters, those of classes around too,
  // are their numbers. Empty for what takes no parameters at all by its kind.
  std::string of(Decl::gDeclaration const & one);

private:
  struct Scope;

  std::string_view text_;
  Decl::gFileDeclarations const & file_;
  bool pascal_;
  std::unique_ptr<Scope> scope_; // around the last one
};

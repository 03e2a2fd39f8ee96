// What tells overloads apart, whatever their spelling.
#pragma once

#include <string>
#include <string_view>

#include "ana/decl/declaration.h"

// The types of a routine's parameters, without names, defaults and spelling, then what makes a
// method another one: "(int,char*)const&". Of a function template a line feed follows, then its
// parameters, constraints and result. Names of template parameters, those of classes around too,
// are their numbers. Empty for what takes no parameters at all by its kind.
std::string signature(std::string_view text, Decl::gFileDeclarations const & file,
                      Decl::gDeclaration const & one, bool pascal);

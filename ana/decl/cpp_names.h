// Names with what they are qualified by: A<T>::B::~C, ::a::operator+.
#pragma once

#include "ana/decl/cpp_source.h"

namespace Decl {

struct gChain {
  enum Kind : std::uint8_t { plain, destructor, operator_, conversion, member_pointer };
  Kind kind = plain;
  std::uint32_t first = 0, last = 0;           // tokens of all
  std::uint32_t name_first = 0, name_last = 0; // of the last name, without template arguments
  std::uint32_t qualifier_last = 0;            // the qualifier is [first, this); empty if equal
  std::uint32_t arguments_last = 0;            // template arguments are [name_last, this)
  std::uint32_t last_part = no_token;          // the name in front of the last "::"

  bool empty() const { return first == last; }
};

// The longest that begins at `at`; empty where none does.
gChain read_chain(gSource const & source, std::uint32_t at, std::uint32_t last);
// A::A, or a destructor or what else needs no type in front.
bool names_constructor(gSource const & source, gChain const & chain);
// Behind the name of an operator whose "operator" stands at `at`; of a conversion behind
// "operator".
std::uint32_t behind_operator(gSource const & source, std::uint32_t at);

} // namespace Decl

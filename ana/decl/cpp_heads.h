// What stands in front of a declaration's type: attributes, template heads, specifiers.
#pragma once

#include "ana/decl/cpp_source.h"

namespace Decl {

struct gHead {
  std::uint32_t next = 0; // the first token behind it
  std::uint32_t marks = 0;
  std::uint32_t template_first = 0, template_last = 0; // tokens of all template heads
  std::uint32_t attributes_first = 0, attributes_last = 0;
  bool instantiation = false;  // "template class X<int>;"
  bool looked_through = false; // a macro stands among them
  bool macro_head = false;     // the template head is a macro that stands for one
};

gHead read_head(gSource const & source, std::uint32_t first, std::uint32_t last);

// Behind one attribute with its arguments that begins at `at`; `at` if none does.
std::uint32_t behind_attribute(gSource const & source, std::uint32_t at);
// Behind the condition of a "requires" whose first token stands at `at`.
std::uint32_t behind_constraint(gSource const & source, std::uint32_t at, std::uint32_t last);
// The mark of a specifier, 0 for none.
std::uint32_t mark_of(gWord word);

} // namespace Decl

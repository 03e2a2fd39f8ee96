// Parameters of a list.
#pragma once

#include "ana/decl/cpp_source.h"

namespace Decl {

// Appends those between the "(" at `open` and its partner; "(void)" has none.
void read_parameters(gSource const & source, std::uint32_t open, std::vector<gParam> & to);

} // namespace Decl

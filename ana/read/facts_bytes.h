// Facts of a file as bytes, for a cache, and back.
#pragma once

#include <optional>

#include "ana/anadat/gfilefacts.h"

// Empty if the facts aren't worth keeping: reports that were left out can't come back. The name of
// the file isn't part of the bytes.
std::string facts_to_bytes(gFileFacts const & facts);

// The facts of `file`; nothing if the bytes are damaged, or come from another form of the bytes or
// another catalogue of reports. Memory and time are linear in the number of bytes, whatever they
// hold.
std::optional<gFileFacts> facts_from_bytes(std::string_view bytes, gSrcFile const & file);

namespace Facts {
// Puts the head in front that facts_from_bytes() asks for: form, catalogue and a sum of the bytes.
std::string sealed(std::string_view body);
} // namespace Facts

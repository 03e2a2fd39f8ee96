// Where a declaration begins and ends, before anything of it is understood.
#pragma once

#include "ana/decl/cpp_source.h"

namespace Decl {

struct gExtent {
  enum Shape : std::uint8_t {
    plain,    // up to its ";", or to where the next declaration begins
    function, // with a body
    contents, // a class, an enumeration or a namespace with what it holds
    block,    // extern "C" {...}, export {...}: what it holds belongs to what is around it
    call,     // a macro's, without ";"
    other,    // braces that nothing is known of
  };
  Shape shape = plain;
  std::uint32_t first = 0, last = 0; // tokens, the last one excluded
  std::uint32_t open = no_token;     // "{" of the body or contents
  std::uint32_t key = no_token;      // "class", "namespace" ... of contents
  std::uint32_t head_end = 0;        // behind the head: its ";", "{" or the ":" of initialisers
  std::uint32_t tail = 0;            // of contents: behind "}"
};

struct gPlace {
  bool in_class = false;
  bool file_level = false;          // neither in a class nor in a namespace
  std::string_view class_name = {}; // of the class around
};

// The next one from `first` on; it takes at least one token and doesn't reach beyond `end`. Links
// the angle brackets of its head on the way.
gExtent cut_extent(gSource const & source, std::uint32_t first, std::uint32_t end,
                   gPlace const & place);

} // namespace Decl

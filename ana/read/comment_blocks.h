// The comments of a file as its author sees them: line comments below each other are one, and so
// are those of any kind that stand below each other behind code.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ana/decl/declaration.h"

// A comment or a run of line comments, and what it says about itself.
struct gCommentBlock {
  std::uint32_t begin = 0, end = 0;     // bytes, from the first opener to the last closer
  std::uint32_t line = 0, end_line = 0; // first and last, from 1
  std::size_t first = 0;                // index into gFileDeclarations::comments
  std::size_t last = 0;                 // the same, included
  bool documenting = false;             // opened in a way that says documentation, such as "/**"
  bool behind = false;                  // says that it is about what stands in front: "///<"
};

// In text order. A run ends where the opener changes, a line has other text, or, behind code, the
// column changes.
std::vector<gCommentBlock>
comment_blocks(std::string_view text, std::vector<Decl::gComment> const & comments, bool pascal);

// The words of a block: without openers, closers and the frame that all of its lines share. Has the
// lines of the block.
std::string comment_text(std::string_view text, gCommentBlock const & block,
                         std::vector<Decl::gComment> const & comments, bool pascal);

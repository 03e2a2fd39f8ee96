// Which comment belongs to which declaration.
#pragma once

#include <vector>

#include "ana/anadat/gfilefacts.h"
#include "ana/read/comment_blocks.h"

// Why a comment is taken for the text of a declaration, best reason first. Of the comments that
// could belong to one declaration, those with the best rule are taken.
enum class gAttachRule : unsigned char {
  before,       // documenting, in front of the declaration
  behind,       // documenting, behind it on its line or directly below: "///<"
  inside,       // documenting, between head and body, or behind the opening brace
  plain_before, // any other directly in front
  plain_behind, // any other behind it on its line
  plain_inside, // any other between head and body, or behind the opening brace
  plain_below,  // any other directly below, with an empty line behind
  none,
};

// What becomes of one block.
struct gAttachment {
  gAttachRule rule = gAttachRule::none;
  gLeftOut left_out = gLeftOut::nothing_near;
  std::int32_t declaration = -1; // index of the first one that it belongs to, of a statement
  std::int32_t param = -1;       // index of its parameter that the block is about; -1 for none
  // Of a heading: the first and the last declaration that it stands above; -1 for none.
  std::int32_t first_headed = -1, last_headed = -1;
};

// One for each block. Pure: it depends on its arguments alone.
std::vector<gAttachment> attach(std::string_view text, Decl::gFileDeclarations const & file,
                                std::vector<gCommentBlock> const & blocks, bool pascal);

// Comments that stand above several declarations and speak of all of them.
#pragma once

#include "ana/read/attach.h"
#include "ana/read/attach_places.h"

// Such a comment is no text of the first declaration; it keeps the declarations that it heads.
// `found` has one for each block.
void find_headings(std::string_view text, Decl::gFileDeclarations const & file,
                   std::vector<gCommentBlock> const & blocks, bool pascal,
                   gAttachPlaces const & places, std::vector<gAttachment> & found);

// The words of a heading, without what is drawn around them.
std::string heading_of(std::string_view words);

// Topics, headings and what isn't shown, as the comments of a file say of its declarations.
#pragma once

#include "ana/read/attach.h"
#include "ana/read/code_elements.h"
#include "ana/read/comment_regions.h"

// What stands between brackets belongs to the topic that they open, but for what stands in
// something that does so itself. A namespace isn't a member, what it holds is.
void note_regions(gCommentRegions const & regions, Decl::gFileDeclarations const & found,
                  gReadElements & elements);

// Enters what a comment says that stands above several declarations. A heading between brackets
// that open a group, which an author has put more clearly, stays.
void note_heading(std::string const & heading, Decl::gFileDeclarations const & found,
                  gAttachment const & attachment, gReadElements & elements);

// Enters the topics that a comment names.
void add_topics(gCodeElem & element, std::vector<gCommentGroup> const & groups);

// Their places, joined with blanks; empty for none.
gString topics_of(std::vector<gCommentGroup> const & groups, gCommentGroup::Kind kind);

// By index in `elements`: whether it isn't to be shown.
std::vector<bool> hidden_elements(gCommentRegions const & regions,
                                  Decl::gFileDeclarations const & found,
                                  gReadElements const & elements);

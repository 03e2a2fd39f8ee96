// Texts of translated comments as pieces of intermediate code.
#pragma once

#include "ana/anadat/gfilefacts.h"
#include "ana/comments/translate.h"

// The name of a place that references lead to: at most 35 letters, digits and "_".
gString place_name(std::string_view name);

// The pieces of a unit's text; the names of its places join those of the file.
gStrList text_pieces(gRichPieces && text, gTextFacts & facts);

// A text of its own: all parts one behind the other, under their titles.
gStrList topic_pieces(gTranslated && text, gTextFacts & facts);

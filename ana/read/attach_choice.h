// Which of the comments that could belong to one declaration are its text.
#pragma once

#include "ana/read/attach.h"
#include "ana/read/attach_places.h"

// `found` is what each block by itself belongs to; those that another one outdoes are left out.
void choose_attachments(std::vector<gAttachment> & found, std::vector<gCommentBlock> const & blocks,
                        gAttachPlaces const & places);

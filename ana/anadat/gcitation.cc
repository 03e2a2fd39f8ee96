// A citation reads the user's file, not the temporary one: a reader wants to see the source as it
// stands there.
#include "ana/anadat/gcitation.h"

#include <algorithm>

#include "ana/anadat/tables.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

gCitation::gCitation(gSrcFile const & file, int first_line, int last_line)
    : file_(file),
      first_line_(first_line),
      last_line_(last_line) {}

void gCitation::read() {
  if (state_ == complete)
    return;
  gCitedFile const * source = gCitedFiles.open(file_.opath());
  if (!source) {
    Msg::log(Msg::cannot_read, file_.opath());
    return;
  }
  // Without a character behind the last line the file may have been cut off.
  state_ = source->has_line(last_line_ + 1) ? complete : end_of_file;
  text_ = gString(source->lines(first_line_, last_line_));
}

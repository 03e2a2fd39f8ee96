// The file in hand is kept as one text, with a position that moves on from comment to comment.

#include "ana/comment_reader.h"

#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

constexpr std::string_view opening = "@_vlbcom";
constexpr std::string_view closing = "@_vlecom";

// What stands between the two marks, as far as they are there.
std::string_view between_marks(std::string_view text) {
  if (std::size_t const begin = text.find(opening); begin != std::string_view::npos)
    text.remove_prefix(begin + opening.size());
  return text.substr(0, text.find(closing));
}

} // namespace

bool gCommentReader::open(gPathstring const & path) {
  if (path != path_) {
    path_ = path;
    readable_ = gFileSystem::read_file(path, text_);
    line_ = 1;
    start_ = 0;
  }
  if (!readable_)
    Msg::log(Msg::cannot_read, path);
  return readable_;
}

void gCommentReader::go_to_line(int line) {
  if (line < line_) {
    line_ = 1;
    start_ = 0;
  }
  while (line_ < line && start_ < text_.size()) {
    std::size_t const feed = text_.find('\n', start_);
    start_ = feed == std::string::npos ? text_.size() : feed + 1;
    ++line_;
  }
}

bool gCommentReader::read(gCmt const & comment, gString & text) {
  if (comment.first_line() <= 0 || !open(comment.file().path()))
    return false;
  go_to_line(comment.first_line());
  // The line feed in front of a line belongs to it, so an empty last line still is a line.
  if (line_ < comment.first_line() || (start_ >= text_.size() && !text_.ends_with('\n')))
    return false;
  std::size_t end = start_;
  for (int line = comment.first_line(); line <= comment.last_line(); ++line) {
    end = text_.find('\n', end);
    if (end == std::string::npos)
      break;
    if (line < comment.last_line())
      ++end;
  }
  std::string_view const lines = std::string_view(text_).substr(start_, end - start_);
  text = gString(between_marks(lines));
  text.wsp_norm();
  return true;
}

// The source that citations are read from.
#pragma once

#include <filesystem>
#include <vector>

#include "store/gglobalobj.h"
#include "vlb/gpathstring.h"

// A source's text with its line starts.
class gCitedFile {
public:
  explicit gCitedFile(std::string && text);

  // True if the line has a character; lines count from 1.
  bool has_line(int line) const;
  // The text of the lines, their line feeds included.
  std::string_view lines(int first, int last) const;

private:
  std::size_t start_of(int line) const;

  std::string text_;
  std::vector<std::size_t> starts_;
};

// Keeps the file that was asked for last: the citations of a file are mostly quoted together, and
// reading a long file anew for each would cost the square of its length.
class gCitedFileCache : public gGlobalObj {
public:
  // Null if the file can't be read. Valid until the next call.
  gCitedFile const * open(gPathstring const & path);
  void reset() override;

private:
  gPathstring path_;
  std::filesystem::file_time_type time_;
  std::uintmax_t size_ = 0;
  std::vector<gCitedFile> file_; // none or one
};

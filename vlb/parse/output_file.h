// The file that a preprocessor writes.
#pragma once

#include <memory>
#include <string_view>

#include "vlb/gpathstring.h"

// Collects what is written and passes it on in large pieces. A failed write is remembered until
// close(). What is written while no file is open is lost. A temporary file has its new text from
// close() on.
class gOutputFile {
public:
  gOutputFile() = default;
  ~gOutputFile();
  gOutputFile(gOutputFile const &) = delete;
  gOutputFile & operator=(gOutputFile const &) = delete;

  // False if the file can't be made.
  bool open(gPathstring const & path);
  // False if anything couldn't be written; errno tells why. True if no file is open.
  bool close();

  void put(std::string_view text) {
    if (text.size() > room())
      flush_for(text);
    else
      used_ = text.copy(buffer_.get() + used_, text.size()) + used_;
  }
  void put(char c) { put(std::string_view(&c, 1)); }

private:
  static constexpr std::size_t size = std::size_t(1) << 16;
  std::size_t room() const { return open_ ? size - used_ : 0; }
  void flush_for(std::string_view text);
  void pass_on(std::string_view text);
  bool add_in_memory(std::string_view text);
  void write(std::string_view text);
  void move_to_disk();
  void close_file();
  void close_memory();
  void fail();

  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
  bool open_ = false;
  int file_ = -1;    // below 0 for a temporary file in memory
  gPathstring path_; // of that file
  std::string text_; // what was passed on to it
  int failure_ = 0;  // the errno of the first failure
};

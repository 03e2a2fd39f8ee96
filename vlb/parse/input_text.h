// The text of a file as a scanner reads it.
#pragma once

#include <memory>
#include <string_view>

#include "vlb/gpathstring.h"

// The bytes of a file in one piece, behind some room for what a scanner pushes back. All line ends
// are line feeds, UTF-16 is UTF-8, an opening byte-order mark is gone.
class gInputText {
public:
  // `room`: bytes that can be written in front of the text.
  explicit gInputText(std::size_t room) : room_(room) {}

  // False if the file can't be read; also for folders and devices. The text is empty then.
  bool read(gPathstring const & path);
  void set(std::string_view text);
  void clear();

  // In valid UTF-8 with characters beyond ASCII, the quote mark of code text (the character with
  // the bytes C2 B4) becomes the byte B4, and the bytes B4 and EF of other characters become bytes
  // that UTF-8 never has. Other texts stay as they are.
  void shield_quotes();
  bool shielded() const { return shielded_; }
  // The byte of the file for a shielded one.
  static char unshielded(char c);
  // Bytes of the file for bytes of a shielded text.
  static void append_plain(std::string & to, std::string_view text);

  char * begin() const { return bytes_.get() + room_; }
  char * end() const { return begin() + size_; }

private:
  void grow(std::size_t size);
  bool read_from(int file);
  void normalize();

  std::unique_ptr<char[]> bytes_;
  std::size_t room_;
  std::size_t capacity_ = 0, size_ = 0;
  bool shielded_ = false;
};

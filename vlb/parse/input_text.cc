// A file is read whole, since the walk of the scanners wants its bytes in one piece.
#include "vlb/parse/input_text.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <limits>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "vlb/source_bytes.h"
#include "vlb/tempfiles.h"
#include "vlb/witness.h"

namespace {

constexpr char quote = '\xB4';
constexpr char other_quote = '\xEF';
constexpr char quote_lead = '\xC2'; // in front of the quote in UTF-8
// UTF-8 has no bytes from F8 on.
constexpr char shielded_quote = '\xF8';
constexpr char shielded_other_quote = '\xF9';

constexpr off_t largest_file = std::numeric_limits<int>::max();

// Buffers of ordinary files are kept for the next one; that of a huge file isn't.
constexpr std::size_t kept_capacity = std::size_t(1) << 20;

bool is_high(char c) {
  return static_cast<unsigned char>(c) >= 0x80;
}

// The first byte beyond ASCII; eight at a time, since most files have none.
char const * find_high(char const * at, char const * end) {
  for (; end - at >= 8; at += 8) {
    std::uint64_t word;
    std::memcpy(&word, at, sizeof word);
    if (word & 0x8080808080808080u)
      break;
  }
  return std::find_if(at, end, is_high);
}

// The length of the character of UTF-8 that begins here, 0 if there is none.
int utf8_length(char const * text, char const * end) {
  auto const byte = [&](int i) { return static_cast<unsigned char>(text[i]); };
  unsigned const lead = byte(0);
  int const length = lead < 0x80   ? 1
                     : lead < 0xC2 ? 0
                     : lead < 0xE0 ? 2
                     : lead < 0xF0 ? 3
                     : lead < 0xF5 ? 4
                                   : 0;
  if (length > end - text)
    return 0;
  for (int i = 1; i < length; ++i)
    if ((byte(i) & 0xC0) != 0x80)
      return 0;
  // Overlong forms, halves of surrogate pairs, and what lies beyond the last character.
  bool const wrong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xED && byte(1) >= 0xA0) ||
                     (lead == 0xF0 && byte(1) < 0x90) || (lead == 0xF4 && byte(1) >= 0x90);
  return wrong ? 0 : length;
}

bool valid_utf8(char const * at, char const * end) {
  while ((at = find_high(at, end)) != end) {
    int const length = utf8_length(at, end);
    if (length == 0)
      return false;
    at += length;
  }
  return true;
}

} // namespace

bool gInputText::read(gPathstring const & path) {
  if (auto const in_memory = gTempFiles::text(path)) {
    set(*in_memory);
    return true;
  }
  clear();
  int const file = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
  if (file < 0) {
    Vlb::note_unreadable(path);
    return false;
  }
  struct stat info;
  gFileState const state = ::fstat(file, &info) == 0 ? gFileState::of(info) : gFileState();
  bool const good = read_from(file);
  ::close(file);
  if (good) {
    Vlb::note_bytes(path, state, {begin(), size_});
    normalize();
  } else {
    Vlb::note_unreadable(path);
    clear();
  }
  return good;
}

// A device could go on for ever, and a pipe never begin.
bool gInputText::read_from(int file) {
  struct stat about;
  if (::fstat(file, &about) != 0 || !S_ISREG(about.st_mode) || about.st_size > largest_file)
    return false;
  grow(static_cast<std::size_t>(about.st_size) + 2);
  for (;;) {
    if (size_ + 1 >= capacity_)
      grow(2 * capacity_);
    ssize_t const got = ::read(file, end(), capacity_ - size_ - 1);
    if (got == 0)
      return true;
    if (got < 0 && errno != EINTR)
      return false;
    size_ += got > 0 ? static_cast<std::size_t>(got) : 0;
  }
}

void gInputText::set(std::string_view text) {
  clear();
  grow(text.size() + 1);
  std::copy(text.begin(), text.end(), begin());
  size_ = text.size();
  normalize();
}

void gInputText::clear() {
  size_ = 0;
  shielded_ = false;
  if (capacity_ > kept_capacity)
    capacity_ = 0;
  grow(1);
}

// Capacity counts the text and one byte behind it.
void gInputText::grow(std::size_t size) {
  if (size <= capacity_)
    return;
  auto larger = std::make_unique_for_overwrite<char[]>(room_ + size);
  std::fill_n(larger.get(), room_, '\0');
  if (size_ > 0)
    std::memcpy(larger.get() + room_, begin(), size_);
  bytes_ = std::move(larger);
  capacity_ = size;
}

void gInputText::normalize() {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  std::string_view const bytes(begin(), size_);
  if (Vlb::is_utf16(bytes)) {
    std::string const text = Vlb::utf8_of_utf16(bytes);
    grow(text.size() + 1);
    size_ = text.copy(begin(), text.size());
  } else if (bytes.starts_with(mark)) {
    size_ -= mark.size();
    std::memmove(begin(), begin() + mark.size(), size_);
  }
  size_ = Vlb::unify_line_ends(begin(), size_);
}

void gInputText::shield_quotes() {
  char * const first = const_cast<char *>(find_high(begin(), end()));
  if (first == end() || !valid_utf8(first, end()))
    return;
  shielded_ = true;
  char * to = first;
  for (char const * from = first; from != end(); ++from) {
    if (*from == quote_lead && from[1] == quote)
      *to++ = *++from;
    else
      *to++ = *from == quote ? shielded_quote : *from == other_quote ? shielded_other_quote : *from;
  }
  size_ = static_cast<std::size_t>(to - begin());
}

char gInputText::unshielded(char c) {
  return c == shielded_quote ? quote : c == shielded_other_quote ? other_quote : c;
}

void gInputText::append_plain(std::string & to, std::string_view text) {
  for (char c : text) {
    if (c == quote)
      to += quote_lead;
    to += unshielded(c);
  }
}

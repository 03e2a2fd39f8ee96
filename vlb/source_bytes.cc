// UTF-16 is decoded here and not by the library's converter, whose tables a small installation may
// lack, and which stops at each fault.
#include "vlb/source_bytes.h"

#include <cstring>

#include "vlb/gfilesystem.h"

namespace {

constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";
constexpr std::string_view little_mark = "\xFF\xFE";
constexpr std::string_view big_mark = "\xFE\xFF";
constexpr std::uint32_t replacement = 0xFFFD;
// As much as is looked at where no mark tells the encoding.
constexpr std::size_t sample = 4096;

enum class Order { none, little, big };

// Sources are ASCII for the most part, so one byte of nearly each unit is zero; never both.
Order order_by_zeros(std::string_view bytes) {
  bytes = bytes.substr(0, sample);
  if (bytes.find('\0') == bytes.npos) // nearly all, and found out at once
    return Order::none;
  std::size_t const units = bytes.size() / 2;
  std::size_t first_zero = 0, second_zero = 0;
  for (std::size_t i = 0; i < units; ++i) {
    bool const first = bytes[2 * i] == '\0', second = bytes[2 * i + 1] == '\0';
    if (first && second)
      return Order::none;
    first_zero += first;
    second_zero += second;
  }
  bool const enough = units > 1 && 2 * std::max(first_zero, second_zero) >= units;
  bool const clear = 10 * std::min(first_zero, second_zero) <= units;
  return !enough || !clear ? Order::none : first_zero > second_zero ? Order::big : Order::little;
}

Order order_of(std::string_view bytes) {
  return bytes.starts_with(little_mark) ? Order::little
         : bytes.starts_with(big_mark)  ? Order::big
                                        : order_by_zeros(bytes);
}

void append_utf8(std::uint32_t point, std::string & to) {
  auto const put = [&](std::uint32_t byte) { to += static_cast<char>(byte); };
  if (point < 0x80)
    return put(point);
  if (point < 0x800) {
    put(0xC0 | point >> 6);
  } else {
    if (point < 0x10000) {
      put(0xE0 | point >> 12);
    } else {
      put(0xF0 | point >> 18);
      put(0x80 | (point >> 12 & 0x3F));
    }
    put(0x80 | (point >> 6 & 0x3F));
  }
  put(0x80 | (point & 0x3F));
}

} // namespace

bool Vlb::is_utf16(std::string_view bytes) {
  return order_of(bytes) != Order::none;
}

std::string Vlb::utf8_of_utf16(std::string_view bytes) {
  bool const big = order_of(bytes) == Order::big;
  if (bytes.starts_with(little_mark) || bytes.starts_with(big_mark))
    bytes.remove_prefix(little_mark.size());
  auto const unit = [&](std::size_t at) -> std::uint32_t {
    if (at + 1 >= bytes.size())
      return 0;
    auto const first = static_cast<unsigned char>(bytes[at]);
    auto const second = static_cast<unsigned char>(bytes[at + 1]);
    return big ? first << 8 | second : second << 8 | first;
  };
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size(); at += 2) {
    std::uint32_t point = at + 1 < bytes.size() ? unit(at) : replacement;
    std::uint32_t const next = unit(at + 2);
    if ((point & 0xFC00) == 0xD800 && (next & 0xFC00) == 0xDC00) {
      point = 0x10000 + ((point & 0x3FF) << 10 | (next & 0x3FF));
      at += 2;
    }
    append_utf8((point & 0xFFFFF800) == 0xD800 ? replacement : point, text);
  }
  return text;
}

std::size_t Vlb::unify_line_ends(char * text, std::size_t size) {
  char const * from = text;
  char const * const stop = text + size;
  char * to = text;
  while (from != stop) {
    void const * const found = std::memchr(from, '\r', static_cast<std::size_t>(stop - from));
    char const * const end = found ? static_cast<char const *>(found) : stop;
    std::size_t const length = static_cast<std::size_t>(end - from);
    if (to != from)
      std::memmove(to, from, length);
    to += length;
    from = end;
    if (from == stop)
      break;
    *to++ = '\n';
    from += stop - from > 1 && from[1] == '\n' ? 2 : 1;
  }
  return static_cast<std::size_t>(to - text);
}

void Vlb::make_source_text(std::string & bytes) {
  if (is_utf16(bytes))
    bytes = utf8_of_utf16(bytes);
  else if (bytes.starts_with(utf8_mark))
    bytes.erase(0, utf8_mark.size());
  bytes.resize(unify_line_ends(bytes.data(), bytes.size()));
}

bool Vlb::read_source(gPathstring const & path, std::string & text) {
  if (!gFileSystem::read_file(path, text))
    return false;
  make_source_text(text);
  return true;
}

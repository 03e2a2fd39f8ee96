// Files of one name may lie in several folders, so what they hold is a part of their new names.
#include "conv/htm/pictures.h"

#include <algorithm>
#include <array>

#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/gstring.h"
#include "vlb/messages.h"

namespace {

bool is_picture(std::string_view kind) {
  static constexpr std::array<std::string_view, 6> kinds = {".png", ".jpg", ".jpeg",
                                                            ".gif", ".svg", ".webp"};
  return std::ranges::find(kinds, kind) != kinds.end();
}

std::string digits_of(std::string_view bytes) {
  std::uint32_t sum = 0x811C9DC5u;
  for (char const c : bytes)
    sum = (sum ^ static_cast<unsigned char>(c)) * 0x01000193u;
  std::string digits;
  for (int i = 0; i < 8; ++i, sum >>= 4)
    digits += "0123456789abcdef"[sum & 15];
  return digits;
}

std::string name_of(std::string_view path, std::string_view bytes) {
  std::string_view const file = path.substr(path.rfind('/') + 1);
  std::size_t const dot = std::min(file.rfind('.'), file.size());
  std::string name;
  for (char const c : file.substr(0, std::min<std::size_t>(dot, 60)))
    name += Vlb::is_word(c) ? c : '-';
  return name + "-" + digits_of(bytes) + Vlb::to_lower(file.substr(dot));
}

} // namespace

std::string gPictures::href_of(std::string const & path) {
  std::lock_guard const lock(mutex_);
  auto const [place, added] = hrefs_.try_emplace(path);
  std::string_view const kind =
      std::string_view(path).substr(std::min(path.rfind('.'), path.size()));
  if (!added || !is_picture(Vlb::to_lower(kind)))
    return place->second;
  std::string bytes;
  if (!gFileSystem::read_file(gPathstring(path), bytes)) {
    Msg::log(Msg::cannot_read, path);
    return {};
  }
  std::string const name = "_images/" + name_of(path, bytes);
  bool const made =
      std::ranges::any_of(hrefs_, [&](auto const & one) { return one.second == name; });
  if (!made)
    conversion_.write(name, bytes);
  return place->second = name;
}

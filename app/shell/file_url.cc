// Paths may hold any bytes; an address holds letters, digits and some marks.

#include "app/shell/file_url.h"

std::string Shell::file_url(std::string const & path) {
  constexpr std::string_view plain = "-._~/!$&'()*+,;=:@";
  constexpr char hex[] = "0123456789ABCDEF";
  std::string url = "file://";
  for (char const c : path) {
    auto const byte = static_cast<unsigned char>(c);
    bool const letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    if (letter || plain.find(c) != plain.npos)
      url += c;
    else
      url.append({'%', hex[byte >> 4], hex[byte & 15]});
  }
  return url;
}

// Paths as text. A path is a root ("/", or a drive and a separator), and components behind it.
#include "vlb/gpathstring.h"

#include <vector>

namespace {

constexpr char sep = gPathstring::Dir_sep;

std::size_t root_length(std::string_view path) {
  if (path.empty())
    return 0;
  if (path[0] == sep)
    return 1;
  return path.size() > 2 && Vlb::is_letter(path[0]) && path[1] == ':' && path[2] == sep ? 3 : 0;
}

// Where the last component begins.
std::size_t name_start(std::string_view path) {
  std::size_t const last = path.rfind(sep);
  return last == path.npos ? 0 : last + 1;
}

// Where the point of the extension stands, or npos. A point at the start of a name hides the file
// and begins no extension.
std::size_t extension_point(std::string_view path) {
  std::size_t const start = name_start(path);
  std::string_view const name = path.substr(start);
  std::size_t const point = name.rfind('.');
  return point == name.npos || point == 0 || name == ".." ? path.npos : start + point;
}

void add_component(std::vector<std::string_view> & parts, std::string_view part, bool rooted) {
  if (part.empty() || part == ".")
    return;
  if (part != "..")
    parts.push_back(part);
  else if (!parts.empty() && parts.back() != "..")
    parts.pop_back();
  else if (!rooted)
    parts.push_back(part);
}

} // namespace

gPathstring & gPathstring::append(gString const & part) {
  if (part.empty())
    return *this;
  if (empty()) {
    assign(part);
    return *this;
  }
  std::string_view tail = part;
  if (back() != sep)
    push_back(sep);
  if (tail.front() == sep)
    tail.remove_prefix(1);
  std::string::append(tail);
  return *this;
}

gPathstring & gPathstring::make_absolute(gString const & base) {
  if (is_absolute())
    return *this;
  gPathstring whole(base);
  whole.append(*this);
  swap(whole);
  return *this;
}

gPathstring & gPathstring::normalize(bool) {
  if (empty())
    return *this;
  std::size_t const root = root_length(*this);
  std::vector<std::string_view> parts;
  std::string_view rest = std::string_view(*this).substr(root);
  for (;;) {
    std::size_t const end = rest.find(sep);
    add_component(parts, rest.substr(0, end), root != 0);
    if (end == rest.npos)
      break;
    rest.remove_prefix(end + 1);
  }
  std::string normal(*this, 0, root);
  for (std::string_view part : parts) {
    if (normal.size() > root)
      normal += sep;
    normal += part;
  }
  // The folder itself: an empty text would be no path at all.
  if (normal.empty())
    normal = ".";
  swap(normal);
  return *this;
}

gPathstring & gPathstring::set_extension(gString const & ext) {
  std::size_t const point = extension_point(*this);
  if (point != npos)
    erase(point);
  if (!ext.empty()) {
    push_back('.');
    std::string::append(ext);
  }
  return *this;
}

gPathstring & gPathstring::set_extension_default(gString const & ext) {
  if (extension_point(*this) == npos)
    std::string::append(ext);
  return *this;
}

bool gPathstring::is_absolute() const {
  return root_length(*this) != 0;
}

gString gPathstring::dir_name() const {
  std::size_t const start = name_start(*this);
  std::size_t const root = root_length(*this);
  return gString(std::string_view(*this).substr(0, start <= root ? start : start - 1));
}

gString gPathstring::file_name() const {
  return gString(std::string_view(*this).substr(name_start(*this)));
}

gString gPathstring::base_name() const {
  std::size_t const start = name_start(*this);
  std::size_t const point = extension_point(*this);
  return gString(std::string_view(*this).substr(start, point == npos ? npos : point - start));
}

gString gPathstring::extension() const {
  std::size_t const point = extension_point(*this);
  return point == npos ? gString() : gString(std::string_view(*this).substr(point + 1));
}

// Text in place: white space, case and escapes are rewritten inside the string's own memory where
// the result isn't longer, since a run does this for nearly every token.
#include "vlb/gstring.h"

#include <algorithm>

namespace {

// Moves the kept characters to the front; returns the new length.
std::size_t squeeze(char * text, std::size_t length) {
  std::size_t out = 0;
  bool gap = false;
  for (std::size_t in = 0; in < length; ++in) {
    if (Vlb::is_space(text[in])) {
      gap = true;
      continue;
    }
    if (gap && out)
      text[out++] = ' ';
    gap = false;
    text[out++] = text[in];
  }
  return out;
}

bool special_in_atc(char c) {
  return c == ',' || c == '>' || c == '}' || c == '@' || c == '\\';
}

// Without branches, so that many bytes are looked at in one step.
std::size_t count_special(std::string_view text) {
  std::size_t count = 0;
  for (char const c : text)
    count += (c == ',') | (c == '>') | (c == '}') | (c == '@') | (c == '\\');
  return count;
}

} // namespace

gString & gString::prepend(char c) {
  std::string::insert(begin(), c);
  return *this;
}

gString & gString::prepend(char const * text) {
  std::string::insert(0, text);
  return *this;
}

gString & gString::prepend(std::string const & text) {
  std::string::insert(0, text);
  return *this;
}

gString & gString::tolower() {
  std::transform(begin(), end(), begin(), Vlb::lower);
  return *this;
}

gString & gString::toupper() {
  std::transform(begin(), end(), begin(), Vlb::upper);
  return *this;
}

int gString::compare_i(gString const & other) const {
  return Vlb::compare_i(*this, other);
}

bool gString::wsp_only() const {
  return std::all_of(begin(), end(), Vlb::is_space);
}

gString & gString::wsp_rmleft() {
  erase(begin(), std::find_if_not(begin(), end(), Vlb::is_space));
  return *this;
}

gString & gString::wsp_rmright() {
  erase(std::find_if_not(rbegin(), rend(), Vlb::is_space).base(), end());
  return *this;
}

gString & gString::wsp_trim() {
  resize(squeeze(data(), size()));
  return *this;
}

gString & gString::wsp_norm() {
  return wsp_trim();
}

gString & gString::escape(gString const & set, char esc) {
  std::size_t const first = find_first_of(set);
  if (first == npos)
    return *this;
  std::string escaped(*this, 0, first);
  escaped.reserve(size() + size() / 8 + 2);
  for (std::size_t i = first; i < size(); ++i) {
    char const c = (*this)[i];
    if (set.find(c) != npos)
      escaped += esc;
    escaped += c;
  }
  swap(escaped);
  return *this;
}

gString & gString::unescape(char esc) {
  std::size_t out = std::string::find(esc);
  if (out == npos)
    return *this;
  for (std::size_t in = out; in < size(); ++in) {
    if ((*this)[in] == esc && ++in == size())
      break;
    (*this)[out++] = (*this)[in];
  }
  resize(out);
  return *this;
}

gPString & gPString::escape_atc() {
  if (count_special(*this) != 0)
    static_cast<gString &>(*this) = Vlb::escape_atc(*this);
  return *this;
}

mString::mString(long value, int width, char fill) : gString(std::to_string(value)) {
  if (width > 0 && size() < static_cast<std::size_t>(width))
    insert(0, static_cast<std::size_t>(width) - size(), fill);
}

namespace Vlb {

int compare_i(std::string_view a, std::string_view b) {
  std::size_t const common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    int const x = static_cast<unsigned char>(lower(a[i]));
    int const y = static_cast<unsigned char>(lower(b[i]));
    if (x != y)
      return x - y;
  }
  return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
}

std::string to_lower(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lower);
  return result;
}

std::string to_upper(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), upper);
  return result;
}

gString escape_atc(std::string_view text) {
  std::size_t const special = count_special(text);
  if (special == 0)
    return gString(text);
  gString escaped;
  escaped.reserve(text.size() + special);
  auto from = text.begin();
  for (auto at = from; (at = std::find_if(at, text.end(), special_in_atc)) != text.end(); ++at) {
    escaped.append(from, at);
    escaped.push_back('\\');
    from = at;
  }
  escaped.append(from, text.end());
  return escaped;
}

} // namespace Vlb

// A name keeps the first address that a list gives for it; of overloads all lead to the first.

#include "conv/set/externals.h"

#include <algorithm>

#include "conv/atc/qualified_name.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

constexpr std::size_t most_names = 2000000, longest_name = 500, longest_address = 1000;

std::string_view trimmed(std::string_view text) {
  std::size_t const begin = std::min(text.find_first_not_of(" \t"), text.size());
  std::size_t const end = text.find_last_not_of(" \t");
  return end == text.npos ? std::string_view() : text.substr(begin, end + 1 - begin);
}

// What may stand in an address stays, all else is written in digits, so that no list brings markup
// or another scheme.
std::string escaped(std::string_view address) {
  static constexpr char digits[] = "0123456789ABCDEF";
  constexpr std::string_view kept = "/.-_~#?=+%!*();,$@";
  std::string out;
  for (char const c : address)
    if (Vlb::is_word(c) || kept.find(c) != kept.npos) {
      out += c;
    } else if (c == '&') {
      out += "&amp;";
    } else {
      auto const byte = static_cast<unsigned char>(c);
      ((out += '%') += digits[byte >> 4]) += digits[byte & 15];
    }
  return out;
}

// With a port.
std::string escaped_host(std::string_view host) {
  std::size_t const colon = host.find(':');
  return colon == host.npos
             ? escaped(host)
             : escaped(host.substr(0, colon)) + ':' + escaped(host.substr(colon + 1));
}

} // namespace

gExternals::gExternals(std::string_view lists) {
  for (std::size_t begin = 0; begin < lists.size();) {
    std::size_t const end = std::min(lists.find(';', begin), lists.size());
    std::string_view const one = trimmed(lists.substr(begin, end - begin));
    begin = end + 1;
    if (one.empty())
      continue;
    std::size_t const comma = one.find(',');
    std::string base(trimmed(one.substr(0, comma)));
    bool const is_web = base.starts_with("https://") || base.starts_with("http://");
    if (comma == one.npos || !is_web) {
      Msg::log(Msg::bad_external, std::string(one));
      continue;
    }
    if (!base.ends_with('/'))
      base += '/';
    read(base, std::string(trimmed(one.substr(comma + 1))));
  }
}

void gExternals::read(std::string const & base, std::string const & file) {
  std::string text;
  if (!gFileSystem::file_exists(file) || !gFileSystem::read_file(file, text)) {
    Msg::log(Msg::cannot_read, file);
    return;
  }
  std::size_t const host = base.find("//") + 2, path = std::min(base.find('/', host), base.size());
  std::string const from = base.substr(0, host) + escaped_host(base.substr(host, path - host)) +
                           escaped(base.substr(path));
  if (!Externals::read_inventory(text, from, *this) && !Externals::read_tags(text, from, *this))
    Msg::log(Msg::bad_external, file);
}

void gExternals::add(std::string name, std::string_view base, std::string_view address, bool type) {
  bool const usable = !name.empty() && name.size() <= longest_name && !address.empty() &&
                      address.size() <= longest_address && places_.size() < most_names;
  if (usable)
    places_.try_emplace(std::move(name), gPlace{std::string(base) + escaped(address), type});
}

std::string gExternals::href(std::string_view name, bool type) const {
  auto const found = places_.find(std::string(name));
  return found == places_.end() || (type && !found->second.type) ? std::string()
                                                                 : found->second.href;
}

std::string gExternals::href_from(std::string_view scope, std::string_view name, bool type) const {
  if (places_.empty())
    return {};
  for (; !scope.empty(); scope = Atc::scope_of(scope))
    if (std::string found = href(std::string(scope) + "::" + std::string(name), type);
        !found.empty())
      return found;
  return href(name, type);
}

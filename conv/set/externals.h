// Names that other documentation explains: read from the lists that Sphinx (objects.inv) and
// Doxygen (tag files) make of their pages.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

class gExternals {
public:
  // `lists`: "address, file" with ";" between them: where the pages are, and the list of them. What
  // can't be read or has no address of the web is reported. Earlier lists go first.
  explicit gExternals(std::string_view lists);

  // The address of a page by the whole name, as part of a page's text, escaped; empty if no list
  // has it. `type`: only a class, enumeration or the like.
  std::string href(std::string_view name, bool type) const;
  // The same of a name that is used in a scope, from the inside out.
  std::string href_from(std::string_view scope, std::string_view name, bool type) const;
  bool empty() const { return places_.empty(); }

  // A name with the address behind that of the list. Used by the readers of the lists.
  void add(std::string name, std::string_view base, std::string_view address, bool type);

private:
  struct gPlace {
    std::string href;
    bool type = false;
  };
  void read(std::string const & base, std::string const & file);

  std::unordered_map<std::string, gPlace> places_;
};

namespace Externals {
// False if the text is no such list. Both take any bytes.
bool read_inventory(std::string_view text, std::string_view base, gExternals & out);
bool read_tags(std::string_view text, std::string_view base, gExternals & out);
} // namespace Externals

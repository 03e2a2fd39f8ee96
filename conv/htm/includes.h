// Which sources take in which, as far as both are documented.
#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "conv/htm/site.h"

class gIncludes {
public:
  // Reads the sources of the document once; those that can't be read include nothing.
  explicit gIncludes(gSite const & site);

  // For the page of a source, under the heading that is its path: finished text, else empty.
  std::string of(int unit) const;
  // The page whose heading is the path of this source; -1 for none.
  int page_of(std::string_view path) const;
  // How other sources name this one between "<" and ">"; empty if none does.
  std::string_view spelling_of(std::string_view path) const;

private:
  using gPaths = std::vector<std::string_view>;

  void find_pages();
  int first_known_below(int unit) const;
  std::string_view include_path(std::string_view path) const;
  void read(std::string_view path);
  std::string_view meant(std::string_view from, std::string const & name) const;
  void add(std::string_view what, gPaths const & paths, int page, std::string & out) const;

  gSite const & site_;
  std::unordered_map<std::string_view, int> pages_; // of sources, by their paths: -1 for none
  std::unordered_map<int, std::string_view>
      paths_; // of sources, by the units that head their pages
  std::unordered_map<std::string_view, gPaths> ends_; // by the names behind the last "/"
  std::unordered_map<std::string_view, gPaths> includes_, included_by_;
  std::unordered_map<std::string_view, std::map<std::string, int>> spellings_; // with counts
};

namespace Includes {
struct gName {
  std::string text; // without quotes
  bool angled = false;
};
// The names in the #include lines of a text.
std::vector<gName> names_in(std::string_view text);
// "a/b/../c.h" as "a/c.h".
std::string normal(std::string path);
} // namespace Includes

// Whether every link of a site leads to a file that is there and to an anchor that stands in it. It
// looks at the finished pages, so that what a user's script adds counts, too. Other hosts aren't
// asked.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "conv/conversion.h"

class gLinkCheck {
public:
  // `file` with its folder, as links name it from the start page.
  void add_page(std::string const & file, std::string_view html);
  // A file that isn't a page, or a page without anchors to link to.
  void add_file(std::string const & file) { places_.insert(hash_of(file, {})); }
  // When all is written: a report for each place that isn't there, with one page that links to it,
  // which is read again for its words.
  void report(gConversion const & conversion) const;

private:
  using gHash = std::uint64_t;
  struct gWay {
    std::uint32_t page = 0; // index into pages_
    std::uint32_t line = 0; // of the page
  };

  static gHash hash_of(std::string_view file, std::string_view anchor);

  std::vector<std::string> pages_;
  std::unordered_set<gHash> places_;      // files and anchors
  std::unordered_map<gHash, gWay> links_; // the first to each place
};

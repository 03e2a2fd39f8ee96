// Whether every link of a site leads to a file that is there and to an anchor that stands in it. It
// looks at the finished pages, so that what a user's script adds counts, too. Other hosts aren't
// asked.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "conv/conversion.h"

class gLinkCheck {
public:
  // `file` with its folder, as links name it from the start page. May be called on any thread; the
  // order of the pages doesn't matter.
  void add_page(std::string const & file, std::string_view html);
  // When all is written: a report for each place that isn't there, with one page that links to it,
  // which is read again for its words.
  void report(gConversion const & conversion) const;

private:
  using gHash = std::uint64_t;
  struct gWay {
    std::uint32_t page = 0; // index into pages_
    std::uint32_t line = 0; // of the page
  };

  void add_link(gHash to, gWay way);
  // `file` in parts.
  static gHash hash_of(std::initializer_list<std::string_view> file, std::string_view anchor);

  std::mutex mutex_; // of all below while pages are added
  std::vector<std::string> pages_;
  std::unordered_set<gHash> places_; // files and anchors
  // To each place that wasn't known yet that of the first page by name.
  std::unordered_map<gHash, gWay> links_;
};

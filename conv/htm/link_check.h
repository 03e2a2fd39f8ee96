// Whether every link of a site leads to a file that is there and to an anchor that stands in it. It
// looks at the finished pages, so that what a user's script adds counts, too. Other hosts aren't
// asked.
#pragma once

#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "conv/conversion.h"

class gLinkCheck {
public:
  // `file` with its folder, as links name it from the start page. May be called on any thread; the
  // order of the pages doesn't matter. A page has less than 4 GB.
  void add_page(std::string const & file, std::string_view html);
  // When all is written: a report for each place that isn't there, with one page that links to it,
  // which is read again for its words.
  void report(gConversion const & conversion) const;

private:
  using gHash = std::uint64_t; // never 0
  // Where somebody links to a place, or that the place is there.
  struct gWay {
    static constexpr std::uint32_t is_there = UINT32_MAX;
    std::uint32_t page = 0;  // index into pages_
    std::uint32_t place = 0; // of the tag, in bytes
  };
  struct gSlot {
    gHash hash = 0; // 0: empty
    gWay way;
  };

  gSlot & slot_of(gHash hash);
  void make_room(std::size_t more);
  void add_link(gHash to, gWay way);

  std::mutex mutex_; // of all below while pages are added
  std::vector<std::string> pages_;
  // Files and anchors that are there, and for those that no page had so far the first page by name
  // that links to them. A table with open addressing: its size is a power of two, at most half of
  // it is taken.
  std::vector<gSlot> slots_;
  std::size_t taken_ = 0;
};

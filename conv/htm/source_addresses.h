// The addresses of sources that links lead to.
#pragma once

#include <map>
#include <mutex>

#include "conv/set/sources.h"

// A source that has pages.
struct gSource {
  std::string path;  // as the links name it
  std::string shown; // without the folders that all sources lie in
  std::string slug;  // its pages are _source/SLUG.htm, SLUG-2.htm and so on
  std::size_t lines = 0;
};

class gSourceAddresses {
public:
  // Lines on a page; a longer source is shown in parts. With what stands around each line a page
  // stays one that a browser shows at once.
  static constexpr std::size_t lines_per_page = 1000;

  gSourceAddresses(gDocument const & document, gSources const & sources);

  // The address of a line from the start page; empty if the source can't be shown or has no such
  // line; why it can't is reported. May be called from any thread.
  std::string href(std::string_view path, std::string_view line, gReportSink & reports);
  static std::string page(gSource const & source, std::size_t part); // parts from 0
  static std::size_t parts(gSource const & source);
  // How many sources there are, as far as they are known.
  std::size_t sources() const { return entries_.size(); }
  // Those that href() led to, by their paths.
  std::vector<gSource const *> linked() const;

private:
  struct gEntry {
    gSource source;
    enum State : unsigned char { unknown, usable, unusable } state = unknown;
    gReportList faults; // why it is unusable
  };

  void examine(gEntry & entry);
  gEntry & entry(std::string_view path);

  gSources const & sources_;
  std::mutex mutex_;
  std::map<std::string, gEntry, std::less<>> entries_;
  std::map<std::string, int> slugs_; // lower case, and how many have it
};

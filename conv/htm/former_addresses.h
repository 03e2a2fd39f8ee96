// Where things were in earlier runs, so that links from elsewhere still lead to them: a map of
// names and addresses that a project keeps, and pages in the place of those that are gone.
#pragma once

#include "conv/htm/page_writer.h"

class gFormerAddresses {
public:
  explicit gFormerAddresses(gSite const & site);

  // The map that an earlier run has written. A file that isn't there yet is an empty map; lines
  // that are none of a map are passed over.
  void read(gPathstring const & path);
  // A page for each that is gone and whose things are elsewhere.
  void write_pages(gPageWriter & writer, gNavigation const & navigation) const;
  // The map for the next run: all that is known now, and where it was. False, after a report, if it
  // can't be written.
  bool write(gPathstring const & path) const;

private:
  // One line of the map. The print tells a thing with another name from a new one; it is "-" for a
  // place where the thing was once.
  struct gKept {
    std::string href, key, print;
  };
  using gByText = std::map<std::string, int>; // units

  std::string key_of(int unit);
  std::string print_of(int unit) const;
  void settle(std::vector<gKept> const & old);
  void lead(gKept const & old, int unit);

  gSite const & site_;
  gByText units_;                       // by key
  std::map<int, std::string> keys_;     // of units
  std::map<std::string, int> asked_;    // how many units have the same key
  std::map<std::string, int> forwards_; // former address to unit
};

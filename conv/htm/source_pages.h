// The sources as pages: coloured, each line an anchor.
#pragma once

#include "conv/htm/colours.h"
#include "conv/htm/page_writer.h"

class gSourcePages {
public:
  gSourcePages(gSite const & site, gColours const & colours, gNavigation const & navigation);

  // Those that links lead to.
  void write(gConversion & conversion, gPageWriter & writer);

private:
  using gUnitLines = std::map<std::size_t, int>; // the first unit on a line
  // The lines of one page, from `first` on (0 is the first of the source).
  struct gPart {
    std::size_t first = 0;
    std::vector<std::string_view> lines;
  };

  void write_source(gSource const & source, std::string_view text, gPageWriter & writer);
  void set_lines(gPart const & part, gUnitLines const & units, bool coloured,
                 gColours::gState & state, std::string & items);
  void write_part(gSource const & source, std::size_t part, std::string const & items,
                  gPageWriter & writer);

  gSite const & site_;
  gColours const & colours_;
  gNavigation const & navigation_;
  gLanguage language_ = gLanguage::cpp;                // of the source at work
  std::map<std::string_view, std::vector<int>> units_; // by their source
  std::vector<gColoured> stretches_;
};

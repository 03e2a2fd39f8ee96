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

  void write_source(gSource const & source, std::string_view text, gPageWriter & writer);
  void write_part(gSource const & source, std::size_t part, std::string const & items,
                  gPageWriter & writer);
  void add_line(std::string_view line, std::size_t number, gColours::gState & state,
                gUnitLines const & units, std::string & out);

  gSite const & site_;
  gColours const & colours_;
  gNavigation const & navigation_;
  gLanguage language_ = gLanguage::cpp;                // of the source at work
  std::map<std::string_view, std::vector<int>> units_; // by their source
  std::vector<gColoured> stretches_;
  std::string line_;
};

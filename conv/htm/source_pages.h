// The sources as pages: coloured, each line an anchor.
#pragma once

#include "conv/htm/colours.h"
#include "conv/htm/includes.h"
#include "conv/htm/known_words.h"
#include "conv/htm/page_writer.h"

// Makes them one source after the other; a thread has a maker of its own.
class gSourcePages {
public:
  using gUnits = std::map<std::string_view, std::vector<int>>; // by their source
  static gUnits units_of(gSite const & site);

  // All have to outlive this.
  gSourcePages(gConversion & conversion, gSite const & site, gColours const & colours,
               gNavigation const & navigation, gUnits const & units, gKnownWords const & words,
               gIncludes const & includes);

  // What has gone since the links were made still gets the page that they lead to.
  void write(gSource const & source);

private:
  using gUnitLines = std::map<std::size_t, int>; // the first unit on a line
  // The lines of one page, from `first` on (0 is the first of the source).
  struct gPart {
    std::size_t first = 0;
    std::vector<std::string_view> lines;
  };

  void write_source(gSource const & source, std::string_view text);
  void set_lines(gPart const & part, gUnitLines const & units, bool coloured,
                 gColours::gState & state, std::string & items);
  void set_line(std::string_view line, std::size_t number, gColours::gState & state,
                std::string & text);
  bool is_declared_in(int unit, std::size_t number) const;
  bool link_word(std::string_view word, std::size_t number, std::string & text);
  void write_part(gSource const & source, std::size_t part, gUnitLines const & units,
                  std::string const & items);
  std::string outline_of(gSource const & source, std::size_t part, gUnitLines const & units) const;

  gSite const & site_;
  gColours const & colours_;
  gNavigation const & navigation_;
  gKnownWords const & words_;
  gIncludes const & includes_;
  gPageWriter writer_;
  gUnits const & units_;
  std::string path_;                    // of the source at work
  gLanguage language_ = gLanguage::cpp; // the same
  std::vector<gColoured> stretches_;
  std::unordered_map<std::string_view, std::size_t> linked_; // words, and their last lines
  std::size_t link_bytes_ = 0;                               // on the page at work
};

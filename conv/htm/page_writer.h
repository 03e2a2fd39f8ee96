// Pages: the frame that they all share, around what each sort of page holds.
#pragma once

#include "conv/conversion.h"
#include "conv/htm/navigation.h"

// Finished texts, but for the title.
struct gPageFrame {
  std::string_view style; // unit, start, contents, index, source, similar
  std::string file;       // with its folder
  std::string title;      // plain text; empty for the start page
  std::string crumbs, contents, on_page, content;
  gNeighbour previous, next;
  std::string head_left, head_right, foot_left, foot_right;
  std::string kind, kind_class;
};

class gPageWriter {
public:
  gPageWriter(gConversion & conversion, gSite const & site)
      : conversion_(conversion),
        site_(site) {}

  void write(gPageFrame const & frame);

private:
  gConversion & conversion_;
  gSite const & site_;
  std::string text_; // keeps its memory from page to page
};

// What the converter makes beside the pages of units.
namespace Pages {

void write_start(gPageWriter & writer, gSite const & site, gNavigation const & navigation,
                 gContents const & contents);
void write_contents(gPageWriter & writer, gSite const & site, gNavigation const & navigation,
                    gContents const & contents);
// Pages in the place of addresses that several pages could have.
void write_similar(gPageWriter & writer, gSite const & site, gNavigation const & navigation);

// What the analysis didn't understand, with its source. No page if there is nothing of the kind.
void write_skipped(gPageWriter & writer, gSite & site, gNavigation const & navigation);
// A line that leads there; empty for no stretches.
std::string skipped_note(gSite const & site, std::size_t stretches);

} // namespace Pages

// Pages: the frame that they all share, around what each sort of page holds.
#pragma once

#include "conv/conversion.h"
#include "conv/htm/link_check.h"
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
  std::string leads_to; // the page that has taken the place of this one; of style moved alone
};

class gPageWriter {
public:
  gPageWriter(gConversion & conversion, gSite const & site)
      : conversion_(conversion),
        site_(site) {}

  void write(gPageFrame const & frame);
  // Reports links of the pages that lead nowhere. All other files are written, too.
  void check_links() const { links_.report(conversion_); }

private:
  gConversion & conversion_;
  gSite const & site_;
  gLinkCheck links_;
  std::string text_; // keeps its memory from page to page
};

// What the converter makes beside the pages of units.
namespace Pages {

void write_start(gPageWriter & writer, gSite const & site, gNavigation const & navigation,
                 gContents const & contents);
void write_contents(gPageWriter & writer, gSite const & site, gNavigation const & navigation,
                    gContents const & contents);
// Pages in the place of addresses that several pages could have.
void add_similar(gSite const & site, int unit, std::string & out); // as an item of a list
void write_similar(gPageWriter & writer, gSite const & site, gNavigation const & navigation);

// What the analysis didn't understand, with its source. No page if there is nothing of the kind.
void write_skipped(gPageWriter & writer, gSite & site, gNavigation const & navigation);
// A line that leads there; empty for no stretches.
std::string skipped_note(gSite const & site, std::size_t stretches);

} // namespace Pages

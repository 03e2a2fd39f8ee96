// Pages: the frame that they all share, around what each sort of page holds.
#pragma once

#include "conv/conversion.h"
#include "conv/htm/colours.h"
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
  std::string summary;  // plain text
  std::string root;     // the folder of the start page, if it isn't told by the file's own
  std::string leads_to; // the page that has taken the place of this one; of style moved alone
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

// `text`: a file in Markdown that belongs to the sources; empty for none.
void write_start(gPageWriter & writer, gSite & site, gColours const & colours,
                 gPathstring const & text, gNavigation const & navigation,
                 gContents const & contents, gScopes const & scopes);
// What only a server needs: a map of the site and a page for addresses that aren't there. Nothing
// if the address of the site isn't known.
void write_for_servers(gConversion & conversion, gPageWriter & writer, gSite const & site);
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

// The addresses of pages and of the places on them. They are made of names, so that they are the
// same in the next run and when units are added.
#pragma once

#include "conv/htm/pages.h"

// Pages whose names make the same file name; the plain name belongs to a page that lists them.
struct gSimilarPages {
  std::string name; // of the file
  std::vector<int> pages;
};

class gAddresses {
public:
  // The place of the first unit on its page.
  static constexpr std::string_view top = "vl-top";

  // `paths`: for each unit, where its source lies, the same on all machines.
  gAddresses(gDocument const & document, gPages const & pages,
             std::vector<std::string_view> const & paths);

  // The start page with -1.
  std::string const & file(int page) const { return files_[static_cast<std::size_t>(page + 1)]; }
  std::string_view anchor(int unit) const;
  // Another anchor, by which a unit could be reached before one with the same name came, or could
  // be if another one came; empty if there is none.
  std::string_view alias(int unit) const { return aliases_[static_cast<std::size_t>(unit)]; }
  // Where a unit of a long list was while the list was short; empty for others.
  std::string former_anchor(int unit) const;
  // From the page, or from the start page with -1; `anchor` is a place on the page of the unit.
  std::string href(int unit, int from_page = -1) const;
  std::string href(int unit, std::string_view anchor, int from_page) const;

  std::vector<gSimilarPages> const & similar() const { return similar_; }

private:
  void name_files(std::vector<std::string_view> const & paths);
  void name_anchors(int page);

  gDocument const & document_;
  gPages const & pages_;
  std::vector<std::string> files_; // by page + 1
  std::vector<std::string> anchors_, aliases_;
  std::vector<gSimilarPages> similar_;
};

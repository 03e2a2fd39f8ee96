// All classes that are derived from each other, from their bases down, on as many pages as that
// needs.
#pragma once

#include "conv/htm/page_writer.h"

class gClassTree {
public:
  gClassTree(gSite const & site, gScopes const & scopes);

  // The first page, as the start page links to it; empty if no class is derived from another.
  std::string const & file() const { return file_; }
  // Where the class stands in the tree; empty for one without relatives.
  std::string href(int unit) const;
  void write(gPageWriter & writer, gNavigation const & navigation) const;

private:
  // A class, or the name of one that the document hasn't got.
  struct gClass {
    int unit = -1;
    std::string name;
    std::size_t home = 0;           // the first of its bases that are known: what it stands below
    bool has_home = false;          // false at the top
    std::vector<std::size_t> below; // all that are derived from it
  };
  // Each line of the tree: a class at its home, and again below its other bases.
  struct gLine {
    std::size_t one = 0; // the class
    int parent = -1;     // a line
    bool at_home = true;
    std::vector<std::size_t> below;   // lines
    std::size_t depth = 0, count = 0; // below it
    std::string text, id;
    int page = -1;     // where it stands
    int own_page = -1; // where what is below it stands, if that is too much for the page
  };
  struct gTreePage {
    std::string file, title; // plain text
    std::string items;
    int first = 0; // of its series
  };

  void find_classes();
  std::size_t enter(int unit, std::string name);
  void connect(std::size_t base, std::size_t derived);
  void add_lines(std::vector<std::size_t> const & tops);
  std::vector<std::size_t> tops();
  void set_line(gLine & line);
  std::string items_of(gLine & line);
  void place_lines();
  int add_pages(std::string const & stem, std::string const & title,
                std::vector<std::size_t> const & lines);
  std::string scope_of(gLine const & line) const;

  gSite const & site_;
  gScopes const & scopes_;
  std::vector<gClass> classes_;
  std::map<int, std::size_t> of_unit_;
  std::map<std::string, std::size_t> of_name_;
  std::vector<gLine> lines_; // each behind the one that it stands below
  std::vector<std::size_t> top_lines_;
  std::vector<gTreePage> pages_;
  std::map<int, std::size_t> homes_; // lines of units
  std::set<std::string> taken_;      // files and ids
  std::string file_;
};

// A project made of nothing but folders of sources: the built-in one, filled with what is found.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/shell/doxyfile.h"
#include "app/shell/source_walk.h"

class gQuickProject {
public:
  struct Source {
    gPathstring path; // absolute, of a folder or a file
    std::string name; // as the user knows it
  };
  // Whom it tells what: why there is nothing to document, and what is left out.
  struct Listener {
    std::function<void(std::string const &)> refuse, note;
  };

  // `out`: absolute. Without a title the folders' names are it.
  gQuickProject(std::vector<Source> sources, gPathstring out, std::string title, Listener listener);

  // What counts, title and options as another system has them; the sources stay those given.
  void take_doxyfile(gDoxyfile file);

  // The project file that comes with the program.
  static gPathstring file();
  // The lists of extensions in it; empty, with the reason told, if it can't be read.
  std::string extensions() const;

  // Looks for sources by lists of extensions. False, with the reason told, if there are none, or if
  // the output folder holds some.
  bool find_sources(std::string const & extensions);
  // Puts groups, folders and title into the options. The built-in project is loaded.
  void fill_project() const;

  std::string title() const;
  // What a conversion has made of it: lines, each with its end.
  std::string summary() const;

private:
  bool refuse(std::string const & text) const;
  bool take(Source const & source, std::string const & extensions);
  void tell_left_out(std::vector<gPathstring> const & paths, std::string const & reason) const;
  bool holds_sources(gPathstring const & folder, std::string const & extensions) const;

  std::vector<Source> sources_;
  gPathstring out_;
  std::string title_;
  Listener listener_;
  gSourceWalk found_;
  std::optional<gDoxyfile> doxyfile_;
};

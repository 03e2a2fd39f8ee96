// The private copy of the attributes that their dialog changes.
#pragma once

#include <string>

#include "app/options/attributes.h"
#include "store/cmapobj.h"

// A tree with the attributes under "attr", so that the rules work on it as on the project.
class gAttributeCopy {
public:
  // Takes the attributes from the project.
  void read();
  // Writes them into the project if they differ; answers whether it did.
  bool store() const;

  cMapObj const & tree() const { return tree_; }
  // The same with what the project uses of the attributes now.
  cMapObj const & tree_with_users();
  cMapObj & attributes() { return tree_.submap("attr"); }
  // Null for what is none.
  cMapObj * attribute(std::string const & name);
  // The text that stands for a value in the documentation.
  std::string output(std::string const & name, std::string const & value);

  // Enters a value of the user; one with the name `before` goes, and the new one takes its place.
  void set_value(std::string const & name, std::string const & before, std::string const & value,
                 std::string const & output);
  void remove_value(std::string const & name, std::string const & value);

private:
  cMapObj tree_;
};

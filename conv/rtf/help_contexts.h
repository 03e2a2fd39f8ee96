// The context strings of a help file: what its topics and places in them are called.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "conv/atc/document.h"

// Letters, digits, "." and "_", in upper case, since help compilers don't tell case apart. No two
// things have the same one. Help identifiers and further names of them come first and keep their
// names; a bookmark that one of these is named after has another one then.
class gHelpContexts {
public:
  explicit gHelpContexts(gDocument const & document);

  // Of a bookmark, in any case; always the same for the same name.
  std::string const & of(std::string_view name);
  // Of a further name for a help identifier; null if the name is that of a help identifier itself.
  std::string const * of_alias(std::string_view name) const;
  std::string const & of_unit(int unit) const { return units_[static_cast<std::size_t>(unit)]; }
  // A new one that begins like this.
  std::string fresh(std::string_view wish);

private:
  std::set<std::string, std::less<>> used_;
  std::map<std::string, int, std::less<>> tried_; // how often a wish wasn't free
  std::map<std::string, std::string, std::less<>> names_, aliases_;
  std::vector<std::string> units_;
};

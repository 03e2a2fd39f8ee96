// What stands right in each namespace or Pascal unit, wherever in the document it has its text.
#pragma once

#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "conv/htm/site.h"

class gScopes {
public:
  explicit gScopes(gSite const & site);

  // Numbers of units in the order of the document; none for a unit that is no scope of this kind.
  std::span<int const> of(int unit) const;
  // Of a template: the classes and functions that it has for some arguments.
  std::span<int const> specialisations(int unit) const;

private:
  gSite const & site_;
  using gUnits = std::unordered_map<std::string_view, std::vector<int>>;
  gUnits within_;          // by the names of the scopes
  gUnits specialisations_; // by the names of the templates
};

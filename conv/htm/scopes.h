// What stands in each namespace, Pascal unit and class, wherever in the document it has its text.
#pragma once

#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "conv/htm/site.h"
#include "conv/set/friends.h"

class gScopes {
public:
  explicit gScopes(gSite const & site);

  // Numbers of units in the order of the document, but for specialisations of a template that is
  // there; none for a unit that is no scope of this kind.
  std::span<int const> of(int unit) const;
  // The namespace, Pascal unit or class that a unit which begins a page stands in, as a unit that
  // begins one, too; -1 for none.
  int around(int unit) const;
  // The unit is such a scope, or stands in one: readers find their way by names.
  bool is_in_order(int unit) const { return is_scope(unit) || around(unit) >= 0; }
  // The units that begin pages right in a scope: scopes first, then the others in the order of the
  // document. Specialisations are found on the page of their template, and what isn't meant for
  // users from within.
  std::span<int const> pages_in(int scope) const;
  // What belongs to a topic; its parts that stand below it in the document do so anyway.
  std::span<int const> members(int topic) const;
  // Of a template: the classes and functions that it has for some arguments. Overloads of one name
  // have them in common, and only the first tells them.
  std::span<int const> specialisations(int unit) const;
  gFriends const & friends() const { return friends_; }

private:
  bool is_scope(int unit) const;
  void enter_page(int unit);

  gSite const & site_;
  using gUnits = std::unordered_map<std::string_view, std::vector<int>>;
  gUnits within_;                                     // by the names of the scopes
  gUnits specialisations_;                            // by the names of the templates
  std::unordered_map<std::string_view, int> names_;   // units, the first of each name
  std::unordered_map<std::string_view, int> heads_;   // scopes and classes that begin pages
  std::unordered_map<int, std::vector<int>> pages_;   // by the scopes
  std::unordered_map<int, std::vector<int>> members_; // by topics
  gFriends friends_;
};

// Whom the classes of a document let in.
#pragma once

#include <functional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "conv/atc/document.h"

// The unit is a class, a structure or the like, of any language.
bool is_class_like(gUnitRecord const & unit);

class gFriends {
public:
  // `shown` tells which units count.
  explicit gFriends(
      gDocument const & document, std::function<bool(int)> shown = [](int) { return true; });

  // Of a class: the types that it names as its friends, then the functions that it declares as
  // such, which stand beside it.
  std::span<int const> of(int unit) const;
  // The friends of a class that aren't in the document, as they are written: "class lib::Other".
  std::vector<std::string_view> strange(int unit) const;

private:
  gUnitRecord const & record(int unit) const {
    return document_.units[static_cast<std::size_t>(unit)];
  }
  int type(int unit, std::string_view written) const;
  void find_functions();

  gDocument const & document_;
  std::function<bool(int)> shown_;
  std::unordered_map<int, std::vector<int>> friends_; // by classes
};

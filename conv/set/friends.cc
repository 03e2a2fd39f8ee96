// Types are found as the class would find them; a function belongs to a namespace by its name, so
// the lines tell which class declares it.
#include "conv/set/friends.h"

#include <algorithm>
#include <tuple>

bool is_class_like(gUnitRecord const & unit) {
  for (std::string_view const kind : {"class", "struct", "union", "interface", "record", "object",
                                      "dispinterface", "class helper", "record helper"})
    if (unit.facts.kind == kind)
      return true;
  return false;
}

gFriends::gFriends(gDocument const & document, std::function<bool(int)> shown)
    : document_(document),
      shown_(std::move(shown)) {
  for (int i = 0; i < static_cast<int>(document_.units.size()); ++i)
    for (std::string const & written : record(i).facts.friends)
      if (int const other = shown_(i) ? type(i, written) : -1; other >= 0 && other != i)
        friends_[i].push_back(other);
  find_functions();
}

// "class lib::B<T>" names "lib::B". Of a template's own parameter nobody knows what it stands for.
int gFriends::type(int unit, std::string_view written) const {
  for (std::string_view const key : {"class ", "struct ", "union ", "enum ", "typename ", "::"})
    if (written.starts_with(key))
      written.remove_prefix(key.size());
  std::string_view const name = written.substr(0, written.find_first_of("< "));
  std::string_view const head = record(unit).facts.template_head.of(record(unit).declaration);
  bool const bound = head.find(" " + std::string(name)) != head.npos;
  int const found = bound ? -1 : document_.find_word(unit, name);
  return found >= 0 && shown_(found) ? found : -1;
}

// The class is the innermost one whose lines are around it.
void gFriends::find_functions() {
  std::vector<int> found; // classes and friends
  for (int i = 0; i < static_cast<int>(document_.units.size()); ++i)
    if (shown_(i) && (is_class_like(record(i)) || record(i).facts.kind == "friend"))
      found.push_back(i);
  std::ranges::stable_sort(found, {}, [&](int i) {
    gUnitRecord const & unit = record(i);
    return std::tuple(std::string_view(unit.path), unit.source_line, !is_class_like(unit));
  });
  std::vector<int> around;
  for (int const i : found) {
    gUnitRecord const & unit = record(i);
    while (!around.empty() && (record(around.back()).path != unit.path ||
                               record(around.back()).facts.end_line < unit.source_line))
      around.pop_back();
    if (is_class_like(unit))
      around.push_back(i);
    else if (!around.empty())
      friends_[around.back()].push_back(i);
  }
}

std::span<int const> gFriends::of(int unit) const {
  auto const found = friends_.find(unit);
  return found == friends_.end() ? std::span<int const>() : std::span<int const>(found->second);
}

std::vector<std::string_view> gFriends::strange(int unit) const {
  std::vector<std::string_view> strange;
  for (std::string const & written : record(unit).facts.friends)
    if (type(unit, written) < 0)
      strange.push_back(written);
  return strange;
}

// Edit distances in a table of three rows. Only short names are compared: nobody mistypes a long
// one into another.
#include "vlb/nearest.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t longest = 64;

std::size_t distance(std::string_view a, std::string_view b) {
  using Row = std::array<std::size_t, longest + 1>;
  Row before{}, last{}, row{};
  for (std::size_t j = 0; j <= b.size(); ++j)
    last[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      std::size_t const changed = last[j - 1] + (a[i - 1] != b[j - 1]);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, changed});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        row[j] = std::min(row[j], before[j - 2] + 1);
    }
    before = last;
    last = row;
  }
  return last[b.size()];
}

} // namespace

std::string Vlb::nearest(std::string_view word, std::vector<std::string> const & names) {
  std::string found;
  if (word.empty() || word.size() > longest)
    return found;
  std::size_t least = 1 + std::max<std::size_t>(1, word.size() / 3);
  for (std::string const & name : names) {
    std::size_t const far = name.size() > longest ? least : distance(word, name);
    if (far < least && far < name.size()) {
      least = far;
      found = name;
    }
  }
  return found;
}

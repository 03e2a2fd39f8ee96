// First the columns that say how wide they are, then those that take what is left.

#include "conv/rtf/rtf_columns.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <numeric>

#include "conv/rtf/rtf_text.h"

namespace {

constexpr int least = 400; // twips; a column of less can't be read
constexpr std::size_t most_columns = 63;

// -1 for a column that takes a share of the rest.
int stated_width(std::string_view text, int space) {
  if (!text.ends_with('%'))
    return text.empty() ? -1 : Rtf::twips(text);
  double part = 0;
  std::from_chars(text.data(), text.data() + text.size(), part);
  return part > 0 && part <= 1000 ? static_cast<int>(space * part / 100) : -1;
}

} // namespace

std::vector<int> Rtf::column_ends(gTableShape const & shape, int left, int right) {
  std::size_t const count = std::min(shape.columns, most_columns);
  int const space = std::max(right - left, least);
  std::vector<std::int64_t> widths;
  for (std::size_t c = 0; c < count; ++c)
    widths.push_back(stated_width(shape.width(c), space));
  auto const open = std::ranges::count(widths, -1);
  std::int64_t const taken = std::accumulate(widths.begin(), widths.end(), open);
  for (std::int64_t & width : widths)
    width = width < 0 ? std::max<std::int64_t>((space - taken) / open, least) : width;
  std::int64_t const all = std::accumulate(widths.begin(), widths.end(), std::int64_t{0});
  std::vector<int> ends;
  std::int64_t sum = 0;
  for (std::int64_t const width : widths) {
    sum += width;
    int const end = left + static_cast<int>(all > space ? sum * space / all : sum);
    ends.push_back(std::max(end, ends.empty() ? left + 1 : ends.back() + 1));
  }
  return ends;
}

#include <algorithm>

#include "ana/decl/cpp_tokens.h"

namespace Decl {

gLines::gLines(std::string_view text) {
  begins_.push_back(0);
  for (std::size_t at = text.find('\n'); at != text.npos; at = text.find('\n', at + 1))
    begins_.push_back(static_cast<std::uint32_t>(at + 1));
}

std::uint32_t gLines::line(std::uint32_t position) const {
  auto from = begins_.begin(), to = begins_.end();
  if (begins_[last_] <= position) {
    from += static_cast<std::ptrdiff_t>(last_);
    for (int near = 0; near < 8; ++near)
      if (from + 1 == to || from[1] > position) {
        last_ = static_cast<std::size_t>(from - begins_.begin());
        return static_cast<std::uint32_t>(last_ + 1);
      } else
        ++from;
  }
  auto const found = std::upper_bound(from, to, position);
  last_ = static_cast<std::size_t>(found - begins_.begin()) - 1;
  return static_cast<std::uint32_t>(last_ + 1);
}

std::uint32_t gLines::column(std::uint32_t position) const {
  return position - begins_[line(position) - 1] + 1;
}

} // namespace Decl

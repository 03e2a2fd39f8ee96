// A number that stands for bytes: equal bytes have the same, others another one. Not made against
// people who look for two texts with one number.
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

struct gContentHash {
  std::uint64_t first = 0, second = 0;

  auto operator<=>(gContentHash const &) const = default;
  // 32 hexadecimal digits.
  std::string text() const;
};

namespace Vlb {
// `before`: of what stands in front, so that parts can be taken together.
gContentHash content_hash(std::string_view bytes, gContentHash before = {});
} // namespace Vlb

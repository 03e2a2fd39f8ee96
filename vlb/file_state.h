// What the system tells of a file without opening it.
#pragma once

#include <compare>
#include <cstdint>
#include <string>

struct stat;

// Zeros for what isn't there. Times are nanoseconds since 1970.
struct gFileState {
  std::uint64_t device = 0, inode = 0, mode = 0, size = 0;
  std::int64_t written = 0, changed = 0; // the bytes; anything about the file

  auto operator<=>(gFileState const &) const = default;
  bool exists() const { return mode != 0; }
  // The bits that tell a file from a folder; 0 for what isn't there.
  unsigned kind() const;

  static gFileState of(struct stat const & info);
  static gFileState of(std::string const & path);      // links are followed
  static gFileState of_link(std::string const & path); // they aren't
};

namespace Vlb {
std::int64_t now_in_nanoseconds();

// True if the file may be written again without another time: clocks of file systems go in steps,
// of a few milliseconds on most, of two seconds on some. `margin` is the longest of small steps.
bool is_young(gFileState const & state, std::int64_t now, std::int64_t margin);
} // namespace Vlb

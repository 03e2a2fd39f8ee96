// Files that only save time, with the user's caches: whatever is lost, damaged or made by another
// version is as if it had never been there.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "vlb/gpathstring.h"

class gCacheFolder {
public:
  static constexpr std::uint64_t usual_limit = std::uint64_t(128) << 20; // bytes

  // A folder below $XDG_CACHE_HOME/vellumar, or ~/.cache/vellumar. `form` tells versions apart:
  // entries of another one aren't read.
  gCacheFolder(std::string const & name, std::string form, std::uint64_t limit = usual_limit);

  // Nothing if there is no such entry, or not a sound one.
  std::optional<std::string> read(std::string const & entry) const;
  // Replaces the entry as a whole, and removes the oldest ones of all until the rest is within the
  // limit. A cache that can't be written is none.
  void write(std::string const & entry, std::string_view bytes) const;

private:
  std::string sealed(std::string_view bytes) const;
  void remove_oldest() const;

  gPathstring folder_; // empty if the user has none
  std::string form_;
  std::uint64_t limit_;
};

// A compact table from texts to numbers that keeps no text: its user compares what it finds.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

class gHashIndex {
public:
  struct Entry {
    std::uint64_t hash;
    int id;
    friend auto operator<=>(Entry const &, Entry const &) = default;
  };

  static constexpr std::uint64_t start = 0xCBF29CE484222325u;
  // From the back, so that one walk gives the hashes of all tails of a name.
  static std::uint64_t add(std::uint64_t hash, char c) {
    return (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
  }
  static std::uint64_t add(std::uint64_t hash, std::string_view text) {
    for (std::size_t i = text.size(); i-- > 0;)
      hash = add(hash, text[i]);
    return hash;
  }

  void enter(std::uint64_t hash, int id) { entries_.push_back({hash, id}); }
  void sort() {
    std::sort(entries_.begin(), entries_.end());
    entries_.shrink_to_fit();
  }
  // The entries of a hash, in the order of their numbers.
  std::span<Entry const> find(std::uint64_t hash) const {
    auto const first = std::lower_bound(entries_.begin(), entries_.end(), Entry{hash, INT32_MIN});
    auto last = first;
    if (first != entries_.end() && first->hash == hash)
      last = std::upper_bound(first, entries_.end(), Entry{hash, INT32_MAX});
    return {first, last};
  }

private:
  std::vector<Entry> entries_;
};

// The two directions of facts as bytes. Both have the same operations, so that one description of a
// record serves to write and to read it.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "vlb/gsrcfile.h"
#include "vlb/gstrlist.h"

namespace Facts {

// Numbers have seven bits a byte. A text is written once, with its mark, and stands as its number
// from then on.
class gWriter {
public:
  static constexpr bool reads = false;

  void bits(std::uint64_t value);
  void number(int value) { bits(static_cast<std::uint32_t>(value << 1 ^ value >> 31)); }
  void flag(bool value) { bits(value); }
  // The text has to outlive the writer.
  void text(std::string_view value) { shared_text(value, 0); }
  void pieces(gStrList const & list);
  template <class List, class Item> void many(List const & list, Item item) {
    bits(list.size());
    for (auto const & one : list)
      item(one);
  }
  void require(bool) {}

  std::string const & bytes() const { return bytes_; }

private:
  void shared_text(std::string_view text, unsigned char mark);

  std::string bytes_;
  // Of the facts, which outlive it. Few texts have a mark, and those are looked up by it first.
  std::map<unsigned char, std::unordered_map<std::string_view, std::size_t>> texts_;
  std::size_t count_ = 0; // of all texts
};

// What can't be read is a default value, and good() is false from then on.
class gReader {
public:
  static constexpr bool reads = true;

  explicit gReader(std::string_view bytes) : rest_(bytes) {}

  template <class T> void bits(T & value) { value = static_cast<T>(next()); }
  void number(int & value) {
    auto const bits = static_cast<std::uint32_t>(next());
    value = static_cast<int>(bits >> 1 ^ (0u - (bits & 1)));
  }
  void flag(bool & value) { value = next() != 0; }
  void text(std::string & value) { value = *shared_text(); }
  void pieces(gStrList & list);
  template <class List, class Item> void many(List & list, Item item) {
    for (std::size_t n = count(); n > 0 && good_; --n)
      item(list.emplace_back());
  }
  cRef<gString> const & shared_text();
  // What the rest of the program relies on.
  void require(bool holds) { good_ = good_ && holds; }

  bool good() const { return good_; }
  bool at_end() const { return rest_.empty(); }

private:
  std::uint64_t next();
  // Each of the things that are counted takes a byte at least.
  std::size_t count();

  std::string_view rest_;
  bool good_ = true;
  std::vector<cRef<gString>> texts_;
  cRef<gString> const empty_ = make_ref<gString>();
};

} // namespace Facts

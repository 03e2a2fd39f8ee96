// Few entries are searched one by one; from a dozen on there is an index by hash. Erasing moves
// positions, so it builds the index anew.
#include "store/cattrhash.h"

#include <algorithm>
#include <charconv>
#include <functional>

#include "store/cobj.h"

namespace {

constexpr std::size_t unindexed = 12;

std::uint32_t hash_text(std::string_view key) {
  return static_cast<std::uint32_t>(std::hash<std::string_view>()(key));
}
// The upper bits come down, so that keys with common lower bits spread too.
std::uint32_t hash_number(int key) {
  std::uint32_t const hash = static_cast<std::uint32_t>(key) * 2654435769u;
  return hash ^ (hash >> 16);
}
std::uint32_t hash_key(cKey const & key) {
  return key.is_number ? hash_number(key.number) : hash_text(key.text);
}

// -1 if the text isn't exactly the form of a number from 0 on.
int plain_number(std::string_view text) {
  int number = -1;
  auto const end = text.data() + text.size();
  auto const result = std::from_chars(text.data(), end, number);
  bool const whole = result.ec == std::errc() && result.ptr == end;
  bool const plain = whole && (text == "0" || (text[0] != '0' && text[0] != '-'));
  return plain ? number : -1;
}

bool key_less(cAttrNode const & a, cAttrNode const & b) {
  if (a.key_.is_number != b.key_.is_number)
    return a.key_.is_number;
  return a.key_.is_number ? a.key_.number < b.key_.number : a.key_.text < b.key_.text;
}

} // namespace

template <class Equal> int cAttrHash::find_hashed(std::uint32_t hash, Equal const & equal) const {
  if (index_.empty()) {
    auto const it = std::find_if(nodes_.begin(), nodes_.end(),
                                 [&](cAttrNode const & node) { return equal(node.key_); });
    return it == nodes_.end() ? -1 : static_cast<int>(it - nodes_.begin());
  }
  std::size_t const mask = index_.size() - 1;
  for (std::size_t i = hash & mask; index_[i]; i = (i + 1) & mask)
    if (equal(nodes_[index_[i] - 1].key_))
      return static_cast<int>(index_[i] - 1);
  return -1;
}

int cAttrHash::find(std::string_view key) const {
  int const position = find_text(key);
  if (position >= 0)
    return position;
  int const number = plain_number(key);
  return number < 0 ? -1 : find(number);
}

int cAttrHash::find(int key) const {
  if (vector_)
    return key >= 0 && key < size() ? key : -1;
  return find_hashed(hash_number(key),
                     [&](cKey const & k) { return k.is_number && k.number == key; });
}

int cAttrHash::find_text(std::string_view key) const {
  if (vector_)
    return -1;
  return find_hashed(hash_text(key), [&](cKey const & k) { return !k.is_number && k.text == key; });
}

int cAttrHash::insert(cKey const & key) {
  if (vector_) {
    int const number = key.is_number ? key.number : plain_number(key.text);
    if (number < 0)
      return append();
    while (size() <= number)
      append();
    return number;
  }
  int const position = find(key);
  if (position >= 0)
    return position;
  nodes_.push_back({key, nullptr});
  if (key.is_number && key.number >= next_number_)
    next_number_ = key.number + (key.number < INT32_MAX ? 1 : 0);
  add_to_index(size() - 1);
  return size() - 1;
}

int cAttrHash::append() {
  if (!vector_)
    return insert(cKey(next_number_));
  nodes_.push_back({cKey(size()), nullptr});
  return size() - 1;
}

void cAttrHash::erase(int first, int last) {
  first = std::clamp(first, 0, size());
  last = std::clamp(last, first, size());
  nodes_.erase(nodes_.begin() + first, nodes_.begin() + last);
  renumber(first);
}

void cAttrHash::renumber(int first) {
  if (vector_)
    for (int i = first; i < size(); ++i)
      nodes_[i].key_.number = i;
  rebuild_index();
}

void cAttrHash::clear() {
  nodes_.clear();
  index_.clear();
  next_number_ = 0;
}

void cAttrHash::sort_by_key() {
  if (vector_)
    return;
  std::stable_sort(nodes_.begin(), nodes_.end(), key_less);
  rebuild_index();
}

void cAttrHash::add_to_index(int position) {
  if (vector_ || nodes_.size() <= unindexed)
    return;
  if (nodes_.size() * 2 > index_.size()) {
    rebuild_index();
    return;
  }
  std::size_t const mask = index_.size() - 1;
  std::size_t i = hash_key(nodes_[position].key_) & mask;
  while (index_[i])
    i = (i + 1) & mask;
  index_[i] = static_cast<std::uint32_t>(position) + 1;
}

void cAttrHash::rebuild_index() {
  index_.clear();
  if (vector_ || nodes_.size() <= unindexed)
    return;
  std::size_t slots = 64;
  while (slots < nodes_.size() * 4)
    slots *= 2;
  index_.resize(slots);
  for (int i = 0; i < size(); ++i)
    add_to_index(i);
}

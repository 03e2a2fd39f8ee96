// The entries of a map or vector in their order, with a way to find them by key.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vlb/shared.h"

class cObj;

// A key is a text or a number; "3" and 3 are different keys.
struct cKey {
  cKey() = default;
  explicit cKey(std::string_view text) : text(text) {}
  explicit cKey(int number) : number(number), is_number(true) {}

  bool operator==(cKey const &) const = default;
  std::string as_string() const { return is_number ? std::to_string(number) : text; }

  std::string text;
  int number = 0;
  bool is_number = false;
};

struct cAttrNode {
  cKey const & key() const { return key_; }

  cKey key_;
  cRef<cObj> value;
};

// Entries stand in the order of insertion. In vector behaviour the keys are 0, 1, 2 and so on.
// A look-up allocates nothing. Positions count from 0; -1 stands for "not there".
class cAttrHash {
public:
  void set_vector() { vector_ = true; }
  bool is_vector() const { return vector_; }

  int size() const { return static_cast<int>(nodes_.size()); }
  cAttrNode const & node(int position) const { return nodes_[position]; }
  cAttrNode & node(int position) { return nodes_[position]; }

  // A text of digits also finds a number, if no text of that form is a key.
  int find(std::string_view key) const;
  int find(int key) const;
  int find(cKey const & key) const {
    return key.is_number ? find(key.number) : find_text(key.text);
  }
  // The entry's position; a missing one is made with a null value. A vector grows by null values
  // up to the key; a key that is no number is appended.
  int insert(cKey const & key);
  int append();
  void erase(int first, int last);
  // Removes the entries for which test(entry) is true, with one walk; true if there were any.
  template <class Test> bool erase_if(Test const & test) {
    bool const found = std::erase_if(nodes_, test) > 0;
    if (found)
      renumber(0);
    return found;
  }
  void clear();
  void sort_by_key();

private:
  int find_text(std::string_view key) const;
  template <class Equal> int find_hashed(std::uint32_t hash, Equal const & equal) const;
  // What depends on positions, from `first` on.
  void renumber(int first);
  void add_to_index(int position);
  void rebuild_index();

  std::vector<cAttrNode> nodes_;
  // Position + 1 by hash, open addressing; empty while the entries are few.
  std::vector<std::uint32_t> index_;
  int next_number_ = 0; // above every number key
  bool vector_ = false;
};

// Tables from text to values, iterated in the order of insertion.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <vector>

#include "store/gglobalobj.h"
#include "vlb/gstring.h"

template <class T> struct chash_fun;
template <> struct chash_fun<std::string> {
  // h * 31 ^ c for each byte, in 32 bits; 0 for an empty key.
  std::uint32_t operator()(std::string_view key) const {
    std::uint32_t h = 0;
    for (unsigned char c : key)
      h = h * 31u ^ c;
    return h;
  }
};

template <class T> struct chash_eq {
  bool operator()(std::string_view a, std::string_view b) const { return a == b; }
};

template <class K, class V> struct cHashPair {
  using Key = K;
  using Value = V;
  K key;
  V value;
};

// The smallest prime of a fixed ascending series that is at least `n`; always above 2.
std::size_t hash_new_size(std::size_t n);

// Open addressing with double hashing over an array of pointers to entries. Entries never move,
// so a pointer to a value survives growth. A look-up allocates nothing.
template <class P> class cHashBase {
public:
  struct Entry : P {
    Entry * prev;
    Entry * next;
    Entry ** slot;
    std::uint32_t hash;
  };

  template <class E> class Iterator {
  public:
    explicit Iterator(E * entry) : entry_(entry) {}
    E & operator*() const { return *entry_; }
    E * operator->() const { return entry_; }
    Iterator & operator++() {
      entry_ = entry_->next;
      return *this;
    }
    bool operator==(Iterator const &) const = default;

  private:
    E * entry_;
  };

  Iterator<Entry> begin() { return Iterator<Entry>(head_); }
  Iterator<Entry> end() { return Iterator<Entry>(nullptr); }
  Iterator<Entry const> begin() const { return Iterator<Entry const>(head_); }
  Iterator<Entry const> end() const { return Iterator<Entry const>(nullptr); }
  std::size_t size() const { return count_; }
  bool empty() const { return count_ == 0; }

protected:
  static Entry * freed() { return reinterpret_cast<Entry *>(std::uintptr_t(1)); }
  static bool is_entry(Entry const * slot) { return reinterpret_cast<std::uintptr_t>(slot) > 1; }

  std::vector<Entry *> slots_; // null: empty, freed(): an entry was removed
  Entry * head_ = nullptr;
  Entry * tail_ = nullptr;
  std::size_t count_ = 0; // entries
  std::size_t used_ = 0;  // entries and freed slots
};

template <class P, class HashFun, class Eq> class cHash : public cHashBase<P> {
  using Base = cHashBase<P>;
  using Base::count_;
  using Base::head_;
  using Base::slots_;
  using Base::tail_;
  using Base::used_;
  using typename Base::Entry;

public:
  cHash() = default;
  cHash(cHash const &) = delete;
  cHash & operator=(cHash const &) = delete;
  ~cHash() { clear_entries(); }

protected:
  Entry * find_entry(std::string_view key) const {
    return slots_.empty() ? nullptr : find_entry(key, HashFun()(key));
  }

  // Null if the key is present.
  Entry * insert_entry(std::string_view key, typename P::Value && value) {
    if (slots_.empty())
      slots_.resize(hash_new_size(97 + 1));
    std::uint32_t const hash = HashFun()(key);
    if (find_entry(key, hash))
      return nullptr;
    auto * entry =
        new Entry{{typename P::Key(key), std::move(value)}, tail_, nullptr, nullptr, hash};
    (tail_ ? tail_->next : head_) = entry;
    tail_ = entry;
    place(entry);
    ++count_;
    if (used_ * 100 > slots_.size() * 80)
      rehash();
    return entry;
  }

  void remove_entry(Entry * entry) {
    *entry->slot = Base::freed();
    (entry->prev ? entry->prev->next : head_) = entry->next;
    (entry->next ? entry->next->prev : tail_) = entry->prev;
    --count_;
    delete entry;
  }

  // Removes all entries; the array keeps its size.
  void clear_entries() {
    for (Entry * entry = head_; entry;) {
      Entry * next = entry->next;
      delete entry;
      entry = next;
    }
    head_ = tail_ = nullptr;
    count_ = used_ = 0;
    std::fill(slots_.begin(), slots_.end(), nullptr);
  }

private:
  Entry * find_entry(std::string_view key, std::uint32_t hash) const {
    std::size_t const n = slots_.size();
    std::size_t i = hash % n;
    std::size_t const step = hash % (n - 2) + 1;
    for (; slots_[i]; i = (i + step) % n) {
      Entry * entry = slots_[i];
      if (Base::is_entry(entry) && entry->hash == hash && Eq()(entry->key, key))
        return entry;
    }
    return nullptr;
  }

  // Takes the first empty or freed slot of the entry's sequence.
  void place(Entry * entry) {
    std::size_t const n = slots_.size();
    std::size_t i = entry->hash % n;
    std::size_t const step = entry->hash % (n - 2) + 1;
    while (Base::is_entry(slots_[i]))
      i = (i + step) % n;
    if (!slots_[i])
      ++used_;
    slots_[i] = entry;
    entry->slot = &slots_[i];
  }

  // A larger array, or one of the same size if freed slots fill it.
  void rehash() {
    std::size_t const size =
        count_ * 100 > slots_.size() * 60 ? hash_new_size(slots_.size() + 1) : slots_.size();
    slots_.assign(size, nullptr);
    used_ = 0;
    for (Entry * entry = head_; entry; entry = entry->next)
      place(entry);
  }
};

template <class V>
class gHash : public cHash<cHashPair<gString, V>, chash_fun<std::string>, chash_eq<gString>> {
public:
  using Entry = typename cHashBase<cHashPair<gString, V>>::Entry;

  virtual ~gHash() = default;
  // False, and no change, if the key is present.
  virtual bool insert(std::string_view key, V value) {
    return this->insert_entry(key, std::move(value)) != nullptr;
  }
  virtual bool contains(std::string_view key) const { return this->find_entry(key) != nullptr; }
  // Copies the value to `out`; false if the key isn't there.
  virtual bool find(std::string_view key, V & out) const {
    Entry * entry = this->find_entry(key);
    if (entry)
      out = entry->value;
    return entry != nullptr;
  }
  virtual bool remove(std::string_view key) {
    Entry * entry = this->find_entry(key);
    if (entry)
      this->remove_entry(entry);
    return entry != nullptr;
  }

  // The value in place; null if the key isn't there.
  V * lookup(std::string_view key) {
    Entry * entry = this->find_entry(key);
    return entry ? &entry->value : nullptr;
  }
  V const * lookup(std::string_view key) const {
    Entry * entry = this->find_entry(key);
    return entry ? &entry->value : nullptr;
  }
  // Inserts or replaces.
  void set(std::string_view key, V value) {
    if (V * old = lookup(key))
      *old = std::move(value);
    else
      insert(key, std::move(value));
  }
  void clear() { this->clear_entries(); }
};

// A table of the run: its reset empties it.
template <class V> class gGlobalHash : public gHash<V>, public gGlobalObj {
public:
  void reset() override { this->clear(); }
};

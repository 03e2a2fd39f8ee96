// The words of texts, for the search: files in _search/ that pages load as scripts.
//
//   w-KEY.js    vlSearch.words("KEY", ["basic", "25a,3,1;11z", ...])
//
// Words are runs of letters, digits and "_", in lower case, at least two characters long. A word
// stands in the shard with the longest key that it begins with; keys have two characters or more.
// To find the words that begin with a query, load the shards whose key begins with the query, and
// the one with the longest key that the query begins with. In the name of a file each character of
// a key but a-z and 0-9 is written as "_" and its code point in hexadecimal digits, with a "."
// behind.
//
// The value of a word is a list of fields with ";" between them. A field begins with a digit, its
// weight: 3 the title, 2 the summary, 1 the text. Then the numbers of entries with "," between
// them, in base 36, each as the distance to the one before it. An entry stands in its best field
// only. A field "*" says that further entries have the word, too many to be listed: such a word
// rules out nothing.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "conv/conversion.h"

class gSearchTexts {
public:
  // Of the unit at work; the best weight of a word counts.
  void note(std::string_view text, unsigned weight);
  void finish_unit(int unit);

  // `entries`: the number of the entry of each unit. Gives the keys of the shards.
  std::vector<std::string> write(gConversion & conversion,
                                 std::vector<std::uint32_t> const & entries);

private:
  using gPosting = std::uint64_t; // word, 8 - weight, unit: sorts as they are written

  std::uint32_t number_of(std::string const & word);
  // The value of a word, from its stretch of the postings.
  std::string value_of(std::size_t begin, std::size_t end,
                       std::vector<std::uint32_t> const & entries) const;
  void make_values(std::vector<std::uint32_t> const & entries);
  void write_shards(gConversion & conversion, std::size_t begin, std::size_t end,
                    std::size_t key_length, std::vector<std::string> & keys);
  void write_shard(gConversion & conversion, std::string_view key, std::size_t begin,
                   std::size_t end);

  std::unordered_map<std::string, std::uint32_t> numbers_; // of the words
  std::vector<gPosting> postings_;
  std::unordered_map<std::uint32_t, unsigned> unit_words_;       // of the unit at work
  std::vector<std::pair<std::string_view, std::string>> values_; // of all words, sorted
};

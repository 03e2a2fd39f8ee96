// The words of texts, for the search: files in _search/ that pages load as scripts.
//
//   w-N.js    vlSearch.words(N, ["basic", "25a,3,1;11z", ...])
//
// Words are runs of letters, digits and "_", in lower case, at least two characters long, in the
// byte order of UTF-8. A file takes words up to some size, so that a small library has few files
// and nobody loads much for a word; "shards" in index.js has the first word of each. The words that
// begin with a query stand in the last file whose first word isn't behind the query, and in those
// after it whose first word begins with the query.
//
// The value of a word is a list of fields with ";" between them. A field begins with a digit, its
// weight: 3 the title, 2 the summary, 1 the text. Then the numbers of entries with "," between
// them, in base 36, each as the distance to the one before it. An entry stands in its best field
// only. A field "*" says that further entries have the word, too many to be listed: such a word
// rules out nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "conv/conversion.h"

class gSearchTexts {
public:
  // Of the unit at work; the best weight of a word counts.
  void note(std::string_view text, unsigned weight);
  void finish_unit(int unit);

  // `entries`: the number of the entry of each unit. Gives the first word of each file; the words
  // are those of this object.
  std::vector<std::string_view> write(gConversion & conversion,
                                      std::vector<std::uint32_t> const & entries);

private:
  using gPosting = std::uint64_t; // word, 8 - weight, unit: sorts as they are written

  struct gHash { // finds a word without making a string of it
    using is_transparent = void;
    std::size_t operator()(std::string_view word) const {
      return std::hash<std::string_view>()(word);
    }
  };

  std::uint32_t number_of(std::string_view word);
  // The value of a word, from its stretch of the postings.
  std::string value_of(std::size_t begin, std::size_t end,
                       std::vector<std::uint32_t> const & entries) const;
  void make_values(std::vector<std::uint32_t> const & entries);
  // How large a file may get.
  std::size_t shard_bytes() const;

  std::unordered_map<std::string, std::uint32_t, gHash, std::equal_to<>> numbers_; // of the words
  std::vector<gPosting> postings_;
  std::vector<unsigned> weights_;       // by word, of the unit at work; 0 if it hasn't the word
  std::vector<std::uint32_t> noted_;    // words of the unit at work
  std::vector<std::string_view> words_; // of the text at work
  std::string lower_;                   // the word at work
  std::vector<std::pair<std::string_view, std::string>> values_; // of all words, sorted
};

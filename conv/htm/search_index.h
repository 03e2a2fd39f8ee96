// The data of the search field: files in _search/ that pages load as scripts when someone searches,
// so that it works without a server. Each file is one call of a function of the page's script:
//
//   index.js    vlSearch.start({"units": 4711, "block": 128, "kinds": [["class", "class"], ...],
//                               "shards": ["ab", "ac", "bas", ...]})
//   w-KEY.js    vlSearch.words("KEY", {"basic": "5a,3,1;1z", ...})
//   b-N.js      vlSearch.block(N, [[name, scope, kind, address, place, summary], ...])
//
// Units have numbers from 0; unit u is entry u % 128 of block u / 128. In a block `kind` is an
// index into "kinds", which gives the word to show and the class for the style sheet; kind 0 is
// empty. `address` is relative to the start page, `place` is "path:line" or empty.
//
// Words are runs of letters, digits and "_", in lower case, at least two characters long. A word
// stands in the shard with the longest key that it begins with; keys have two characters or more.
// To find the words that begin with a query, load the shards whose key begins with the query, and
// the one with the longest key that the query begins with. In the name of a file each character of
// a key but a-z and 0-9 is written as "_" and its code point in hexadecimal digits, with a "."
// behind.
//
// The value of a word is a list of fields with ";" between them. A field begins with a digit, its
// weight: 5 the last part of a name, 4 a piece of that ("camelCase", "snake_case"), 3 another part
// of the name, or the title, 2 the summary, 1 the text. Then the numbers of units with "," between
// them, in base 36, each as the distance to the one before it. A unit stands in its best field
// only. A field
// "*" says that further units have the word, in their scope or text, too many to be listed: such a
// word rules out no unit.
#pragma once

#include <cstdint>
#include <unordered_map>

#include "conv/conversion.h"
#include "conv/htm/site.h"

class gSearchIndex {
public:
  explicit gSearchIndex(gSite const & site) : site_(site) {}

  // A unit with the plain text of its content. Units come in the order of the document.
  void add(int unit, std::string_view text);
  void write(gConversion & conversion);

private:
  using gPosting = std::uint64_t; // word, 8 - weight, unit: sorts as they are written
  using gUnitWords = std::unordered_map<std::uint32_t, unsigned>;

  std::uint32_t number_of(std::string const & word);
  void note(std::string_view text, unsigned weight);
  void note_name(std::string_view name);
  // The value of a word, from its stretch of the postings.
  std::string value_of(std::size_t begin, std::size_t end) const;
  void write_words(gConversion & conversion, std::vector<std::string> & keys);
  void write_shards(gConversion & conversion, std::size_t begin, std::size_t end,
                    std::size_t key_length, std::vector<std::string> & keys);
  void write_shard(gConversion & conversion, std::string_view key, std::size_t begin,
                   std::size_t end);
  void write_blocks(gConversion & conversion) const;
  void write_start(gConversion & conversion, std::vector<std::string> const & keys) const;

  gSite const & site_;
  std::unordered_map<std::string, std::uint32_t> numbers_; // of the words
  std::vector<gPosting> postings_;
  gUnitWords unit_words_;                                        // of the unit at work
  std::vector<std::pair<std::string_view, std::string>> values_; // of all words, sorted
};

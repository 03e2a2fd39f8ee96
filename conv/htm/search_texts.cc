// Words are numbered as they come and postings are plain numbers, so that a large site needs little
// memory; sorted, they are in the order in which they are written.

#include "conv/htm/search_texts.h"

#include <algorithm>

#include "conv/htm/search_code.h"
#include "conv/htm/search_words.h"
#include "conv/htm/slug.h"

namespace {

constexpr std::size_t shard_bytes = 50000;  // beyond them, shards of longer keys
constexpr std::size_t most_postings = 2500; // of one word

constexpr int unit_bits = 28, weight_bits = 4;

std::uint32_t word_of(std::uint64_t posting) {
  return static_cast<std::uint32_t>(posting >> (unit_bits + weight_bits));
}
unsigned weight_of(std::uint64_t posting) {
  return 8 - static_cast<unsigned>(posting >> unit_bits & ((1U << weight_bits) - 1));
}
std::uint32_t unit_of(std::uint64_t posting) {
  return static_cast<std::uint32_t>(posting & ((1U << unit_bits) - 1));
}

// The first characters of a word, or all of it.
std::string_view key_of(std::string_view word, std::size_t characters) {
  std::size_t pos = 0;
  for (std::size_t i = 0; i < characters && pos < word.size(); ++i)
    Slug::next_code_point(word, pos);
  return word.substr(0, pos);
}

std::size_t characters_of(std::string_view word) {
  std::size_t count = 0;
  for (std::size_t pos = 0; pos < word.size(); ++count)
    Slug::next_code_point(word, pos);
  return count;
}

std::string file_of(std::string_view key) {
  std::string name = "_search/w-";
  for (std::size_t pos = 0; pos < key.size();) {
    char32_t const code = Slug::next_code_point(key, pos);
    if (code < 128 && Vlb::is_word(static_cast<char>(code)) && code != '_') {
      name += static_cast<char>(code);
    } else {
      name += '_';
      SearchCode::add_number(static_cast<std::uint32_t>(code), name, 16);
      name += '.';
    }
  }
  return name + ".js";
}

} // namespace

std::uint32_t gSearchTexts::number_of(std::string const & word) {
  return numbers_.try_emplace(word, static_cast<std::uint32_t>(numbers_.size())).first->second;
}

void gSearchTexts::note(std::string_view text, unsigned weight) {
  std::vector<std::string_view> words;
  SearchWords::split(text, words);
  for (std::string_view const word : words) {
    unsigned & best = unit_words_[number_of(SearchWords::lower(word))];
    best = std::max(best, weight);
  }
}

void gSearchTexts::finish_unit(int unit) {
  for (auto const & [word, weight] : unit_words_)
    postings_.push_back(std::uint64_t(word) << (unit_bits + weight_bits) |
                        std::uint64_t(8 - weight) << unit_bits | static_cast<unsigned>(unit));
  unit_words_.clear();
}

std::vector<std::string> gSearchTexts::write(gConversion & conversion,
                                             std::vector<std::uint32_t> const & entries) {
  make_values(entries);
  std::vector<std::string> keys;
  for (std::size_t begin = 0, end = 0; begin < values_.size(); begin = end) {
    std::string_view const key = key_of(values_[begin].first, 2);
    while (end < values_.size() && key_of(values_[end].first, 2) == key)
      ++end;
    write_shards(conversion, begin, end, 2, keys);
  }
  return keys;
}

std::string gSearchTexts::value_of(std::size_t begin, std::size_t end,
                                   std::vector<std::uint32_t> const & entries) const {
  // Words that stand in many texts are of no use in the lists of texts.
  std::size_t const common = std::max<std::size_t>(200, entries.size() / 16);
  auto const first_of_texts =
      std::ranges::find_if(postings_.begin() + static_cast<std::ptrdiff_t>(begin),
                           postings_.begin() + static_cast<std::ptrdiff_t>(end),
                           [](gPosting posting) { return weight_of(posting) <= 2; });
  auto const titles_end = static_cast<std::size_t>(first_of_texts - postings_.begin());
  std::size_t listed = end - titles_end > common ? titles_end : end;
  listed = std::min(listed, begin + most_postings);
  std::string value;
  unsigned weight = 0;
  std::uint32_t before = 0;
  for (std::size_t i = begin; i < listed; ++i) {
    if (weight_of(postings_[i]) != weight) {
      weight = weight_of(postings_[i]);
      before = 0;
      value += value.empty() ? "" : ";";
      value += static_cast<char>('0' + weight);
    } else {
      value += ',';
    }
    std::uint32_t const entry = entries[unit_of(postings_[i])];
    SearchCode::add_number(entry - before, value);
    before = entry;
  }
  if (listed < end)
    value += value.empty() ? "*" : ";*";
  return value;
}

void gSearchTexts::make_values(std::vector<std::uint32_t> const & entries) {
  std::ranges::sort(postings_);
  std::vector<std::string_view> names(numbers_.size());
  for (auto const & [word, number] : numbers_)
    names[number] = word;
  for (std::size_t begin = 0, end = 0; begin < postings_.size(); begin = end) {
    while (end < postings_.size() && word_of(postings_[end]) == word_of(postings_[begin]))
      ++end;
    values_.emplace_back(names[word_of(postings_[begin])], value_of(begin, end, entries));
  }
  postings_ = {};
  std::ranges::sort(values_);
}

// The words [begin, end) have their first `key_length` characters in common.
void gSearchTexts::write_shards(gConversion & conversion, std::size_t begin, std::size_t end,
                                std::size_t key_length, std::vector<std::string> & keys) {
  std::size_t bytes = 0;
  for (std::size_t i = begin; i < end; ++i)
    bytes += values_[i].first.size() + values_[i].second.size() + 6;
  std::string_view const key = key_of(values_[begin].first, key_length);
  if (bytes <= shard_bytes || end - begin == 1) {
    keys.emplace_back(key);
    return write_shard(conversion, key, begin, end);
  }
  // The word that is the key itself comes first.
  if (characters_of(values_[begin].first) == key_length) {
    keys.emplace_back(key);
    write_shard(conversion, key, begin, begin + 1);
    ++begin;
  }
  for (std::size_t stop = begin; begin < end; begin = stop) {
    std::string_view const longer = key_of(values_[begin].first, key_length + 1);
    while (stop < end && key_of(values_[stop].first, key_length + 1) == longer)
      ++stop;
    write_shards(conversion, begin, stop, key_length + 1, keys);
  }
}

void gSearchTexts::write_shard(gConversion & conversion, std::string_view key, std::size_t begin,
                               std::size_t end) {
  std::string text = "vlSearch.words(";
  SearchCode::add_quoted(key, text);
  // A list, since in an object "__proto__" would be no word.
  text += ", [";
  for (std::size_t i = begin; i < end; ++i) {
    text += i > begin ? ",\n" : "\n";
    SearchCode::add_quoted(values_[i].first, text);
    text += ',';
    SearchCode::add_quoted(values_[i].second, text);
  }
  text += "\n]);\n";
  conversion.write(file_of(key), text);
}

// Words are numbered as they come and postings are plain numbers, so that a large site needs little
// memory; sorted, they are in the order in which they are written. Files are cut by size alone:
// one for each beginning of a word would make hundreds of some bytes, and a file costs more than
// what stands in it.

#include "conv/htm/search_texts.h"

#include <algorithm>
#include <utility>

#include "conv/htm/search_code.h"
#include "conv/htm/search_words.h"

namespace {

constexpr std::size_t least_shard = 24000, most_shard = 80000; // bytes
constexpr std::size_t shards_wanted = 200;  // of these sizes the one that makes no more files
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

std::size_t bytes_of(std::pair<std::string_view, std::string> const & value) {
  return value.first.size() + value.second.size() + 6; // quotes, a comma and a line feed
}

} // namespace

std::uint32_t gSearchTexts::number_of(std::string_view word) {
  if (auto const known = numbers_.find(word); known != numbers_.end())
    return known->second;
  weights_.push_back(0);
  return numbers_.emplace(word, static_cast<std::uint32_t>(numbers_.size())).first->second;
}

void gSearchTexts::note(std::string_view text, unsigned weight) {
  SearchWords::split(text, words_);
  for (std::string_view const word : words_) {
    SearchWords::lower(word, lower_);
    std::uint32_t const number = number_of(lower_);
    if (weights_[number] == 0)
      noted_.push_back(number);
    weights_[number] = std::max(weights_[number], weight);
  }
}

void gSearchTexts::finish_unit(int unit) {
  for (std::uint32_t const word : noted_)
    postings_.push_back(std::uint64_t(word) << (unit_bits + weight_bits) |
                        std::uint64_t(8 - std::exchange(weights_[word], 0)) << unit_bits |
                        static_cast<unsigned>(unit));
  noted_.clear();
}

std::size_t gSearchTexts::shard_bytes() const {
  std::size_t bytes = 0;
  for (auto const & value : values_)
    bytes += bytes_of(value);
  return std::clamp(bytes / shards_wanted, least_shard, most_shard);
}

// A list, since in an object "__proto__" would be no word.
std::vector<std::string_view> gSearchTexts::write(gConversion & conversion,
                                                  std::vector<std::uint32_t> const & entries) {
  make_values(entries);
  std::size_t const most = shard_bytes();
  std::vector<std::string_view> first_words;
  for (std::size_t begin = 0, end = 0; begin < values_.size(); begin = end) {
    std::string const number = std::to_string(first_words.size());
    std::string text = "vlSearch.words(" + number + ",[";
    do {
      text += end > begin ? ",\n" : "\n";
      SearchCode::add_quoted(values_[end].first, text);
      text += ',';
      SearchCode::add_quoted(values_[end].second, text);
      ++end;
    } while (end < values_.size() && text.size() + bytes_of(values_[end]) <= most);
    text += "\n]);\n";
    conversion.write("_search/w-" + number + ".js", text);
    first_words.push_back(values_[begin].first);
  }
  return first_words;
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

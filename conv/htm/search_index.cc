// Words are numbered as they come and postings are plain numbers, so that a large site needs little
// memory; sorted, they are in the order in which they are written.

#include "conv/htm/search_index.h"

#include <algorithm>
#include <charconv>

#include "conv/atc/qualified_name.h"
#include "conv/htm/search_words.h"
#include "conv/htm/slug.h"

namespace {

constexpr std::size_t block_size = 128;
constexpr std::size_t shard_bytes = 50000;  // beyond them, shards of longer keys
constexpr std::size_t most_postings = 2500; // of one word
constexpr std::size_t name_bytes = 160, summary_bytes = 110;

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

void add_number(std::uint32_t number, int base, std::string & out) {
  char text[16];
  out.append(text, std::to_chars(text, text + sizeof text, number, base).ptr);
}

void add_quoted(std::string_view text, std::string & out) {
  out += '"';
  for (char const c : text)
    if (c == '"' || c == '\\')
      (out += '\\') += c;
    else if (static_cast<unsigned char>(c) < 32)
      out += ' ';
    else
      out += c;
  out += '"';
}

std::string_view cut(std::string_view text, std::size_t length) {
  if (text.size() <= length)
    return text;
  while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xc0) == 0x80)
    --length;
  return text.substr(0, length);
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
      add_number(static_cast<std::uint32_t>(code), 16, name);
      name += '.';
    }
  }
  return name + ".js";
}

} // namespace

std::uint32_t gSearchIndex::number_of(std::string const & word) {
  return numbers_.try_emplace(word, static_cast<std::uint32_t>(numbers_.size())).first->second;
}

void gSearchIndex::note(std::string_view text, unsigned weight) {
  std::vector<std::string_view> words;
  SearchWords::split(text, words);
  for (std::string_view const word : words) {
    unsigned & best = unit_words_[number_of(SearchWords::lower(word))];
    best = std::max(best, weight);
  }
}

void gSearchIndex::note_name(std::string_view name) {
  note(Atc::scope_of(name), 3);
  std::string_view const last = Atc::last_component(name);
  note(last, 5);
  std::vector<std::string_view> words, pieces;
  SearchWords::split(last, words);
  for (std::string_view const word : words) {
    SearchWords::split_name(word, pieces);
    for (std::string_view const piece : pieces)
      note(piece, 4);
  }
}

void gSearchIndex::add(int unit, std::string_view text) {
  gUnitRecord const & record = site_.unit(unit);
  unit_words_.clear();
  note_name(record.name);
  if (record.title != record.name)
    note(record.title, record.name.empty() ? 5 : 3);
  note(record.summary, 2);
  note(text, 1);
  for (auto const & [word, weight] : unit_words_)
    postings_.push_back(std::uint64_t(word) << (unit_bits + weight_bits) |
                        std::uint64_t(8 - weight) << unit_bits | static_cast<unsigned>(unit));
}

void gSearchIndex::write(gConversion & conversion) {
  std::vector<std::string> keys;
  std::ranges::sort(postings_);
  write_words(conversion, keys);
  write_blocks(conversion);
  write_start(conversion, keys);
}

std::string gSearchIndex::value_of(std::size_t begin, std::size_t end) const {
  // Words that stand in many texts are of no use in the lists of texts.
  std::size_t const common = std::max<std::size_t>(200, site_.document.units.size() / 16);
  auto const first_of_texts =
      std::ranges::find_if(postings_.begin() + static_cast<std::ptrdiff_t>(begin),
                           postings_.begin() + static_cast<std::ptrdiff_t>(end),
                           [](gPosting posting) { return weight_of(posting) <= 2; });
  auto const names_end = static_cast<std::size_t>(first_of_texts - postings_.begin());
  std::size_t listed = end - names_end > common ? names_end : end;
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
    add_number(unit_of(postings_[i]) - before, 36, value);
    before = unit_of(postings_[i]);
  }
  if (listed < end)
    value += value.empty() ? "*" : ";*";
  return value;
}

void gSearchIndex::write_words(gConversion & conversion, std::vector<std::string> & keys) {
  std::vector<std::string_view> names(numbers_.size());
  for (auto const & [word, number] : numbers_)
    names[number] = word;
  for (std::size_t begin = 0, end = 0; begin < postings_.size(); begin = end) {
    while (end < postings_.size() && word_of(postings_[end]) == word_of(postings_[begin]))
      ++end;
    values_.emplace_back(names[word_of(postings_[begin])], value_of(begin, end));
  }
  postings_ = {};
  std::ranges::sort(values_);
  for (std::size_t begin = 0, end = 0; begin < values_.size(); begin = end) {
    std::string_view const key = key_of(values_[begin].first, 2);
    while (end < values_.size() && key_of(values_[end].first, 2) == key)
      ++end;
    write_shards(conversion, begin, end, 2, keys);
  }
}

// The words [begin, end) have their first `key_length` characters in common.
void gSearchIndex::write_shards(gConversion & conversion, std::size_t begin, std::size_t end,
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

void gSearchIndex::write_shard(gConversion & conversion, std::string_view key, std::size_t begin,
                               std::size_t end) {
  std::string text = "vlSearch.words(";
  add_quoted(key, text);
  // A list, since in an object "__proto__" would be no word.
  text += ", [";
  for (std::size_t i = begin; i < end; ++i) {
    text += i > begin ? ",\n" : "\n";
    add_quoted(values_[i].first, text);
    text += ',';
    add_quoted(values_[i].second, text);
  }
  text += "\n]);\n";
  conversion.write(file_of(key), text);
}

void gSearchIndex::write_blocks(gConversion & conversion) const {
  std::size_t const count = site_.document.units.size();
  for (std::size_t first = 0; first < count; first += block_size) {
    std::string const number = std::to_string(first / block_size);
    std::string text = "vlSearch.block(" + number + ", [";
    for (std::size_t i = first; i < std::min(count, first + block_size); ++i) {
      auto const unit = static_cast<int>(i);
      gUnitRecord const & record = site_.unit(unit);
      text += i > first ? ",\n[" : "\n[";
      add_quoted(cut(Site::short_title(record), name_bytes), text);
      text += ',';
      add_quoted(cut(Atc::scope_of(record), name_bytes), text);
      text += ',' + std::to_string(site_.kinds.index_of(unit)) + ',';
      add_quoted(site_.addresses.href(unit), text);
      text += ',';
      std::string place(site_.sources.shown(record.path));
      if (!place.empty())
        place += ':' + std::to_string(record.source_line);
      add_quoted(place, text);
      text += ',';
      add_quoted(cut(record.summary, summary_bytes), text);
      text += ']';
    }
    text += "\n]);\n";
    conversion.write("_search/b-" + number + ".js", text);
  }
}

void gSearchIndex::write_start(gConversion & conversion,
                               std::vector<std::string> const & keys) const {
  std::string text = "vlSearch.start({\"units\":" + std::to_string(site_.document.units.size()) +
                     ",\"block\":" + std::to_string(block_size) + ",\"kinds\":[";
  for (std::size_t i = 0; i < site_.kinds.all().size(); ++i) {
    text += i > 0 ? ",[" : "[";
    add_quoted(site_.kinds.all()[i].word, text);
    text += ',';
    add_quoted(site_.kinds.all()[i].css, text);
    text += ']';
  }
  text += "],\n\"shards\":[";
  for (std::size_t i = 0; i < keys.size(); ++i) {
    text += i > 0 ? "," : "";
    add_quoted(keys[i], text);
  }
  text += "]});\n";
  conversion.write("_search/index.js", text);
}

// Entries become lines of key and phrase, which are sorted; equal neighbours then share a line.
// Lines are large, and there are several for each unit: what is sorted are their first letters as
// numbers, which tell most of them apart.

#include "conv/set/index_lines.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <tuple>

#include "vlb/gstring.h"

namespace {

struct gLine {
  std::string letter, sort, phrase_sort;
  Index::gWording wording;
  gIndexPlace place;
};

// Signs in front of a name, as in "~gGauge" or "_exit", don't count.
std::string sort_form(std::string_view key) {
  std::size_t first = 0;
  while (first < key.size() && static_cast<unsigned char>(key[first]) < 128 &&
         !Vlb::is_letter(key[first]) && !Vlb::is_digit(key[first]))
    ++first;
  return Vlb::to_lower(key.substr(first == key.size() ? 0 : first));
}

std::string letter_of(std::string const & sort) {
  return !sort.empty() && Vlb::is_letter(sort[0]) ? std::string(1, Vlb::upper(sort[0])) : "#";
}

// The texts with blanks between them, but none in front of punctuation.
std::string joined(std::initializer_list<std::string_view> texts) {
  std::string phrase;
  for (std::string_view const text : texts) {
    if (text.empty())
      continue;
    bool const glued = std::string_view(",.;:!?)]").find(text.front()) != std::string_view::npos ||
                       phrase.ends_with('(') || phrase.ends_with('[');
    if (!phrase.empty() && !glued)
      phrase += ' ';
    phrase += text;
  }
  return phrase;
}

// Signs sort in front of letters, keys that differ in case alone beside each other.
auto order_of(gLine const & line) {
  return std::make_tuple(line.letter != "#", std::string_view(line.sort),
                         std::string_view(line.wording.key), std::string_view(line.phrase_sort),
                         std::string_view(line.wording.phrase));
}

struct gRank {
  std::uint64_t first; // letters
  std::uint32_t line;
};

// Ordered as the beginnings of what order_of() compares.
std::uint64_t first_letters(gLine const & line) {
  std::uint64_t letters = line.letter != "#" ? 1 : 0;
  for (std::size_t i = 0; i < 7; ++i)
    letters = letters << 8 | (i < line.sort.size() ? static_cast<unsigned char>(line.sort[i]) : 0);
  return letters;
}

std::vector<gRank> ranks_of(std::vector<gLine> const & lines) {
  std::vector<gRank> ranks;
  ranks.reserve(lines.size());
  for (gLine const & line : lines)
    ranks.push_back({first_letters(line), static_cast<std::uint32_t>(ranks.size())});
  std::ranges::sort(ranks, [&lines](gRank const & a, gRank const & b) {
    if (a.first != b.first)
      return a.first < b.first;
    auto const one = order_of(lines[a.line]), other = order_of(lines[b.line]);
    return one != other ? one < other : a.line < b.line;
  });
  return ranks;
}

std::vector<gLine> lines_of(gDocument const & document, std::string_view place_holder) {
  std::vector<gLine> lines;
  lines.reserve(document.index_entries.size());
  for (gIndexEntry const & entry : document.index_entries) {
    if (entry.unit < 0)
      continue;
    for (Index::gWording & wording : Index::wordings_of(entry.fields, place_holder)) {
      gLine line;
      line.sort = sort_form(wording.key);
      line.letter = letter_of(line.sort);
      line.phrase_sort = Vlb::to_lower(wording.phrase);
      line.wording = std::move(wording);
      line.place = {entry.unit, entry.label};
      lines.push_back(std::move(line));
    }
  }
  return lines;
}

// The entries of a line come in the order of the document, so those of a unit are neighbours.
void add_place(gIndexPlace & place, std::vector<gIndexPlace> & places) {
  if (places.empty() || places.back().unit != place.unit)
    places.push_back(std::move(place));
}

} // namespace

std::vector<Index::gWording> Index::wordings_of(std::string const (&fields)[5],
                                                std::string_view place_holder) {
  std::string texts[5];
  for (std::size_t i = 0; i < 5; ++i)
    texts[i] = gString(fields[i]).wsp_norm();
  auto const & [before, key, between, second, after] = texts;
  std::vector<gWording> wordings;
  bool const key_alone = before.empty() && between.empty() && second.empty() && after.empty();
  if (!key.empty())
    wordings.push_back(
        {key, key_alone ? std::string() : joined({before, place_holder, between, second, after})});
  if (!second.empty() && second != key)
    wordings.push_back({second, joined({before, key, between, place_holder, after})});
  return wordings;
}

std::vector<gIndexKey> Index::keys_of(gDocument const & document, std::string_view place_holder) {
  std::vector<gIndexKey> keys;
  std::vector<gLine> lines = lines_of(document, place_holder);
  for (gRank const & rank : ranks_of(lines)) {
    gLine & line = lines[rank.line];
    if (keys.empty() || keys.back().text != line.wording.key)
      keys.push_back({line.wording.key, line.letter, {}, {}});
    gIndexKey & key = keys.back();
    if (line.wording.phrase.empty()) {
      add_place(line.place, key.places);
      continue;
    }
    if (key.phrases.empty() || key.phrases.back().text != line.wording.phrase)
      key.phrases.push_back({line.wording.phrase, {}});
    add_place(line.place, key.phrases.back().places);
  }
  return keys;
}

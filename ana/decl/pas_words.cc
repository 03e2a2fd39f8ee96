// A word is found by a hash of its length and three of its letters, so that a name that is no word
// costs one look into the table and seldom a comparison.
#include "ana/decl/pas_words.h"

#include <array>

namespace Decl {

namespace {

struct Row {
  std::string_view spelling;
  std::uint8_t marks;
};

constexpr Row rows[] = {{"", pas_name},
#define VLR_PAS_ROW(word, spelling, marks) {spelling, marks},
                        VLR_PAS_WORDS(VLR_PAS_ROW)
#undef VLR_PAS_ROW
};

constexpr std::size_t longest = 16;
constexpr std::size_t slots = 1024;

constexpr unsigned lower(char c) {
  return static_cast<unsigned char>(c) | 0x20u;
}

constexpr std::size_t slot_of(std::string_view word) {
  std::size_t const last = word.size() - 1;
  return (lower(word[0]) * 31 + lower(word[last / 2 + 1]) * 131 + lower(word[last]) * 7 +
          word.size() * 61) %
         slots;
}

constexpr std::array<std::uint8_t, slots> make_table() {
  std::array<std::uint8_t, slots> table{};
  for (std::size_t row = 1; row < std::size(rows); ++row) {
    std::size_t slot = slot_of(rows[row].spelling);
    while (table[slot] != 0)
      slot = (slot + 1) % slots;
    table[slot] = static_cast<std::uint8_t>(row);
  }
  return table;
}

constexpr std::array<std::uint8_t, slots> table = make_table();

} // namespace

bool same_word(std::string_view text, std::string_view lower_case) {
  if (text.size() != lower_case.size())
    return false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    char const c = text[at];
    if ((c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c) != lower_case[at])
      return false;
  }
  return true;
}

std::string small_letters(std::string_view text) {
  std::string result(text);
  for (char & c : result)
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c + ('a' - 'A'));
  return result;
}

gPasWord pas_word(std::string_view spelling) {
  if (spelling.size() < 2 || spelling.size() > longest)
    return gPasWord::none;
  for (std::size_t slot = slot_of(spelling); table[slot] != 0; slot = (slot + 1) % slots)
    if (same_word(spelling, rows[table[slot]].spelling))
      return static_cast<gPasWord>(table[slot]);
  return gPasWord::none;
}

std::uint8_t pas_word_marks(gPasWord word) {
  return rows[static_cast<std::size_t>(word)].marks;
}

} // namespace Decl

// What the fields of an entry mean to a reader: the first key is where the entry is looked up; if
// there is more, it is a phrase below the key.

#include <algorithm>

#include "conv/htm/index_page.h"
#include "conv/htm/search_words.h"

namespace {

void append_spaced(std::string & phrase, std::string_view text) {
  if (text.empty())
    return;
  constexpr std::string_view no_blank_before = " ,.;:!?)]", no_blank_behind = " ([";
  if (!phrase.empty() && no_blank_before.find(text.front()) == std::string_view::npos &&
      no_blank_behind.find(phrase.back()) == std::string_view::npos)
    phrase += ' ';
  phrase += text;
}

// True if the text has the place holder.
bool fill_in(std::string & text, std::string_view place_holder, std::string_view key) {
  bool found = false;
  if (place_holder.empty())
    return false;
  for (std::size_t at = 0; (at = text.find(place_holder, at)) != std::string::npos;
       at += key.size()) {
    text.replace(at, place_holder.size(), key);
    found = true;
  }
  return found;
}

std::string sort_form(std::string_view key) {
  std::size_t first = 0;
  while (first < key.size() && !Vlb::is_letter(key[first]) && !Vlb::is_digit(key[first]) &&
         static_cast<unsigned char>(key[first]) < 128)
    ++first;
  std::string const form = SearchWords::lower(key.substr(first == key.size() ? 0 : first));
  return Vlb::is_letter(form[0]) ? form : '\1' + form;
}

} // namespace

std::string Index::phrase_of(gIndexEntry const & entry, std::string_view place_holder) {
  std::string texts[5];
  for (std::size_t i = 0; i < 5; ++i)
    texts[i] = gString(entry.fields[i]).wsp_norm();
  std::string const & key = texts[1];
  if (texts[0].empty() && texts[2].empty() && texts[3].empty() && texts[4].empty())
    return {};
  bool placed = false;
  for (std::size_t const i : {0U, 2U, 3U, 4U})
    placed = fill_in(texts[i], place_holder, key) || placed;
  std::string phrase;
  for (std::size_t i = 0; i < 5; ++i)
    if (i != 1 || !placed)
      append_spaced(phrase, texts[i]);
  // What followed the key where it stood.
  return phrase.substr(std::min(phrase.find_first_not_of(" ,;:"), phrase.size()));
}

std::vector<gIndexLine> Index::lines_of(gDocument const & document, gHtmSetter const & setter,
                                        std::string_view place_holder) {
  std::vector<gIndexLine> lines;
  for (gIndexEntry const & entry : document.index_entries) {
    gIndexLine line;
    line.key = gString(entry.fields[1]).wsp_norm();
    if (line.key.empty() || entry.unit < 0)
      continue;
    line.sort = sort_form(line.key);
    line.phrase = phrase_of(entry, place_holder);
    line.unit = entry.unit;
    line.anchor = setter.entry_anchor(entry.label);
    lines.push_back(std::move(line));
  }
  auto const place = [](gIndexLine const & line) {
    return std::tie(line.sort, line.key, line.phrase, line.unit, line.anchor);
  };
  std::ranges::sort(lines, {}, place);
  auto const is_same = [&](gIndexLine const & a, gIndexLine const & b) {
    return place(a) == place(b);
  };
  lines.erase(std::unique(lines.begin(), lines.end(), is_same), lines.end());
  return lines;
}

// Two characters mean something in a keyword: ";" ends it, and the separator divides its levels.
// Both have to go from the texts of entries, or "ns::name" would fall apart.

#include "conv/rtf/help_keywords.h"

#include <set>

#include "conv/set/index_lines.h"
#include "vlb/gstring.h"

namespace {

constexpr char between_keywords = ';';
constexpr std::size_t longest = 250; // help compilers take 255 bytes

char separator_in(std::string_view text) {
  for (char const c : text) {
    bool const usable = c > ' ' && c < 127 && !Vlb::is_word(c) && c != '"';
    if (usable && c != between_keywords)
      return c;
  }
  return ':';
}

} // namespace

gHelpKeywords::gHelpKeywords(std::string_view separator, std::string place_holder)
    : separator_(separator_in(separator)),
      place_holder_(std::move(place_holder)) {}

std::string gHelpKeywords::cleaned(std::string_view text) const {
  gString clean;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (separator_ == ':' && text.substr(i, 2) == "::") {
      clean += '.';
      ++i;
    } else {
      char const c = text[i] == between_keywords ? ',' : text[i];
      clean += c == separator_ ? ' ' : c;
    }
  }
  clean.wsp_norm();
  std::size_t end = std::min(clean.size(), longest / 2);
  while (end < clean.size() && (static_cast<unsigned char>(clean[end]) & 0xC0) == 0x80)
    --end;
  return clean.substr(0, end);
}

std::vector<std::string> gHelpKeywords::of(std::string const (&fields)[5]) const {
  std::vector<std::string> keywords;
  for (Index::gWording const & wording : Index::wordings_of(fields, place_holder_)) {
    std::string keyword = cleaned(wording.key);
    std::string const phrase = cleaned(wording.phrase);
    if (keyword.empty())
      continue;
    if (!phrase.empty())
      (keyword += separator_) += phrase;
    keywords.push_back(std::move(keyword));
  }
  return keywords;
}

std::string gHelpKeywords::joined(std::vector<std::string> const & keywords) {
  std::set<std::string_view> seen;
  std::string all;
  for (std::string const & keyword : keywords) {
    if (!seen.insert(keyword).second)
      continue;
    if (!all.empty())
      all += between_keywords;
    all += keyword;
  }
  return all;
}

// What is written is cut at its commas; the last word of a parameter may be its name or belong to
// the type, so both are tried.
#include "ana/read/written_parameters.h"

#include <algorithm>

#include "ana/read/type_words.h"
#include "vlb/gstring.h"

namespace {

// The texts between the commas of "(a,b<c,d>)", and what stands behind the bracket.
std::vector<std::string_view> parts_of(std::string_view list, std::string_view & behind) {
  std::vector<std::string_view> parts;
  int depth = 0;
  std::size_t begin = 1;
  for (std::size_t i = 0; i < list.size(); ++i) {
    char const c = list[i];
    depth += (c == '(' || c == '<' || c == '[') - (c == ')' || c == '>' || c == ']');
    if (depth == 0 || (depth == 1 && (c == ',' || c == ';'))) {
      parts.push_back(list.substr(begin, i - begin));
      begin = i + 1;
    }
    if (depth == 0)
      break;
  }
  behind = list.substr(std::min(begin, list.size()));
  bool const none =
      parts.size() == 1 && (parts[0].find_first_not_of(' ') == parts[0].npos || parts[0] == "void");
  return none ? std::vector<std::string_view>() : parts;
}

std::string type_of(gTypeWords words, bool pascal) {
  if (!pascal)
    return without_qualifiers(parameter_type(std::move(words)));
  if (auto const colon = std::ranges::find(words, ":"); colon != words.end())
    words.erase(words.begin(), colon + 1);
  return Vlb::to_lower(joined_words(words));
}

bool fits(std::string_view type, std::string_view written, bool pascal) {
  if (type.find('$') != type.npos)
    return true;
  gTypeWords words = type_words(written);
  words.erase(std::ranges::find(words, "="), words.end());
  std::string const wanted = pascal ? std::string(type) : without_qualifiers(type);
  if (type_of(words, pascal) == wanted)
    return true;
  if (words.size() < 2)
    return false;
  words.pop_back();
  return type_of(words, pascal) == wanted;
}

} // namespace

bool fits_parameters(std::string_view signature, std::string_view written, bool pascal) {
  std::string_view qualifiers, wanted;
  auto const types = parts_of(signature.substr(0, signature.find('\n')), qualifiers);
  auto const texts = parts_of(written, wanted);
  if (types.size() != texts.size() ||
      (wanted.find("const") != wanted.npos && qualifiers.find("const") == qualifiers.npos))
    return false;
  for (std::size_t i = 0; i < types.size(); ++i)
    if (!fits(types[i], texts[i], pascal))
      return false;
  return true;
}

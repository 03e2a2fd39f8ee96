// Commas within brackets belong to template arguments.
#include "conv/set/base_list.h"

#include "vlb/gstring.h"

namespace {

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && Vlb::is_space(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && Vlb::is_space(text.back()))
    text.remove_suffix(1);
  return text;
}

bool takes_word(std::string_view & text, std::string_view word) {
  bool const begins = text.starts_with(word) && text.size() > word.size() &&
                      !Vlb::is_word(text[word.size()]) && text[word.size()] != ':';
  if (begins)
    text = trimmed(text.substr(word.size()));
  return begins;
}

gBaseName base_of(std::string_view text) {
  gBaseName base;
  for (bool more = true; more;) {
    more = takes_word(text, "virtual") || takes_word(text, "typename");
    for (std::string_view const access : {"public", "protected", "private"})
      if (takes_word(text, access)) {
        base.access = access;
        more = true;
      }
  }
  if (text.starts_with("::"))
    text.remove_prefix(2);
  std::size_t end = 0;
  while (end < text.size() && (Vlb::is_word(text[end]) || text[end] == ':' || text[end] == '.' ||
                               static_cast<unsigned char>(text[end]) >= 0x80))
    ++end;
  base.name = text.substr(0, end);
  // "Outer<T>::Inner": which of its versions is meant isn't sure.
  std::size_t const last = text.rfind('>');
  if (text.find('<') == end && last != text.npos &&
      text.substr(last + 1).find("::") != std::string_view::npos)
    base.name = {};
  if (base.name.ends_with("...")) // of a pack nobody knows what it holds
    base.name = {};
  return base;
}

} // namespace

std::vector<gBaseName> split_bases(std::string_view text) {
  text = trimmed(text);
  if (text.starts_with('(') && text.ends_with(')'))
    text = text.substr(1, text.size() - 2);
  std::vector<gBaseName> bases;
  int depth = 0;
  std::size_t begin = 0;
  for (std::size_t at = 0; at <= text.size(); ++at) {
    char const c = at < text.size() ? text[at] : ',';
    depth += (c == '<' || c == '(') - (c == '>' || c == ')');
    if (c != ',' || (depth > 0 && at < text.size()))
      continue;
    if (std::string_view const one = trimmed(text.substr(begin, at - begin)); !one.empty())
      bases.push_back(base_of(one));
    begin = at + 1;
  }
  return bases;
}

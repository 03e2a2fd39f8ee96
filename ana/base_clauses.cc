// The clause is text: its commas outside of brackets part the bases.
#include "ana/base_clauses.h"

#include <algorithm>

namespace {

using Decl::gKind;

// Up to the comma behind the first base.
std::string_view first_base(std::string_view bases) {
  int depth = 0;
  for (std::size_t at = 0; at < bases.size(); ++at) {
    char const c = bases[at];
    if (c == ',' && depth == 0)
      return bases.substr(0, at);
    depth += (c == '<' || c == '(' || c == '[') - (c == '>' || c == ')' || c == ']');
  }
  return bases;
}

// Takes the words in front of the base's name.
int take_access(gString & base) {
  constexpr std::pair<std::string_view, int> words[] = {{"public ", access_public},
                                                        {"protected ", access_protected},
                                                        {"private ", access_private},
                                                        {"virtual ", access_virtual},
                                                        {"typename ", 0}};
  auto const in_front = [&](auto const & word) { return base.starts_with(word.first); };
  int access = 0;
  for (auto const * word = std::begin(words);
       (word = std::find_if(std::begin(words), std::end(words), in_front)) != std::end(words);) {
    access |= word->second;
    base.erase(0, word->first.size());
  }
  return access;
}

// "<C>" of "A<B>::T<C>": what the name itself is given.
std::string last_arguments(std::string const & base) {
  int depth = 0;
  std::size_t begin = base.size();
  for (std::size_t at = 0; at < base.size(); ++at) {
    if (base[at] == '<' && depth++ == 0)
      begin = at;
    else if (base[at] == '>')
      --depth;
    else if (depth == 0 && base[at] == ':')
      begin = base.size();
  }
  return base.substr(begin);
}

} // namespace

cRef<gBaseClause> bases_of(gCodeElem const & element, gScopeNames const & names) {
  bool const pascal = element.loc.file().language() == gLanguage::pascal;
  auto clause = make_ref<gBaseClause>();
  for (std::string_view rest = element.heritage; !rest.empty();) {
    std::string_view const first = first_base(rest);
    rest.remove_prefix(std::min(first.size() + 1, rest.size()));
    gString base(first);
    base.wsp_norm();
    int access = pascal ? 0 : take_access(base);
    if (base.empty())
      continue;
    if ((access & (access_public | access_protected | access_private)) == 0)
      access |= pascal || element.kind == gKind::struct_ ? access_public : access_private;
    if (std::string const whole = names.find(element.scope(), base); !whole.empty())
      base = whole + last_arguments(base);
    clause->append({base, access});
  }
  return clause;
}

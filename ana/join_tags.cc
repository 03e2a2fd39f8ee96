// Tags are forms of names by habit: "_T", "T_s", "T_st", "T_t", "T_tag", "tagT".

#include "ana/join_tags.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace {

using Decl::gKind;

std::string_view without_end(std::string_view name, std::string_view end) {
  return name.ends_with(end) && name.size() > end.size() ? name.substr(0, name.size() - end.size())
                                                         : name;
}

// What is left of a tag without what makes it one, in lower case.
std::string stem_of(std::string_view tag) {
  while (tag.starts_with('_'))
    tag.remove_prefix(1);
  while (tag.ends_with('_'))
    tag.remove_suffix(1);
  for (std::string_view const end : {"_struct", "_tag", "_st", "_s", "_t"})
    tag = without_end(tag, end);
  std::string stem = Vlb::to_lower(tag);
  return stem.starts_with("tag") && stem.size() > 3 ? stem.substr(3) : stem;
}

bool is_structure(gCodeElem const & element) {
  return (element.kind == gKind::struct_ || element.kind == gKind::union_) &&
         element.names.size() == 1 && element.loc.file().language() != gLanguage::pascal;
}

using gNames = std::unordered_map<std::string, std::string>;

bool share_line(gCodeElem const & a, gCodeElem const & b) {
  return a.loc.line() == b.loc.line() && a.loc.file().opath() == b.loc.file().opath();
}

// Tags with the one name that each has; those with several keep their tags. Of the names that one
// statement gives the first counts.
gNames names_of_tags(std::vector<gCodeElem *> const & elements) {
  gNames names;
  gCodeElem const * before = nullptr;
  for (gCodeElem const * const one : elements) {
    std::string_view const tag = one->names.size() == 1 ? named_tag(*one) : std::string_view();
    std::string const name = tag.empty() ? std::string() : std::string(*one->names.back());
    if (tag.empty() || name == tag || stem_of(tag) != stem_of(name))
      continue;
    auto const [known, added] = names.try_emplace(std::string(tag), name);
    bool const further = before && !added && share_line(*before, *one);
    before = one;
    if (!added && !further && known->second != name)
      known->second.clear();
  }
  std::unordered_set<std::string_view> structures;
  for (gCodeElem const * const one : elements)
    if (is_structure(*one))
      structures.insert(*one->names.back());
  std::erase_if(names, [&](auto const & tag) { return structures.contains(tag.second); });
  return names;
}

} // namespace

std::string_view named_tag(gCodeElem const & type) {
  if (type.kind != gKind::typedef_ || !type.parts ||
      type.loc.file().language() == gLanguage::pascal)
    return {};
  std::string_view text = type.decl;
  auto const [begin, end] = std::pair(type.parts->name.begin, type.parts->name.end);
  bool const known = begin < end && end <= text.size();
  char const behind = known && end < text.size() ? text[end] : ' ';
  if (!known || behind == '[' || behind == '(')
    return {};
  text = text.substr(0, begin);
  for (std::string_view const head : {"typedef struct ", "typedef union "})
    if (text.starts_with(head)) {
      text.remove_prefix(head.size());
      // Macros may stand in front of a tag.
      std::size_t const open = text.find(" {");
      bool const body = open != text.npos && text.ends_with("} ");
      std::string_view const words = text.substr(0, body ? open : text.find(' '));
      std::string_view const tag = words.substr(words.rfind(' ') + 1); // from 0 if there is none
      bool const whole = std::ranges::all_of(tag, Vlb::is_word);
      return whole && (body || text.size() == words.size() + 1) ? tag : std::string_view();
    }
  return {};
}

void name_tags(std::vector<gCodeElem *> const & elements) {
  gNames const names = names_of_tags(elements);
  if (names.empty())
    return;
  for (gCodeElem * const one : elements) {
    if (one->names.empty() || one->loc.file().language() == gLanguage::pascal ||
        !(is_structure(*one) || one->names.size() > 1))
      continue;
    auto const found = names.find(*one->names.front());
    if (found != names.end() && !found->second.empty())
      one->names.front() = make_ref<gString>(found->second);
  }
}

// Works on what "&&" and "||" part at the top: texts of directives aren't parsed further.

#include "ana/join_conditions.h"

#include <algorithm>
#include <string>
#include <vector>

#include "ana/decl/cpp_branches.h"

namespace {

constexpr std::size_t longest = 512;
constexpr std::string_view both = " && ", one_of = " || ";

using Parts = std::vector<std::string>;

// Brackets keep together what stands in them.
Parts split(std::string_view text, std::string_view at) {
  Parts parts(1);
  int depth = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    depth += (text[i] == '(') - (text[i] == ')');
    if (depth == 0 && text.substr(i).starts_with(at)) {
      parts.emplace_back();
      i += at.size() - 1;
    } else
      parts.back() += text[i];
  }
  return parts;
}

// What holds at once; "A && B || C" is one thing.
Parts conjuncts(std::string_view text) {
  return split(text, one_of).size() > 1 ? Parts{std::string(text)} : split(text, both);
}

std::string joined(Parts const & parts, std::string_view by) {
  std::string text;
  for (std::string const & part : parts)
    text += (text.empty() ? std::string() : std::string(by)) + part;
  return text;
}

Parts without_first(Parts const & parts, std::size_t count) {
  return {parts.begin() + static_cast<std::ptrdiff_t>(count), parts.end()};
}

} // namespace

cRef<gString const> either_condition(cRef<gString const> const & a, cRef<gString const> const & b) {
  if (!a || !b)
    return nullptr;
  if (*a == *b)
    return a;
  if (a->size() + b->size() > longest)
    return nullptr;
  Parts const one = conjuncts(*a), other = conjuncts(*b);
  auto const common = static_cast<std::size_t>(std::ranges::mismatch(one, other).in1 - one.begin());
  Parts const outer(one.begin(), one.begin() + static_cast<std::ptrdiff_t>(common));
  // "!A && B" says no more than "B" beside "A".
  Parts rest = without_first(other, common);
  Parts ways = split(joined(without_first(one, common), both), one_of);
  for (std::string const & way : ways)
    std::erase(rest, Decl::negated_condition(way));
  bool const always = rest.empty() || common == one.size();
  if (always)
    return outer.empty() ? nullptr : make_ref<gString const>(joined(outer, both));
  ways.push_back(joined(rest, both));
  std::string const text = joined(ways, one_of);
  return make_ref<gString const>(outer.empty() ? text : joined(outer, both) + " && (" + text + ")");
}

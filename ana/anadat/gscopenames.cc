// From the inside out means: the scope with the name behind it, then the scope around that. An
// alias on the way is followed, but no further than a chain of aliases can sensibly be.
#include "ana/anadat/gscopenames.h"

#include "vlb/gstring.h"

namespace {

constexpr int longest_chain = 8;
constexpr std::size_t most_namesakes = 64; // more of one name say nothing

} // namespace

std::string without_arguments(std::string_view name) {
  std::string bare;
  int depth = 0;
  for (std::size_t at = 0; at < name.size(); ++at) {
    char const c = name[at];
    if (c == '<')
      ++depth;
    else if (c == '>' && depth > 0)
      --depth;
    else if (depth == 0 && static_cast<unsigned char>(c) > ' ')
      bare += c;
  }
  return bare;
}

std::string_view last_part(std::string_view name, std::string_view separator) {
  std::size_t const at = name.rfind(separator);
  return at == name.npos ? name : name.substr(at + separator.size());
}

std::string_view outer_part(std::string_view name, std::string_view separator) {
  std::size_t const at = name.rfind(separator);
  return at == name.npos ? std::string_view() : name.substr(0, at);
}

void gScopeNames::add(std::string const & name) {
  if (name.empty())
    return;
  auto const [place, is_new] = names_.insert(name);
  if (!is_new)
    return;
  std::string_view const tail = last_part(name, separator_);
  auto found = tails_.find(tail);
  if (found == tails_.end())
    found = tails_.try_emplace(std::string(tail)).first;
  std::vector<std::string const *> & namesakes = found->second;
  if (namesakes.size() < most_namesakes)
    namesakes.push_back(&*place);
}

void gScopeNames::add_alias(std::string const & alias, std::string const & target) {
  std::string bare = without_arguments(target);
  if (!alias.empty() && !bare.empty() && bare != alias)
    aliases_.emplace(alias, std::move(bare));
}

// An alias means its target, if that is one of the names.
std::string gScopeNames::known(std::string const & name, int depth) const {
  auto const alias = depth < longest_chain ? aliases_.find(name) : aliases_.end();
  if (alias != aliases_.end())
    if (std::string target = in_scopes(outer_part(name, separator_), alias->second, depth + 1);
        !target.empty())
      return target;
  return names_.contains(name) ? name : std::string();
}

std::string gScopeNames::in_scopes(std::string_view scope, std::string_view written,
                                   int depth) const {
  for (;;) {
    std::string name(scope);
    if (!name.empty())
      name += separator_;
    name += written;
    if (std::string found = known(name, depth); !found.empty())
      return found;
    if (scope.empty())
      return {};
    scope = outer_part(scope, separator_);
  }
}

std::string gScopeNames::by_tail(std::string_view written) const {
  auto const namesakes = tails_.find(last_part(written, separator_));
  if (namesakes == tails_.end())
    return {};
  std::string const * only = nullptr;
  for (std::string const * one : namesakes->second) {
    std::string const & name = *one;
    std::size_t const before = name.size() - std::min(name.size(), written.size());
    bool const fits =
        name.ends_with(written) &&
        (before == 0 || std::string_view(name).substr(0, before).ends_with(separator_));
    if (fits && only)
      return {};
    if (fits)
      only = one;
  }
  return only ? *only : std::string();
}

std::string gScopeNames::find(std::string_view scope, std::string_view written) const {
  std::string const bare = without_arguments(written);
  std::string_view name = bare;
  bool const rooted = name.starts_with(separator_);
  if (rooted)
    name.remove_prefix(separator_.size());
  if (name.empty())
    return {};
  std::string found = in_scopes(rooted ? std::string_view() : scope, name, 0);
  return found.empty() && !rooted ? by_tail(name) : found;
}

// The names of all types and scopes of a run, and what a name means that is written somewhere.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

// One language's names, joined with its separator. The owner enters all names before it asks.
class gScopeNames {
public:
  explicit gScopeNames(std::string_view separator) : separator_(separator) {}

  void add(std::string const & name);
  // `alias` is another name for `target`, which is written as it is in the scope of the alias.
  void add_alias(std::string const & alias, std::string const & target);
  bool contains(std::string_view name) const { return names_.contains(name); }

  // The full name that `written` has within `scope`: looked up from the innermost scope outwards,
  // through aliases; then, if it is the only one of its name at all, wherever it stands. Without
  // template arguments. Empty if nothing fits.
  std::string find(std::string_view scope, std::string_view written) const;

private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };
  template <class T> using Map = std::unordered_map<std::string, T, Hash, std::equal_to<>>;

  std::string in_scopes(std::string_view scope, std::string_view written, int depth) const;
  std::string known(std::string const & name, int depth) const;
  std::string by_tail(std::string_view written) const;

  std::string separator_;
  std::unordered_set<std::string, Hash, std::equal_to<>> names_;
  Map<std::string> aliases_;
  // Of `names_`, by their last part.
  Map<std::vector<std::string const *>> tails_;
};

// "A<int>::B<T>" as "A::B".
std::string without_arguments(std::string_view name);
// The last part of a name, and what stands in front of it, without the separator.
std::string_view last_part(std::string_view name, std::string_view separator);
std::string_view outer_part(std::string_view name, std::string_view separator);

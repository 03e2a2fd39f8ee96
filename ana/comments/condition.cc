// Read by descent; brackets deeper than anybody writes them aren't followed.
#include "ana/comments/condition.h"

#include <algorithm>

#include "ana/comments/words.h"

namespace {

constexpr int deepest = 50;

class Condition {
public:
  Condition(std::string_view text, std::set<std::string, std::less<>> const & names)
      : text_(text),
        names_(names) {}
  bool any(int depth);

private:
  bool all(int depth);
  bool one(int depth);
  bool take(std::string_view word);

  std::string_view text_;
  std::set<std::string, std::less<>> const & names_;
};

bool Condition::take(std::string_view word) {
  text_ = trimmed(text_);
  bool const found = text_.starts_with(word);
  if (found)
    text_.remove_prefix(word.size());
  return found;
}

bool Condition::any(int depth) {
  bool result = all(depth);
  while (take("||"))
    result = all(depth) || result;
  return result;
}

bool Condition::all(int depth) {
  bool result = one(depth);
  while (take("&&"))
    result = one(depth) && result;
  return result;
}

bool Condition::one(int depth) {
  bool negated = false;
  while (take("!"))
    negated = !negated;
  bool result = false;
  if (depth < deepest && take("(")) {
    result = any(depth + 1);
    take(")");
  } else {
    text_ = trimmed(text_);
    std::size_t const end = std::min(text_.find_first_of(" \t()|&!"), text_.size());
    result = end > 0 && names_.contains(text_.substr(0, end));
    text_.remove_prefix(end);
  }
  return result != negated;
}

} // namespace

bool condition_holds(std::string_view condition, std::set<std::string, std::less<>> const & names) {
  return !trimmed(condition).empty() && Condition(condition, names).any(0);
}

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
  std::string_view rest() const { return text_; }

private:
  bool all(int depth);
  bool one(int depth);
  bool take(std::string_view word);

  std::string_view text_;
  std::set<std::string, std::less<>> const & names_;
};

bool Condition::take(std::string_view word) {
  std::string_view const behind = trimmed(text_);
  if (!behind.starts_with(word))
    return false;
  text_ = behind.substr(word.size());
  return true;
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
    std::string_view name = text_.substr(0, end);
    text_.remove_prefix(end);
    if (name == "defined" && text_.starts_with('(')) { // "defined(name)"
      std::size_t const last = std::min(text_.find(')'), text_.size() - 1);
      name = trimmed(text_.substr(1, last - 1));
      text_.remove_prefix(last + 1);
    }
    result = !name.empty() && names_.contains(name);
  }
  return result != negated;
}

} // namespace

std::size_t condition_length(std::string_view text) {
  std::set<std::string, std::less<>> const none;
  Condition condition(text, none);
  condition.any(0);
  return text.size() - condition.rest().size();
}

bool condition_holds(std::string_view condition, std::set<std::string, std::less<>> const & names) {
  return !trimmed(condition).empty() && Condition(condition, names).any(0);
}

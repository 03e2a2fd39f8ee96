// Branches of the preprocessor: which are read, and under which condition.
#pragma once

#include "ana/decl/cpp_tokens.h"

namespace Decl {

// "!A" of "A" and the other way round; what isn't a name alone comes in brackets.
std::string negated_condition(std::string const & part);

class gBranches {
public:
  // Takes the tokens of branches that aren't read out of `source`. What "#if 0" holds isn't; of
  // other branches all are that are whole by themselves, and where they split a declaration the
  // first.
  gBranches(std::string_view text, gTokens & source);

  std::vector<gCondition> conditions;
  // Begin of the directive that defines the include guard; no_guard if the text has none.
  static constexpr std::uint32_t no_guard = UINT32_MAX;
  std::uint32_t guard = no_guard;
  // Index of the condition at a position, -1 for none.
  std::int32_t condition_at(std::uint32_t position) const;
  // The position stands in a branch that isn't read.
  bool is_left_out(std::uint32_t position) const;
  // Number of the "#if" that a position stands in, -1 for none.
  std::int32_t group_at(std::uint32_t position) const;

private:
  friend class gBranchWalk;
  struct Change {
    std::uint32_t position;
    std::int32_t condition, group;
  };
  std::vector<Change> changes_;  // in text order
  std::vector<gRange> left_out_; // bytes, in text order, apart from each other

  Change const * change_at(std::uint32_t position) const;
};

} // namespace Decl

// Conditional code: which branches count, and what guards a place.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ana/decl/declaration.h"
#include "ana/decl/pas_map.h"

namespace Decl {

// What guards a place from `offset` on.
struct gPasConditionChange {
  std::uint32_t offset;
  std::int32_t condition;
};

// A compiler directive, taken apart.
struct gPasDirective {
  enum Kind : std::uint8_t { other, if_, else_if, else_, end_if, include };
  Kind kind = other;
  std::string_view argument; // of an include: its name, without quotes
  bool defined = false;      // $IFDEF and $IFNDEF: the argument is a symbol
  bool negated = false;      // $IFNDEF
};
gPasDirective read_directive(std::string_view whole);

// The nest of open conditions. A branch that is balanced by itself, between declarations, counts
// beside the others. One that isn't is a piece of what stands around it, so one branch alone can
// count: the first one, or where the same symbol was decided before, the one that fits that.
class gPasConditions {
public:
  gPasConditions(gPasMap & map, std::vector<gPasToken> & tokens,
                 std::vector<gCondition> & conditions);

  // Takes a directive that isn't `other` or `include`. The text stays until the end.
  void take(gPasDirective const & directive, gRange where);
  void finish(std::uint32_t size);

  bool skipping() const { return skipping_; }
  bool open() const { return !groups_.empty(); }
  // The state of the assembler that holds within what is skipped.
  bool skipped_assembler() const { return !groups_.empty() && groups_.back().in_assembler; }

  // What guards a place, in text order.
  std::vector<gPasConditionChange> const & changes() const { return changes_; }
  // What was left out, in text order, none within another.
  std::vector<gRange> const & left_out() const { return left_out_; }

private:
  enum Truth : std::uint8_t { unknown, yes, no };
  struct Group {
    std::uint32_t first_token = 0;  // of the branch
    std::uint32_t branch_begin = 0; // byte behind the directive that opens it
    gPasMap::Mark mark;
    std::int32_t outer = -1; // the condition around it
    std::string first;       // what the first branch asks
    std::string symbol;      // key of `assumed_`
    bool negated = false;
    bool in_first = true; // the first branch is open
    bool between = false; // begins between declarations
    bool in_assembler = false;
    bool tail = false;          // follows a group that completed a declaration
    bool completes = false;     // its branches complete the declaration in front of it
    bool decided = false;       // one branch was taken, the others go
    bool kept = false;          // a branch was kept
    bool skip = false;          // the branch goes
    bool skipped_whole = false; // stands in a branch that goes
    Truth truth = unknown;      // of the branch
  };

  gPasMap & map_;
  std::vector<gPasToken> & tokens_;
  std::vector<gCondition> & conditions_;
  std::vector<Group> groups_;
  std::vector<gPasConditionChange> changes_;
  std::vector<gRange> left_out_;
  std::unordered_map<std::string, bool> assumed_;
  bool skipping_ = false;
  std::uint32_t completed_at_ = 0; // tokens where the last group ended that completed a declaration

  void begin(gPasDirective const & directive, gRange where);
  void other_branch(gPasDirective const & directive, gRange where);
  void end(gRange where);
  void begin_branch(std::uint32_t offset, Truth truth);
  void end_branch(std::uint32_t offset, bool last);
  void drop_branch(Group & group, std::uint32_t offset);
  bool is_whole(Group const & group) const;
  bool is_other_tail(Group const & group) const;
  bool completes_declaration(Group const & group) const;
  void blank_tail(Group const & group);
  Truth assumed(std::string const & symbol, bool negated) const;
  void assume(Group const & group, Truth truth);
  void enter_condition(std::string text, std::int32_t outer, std::uint32_t offset);
};

} // namespace Decl

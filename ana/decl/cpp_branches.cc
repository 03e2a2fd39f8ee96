// One walk over the directives with a stack of open "#if"s. Each branch knows how it changes the
// depth of brackets; an "#endif" decides which of its branches stay.
#include "ana/decl/cpp_branches.h"

#include <algorithm>
#include <unordered_map>

namespace Decl {

namespace {

constexpr std::size_t longest_condition = 512;
constexpr std::uint32_t few_tokens = 500;

// Changes of the depth of brackets over a stretch.
struct Balance {
  int round = 0, square = 0, curly = 0;
  bool below = false; // closes what was open in front

  bool even() const { return round == 0 && square == 0 && curly == 0 && !below; }
  void add(std::uint8_t type) {
    round += type == '(' ? 1 : type == ')' ? -1 : 0;
    square += type == '[' ? 1 : type == ']' ? -1 : 0;
    curly += type == '{' ? 1 : type == '}' ? -1 : 0;
    below = below || round < 0 || square < 0 || curly < 0;
  }
  void add(Balance const & other) {
    round += other.round;
    square += other.square;
    curly += other.curly;
    below = below || other.below || round < 0 || square < 0 || curly < 0;
  }
};

struct Branch {
  std::uint32_t directive;       // that opens it
  std::uint32_t first, last = 0; // tokens
  Balance balance;
  std::uint32_t first_kept = no_token, last_kept = no_token;
};

struct Group {
  std::size_t first_branch; // in the stack of branches
  std::uint32_t before;     // the last token in front that is read
  int round;                // depth of round brackets in front
  std::int32_t outer;       // condition around it
  std::int32_t outer_group;
  std::int32_t number;
  bool guard; // of the whole file
};

} // namespace

class gBranchWalk {
public:
  gBranchWalk(std::string_view text, gTokens & source, gBranches & to)
      : text_(text),
        source_(source),
        to_(to) {
    branches_.push_back({no_token, 0, 0, {}, no_token, no_token}); // the file itself
  }

  void run() {
    auto const & directives = source_.directives;
    for (std::uint32_t at = 0; at < directives.size(); ++at)
      directive(at);
    tokens_to(static_cast<std::uint32_t>(source_.tokens.size() - 1));
    while (!groups_.empty())
      end_group(static_cast<std::uint32_t>(directives.size()));
    drop();
  }

private:
  struct Dropped {
    std::uint32_t first, last; // tokens
    gRange bytes;
  };

  std::string_view text_;
  gTokens & source_;
  gBranches & to_;
  std::uint32_t at_ = 0; // tokens in front are counted
  std::vector<Branch> branches_;
  std::vector<Group> groups_;
  std::vector<Dropped> dropped_;
  std::unordered_map<std::string, bool> assumed_; // of names on which halves of brackets hang
  std::int32_t condition_ = -1, group_ = -1, groups_made_ = 0;

  std::uint8_t type(std::uint32_t token) const { return source_.tokens[token].type; }

  void tokens_to(std::uint32_t end) {
    Branch & current = branches_.back();
    if (at_ < end) {
      if (current.first_kept == no_token)
        current.first_kept = at_;
      current.last_kept = end - 1;
    }
    for (; at_ < end; ++at_)
      current.balance.add(type(at_));
  }

  void directive(std::uint32_t at) {
    gDirective const & one = source_.directives[at];
    if (one.kind > gDirective::endif)
      return;
    tokens_to(one.token);
    if (one.kind == gDirective::if_)
      begin_group(at);
    else if (groups_.empty())
      return; // stray
    else if (one.kind == gDirective::endif)
      end_group(at);
    else {
      branches_.back().last = one.token;
      begin_branch(at);
    }
  }

  void begin_group(std::uint32_t at) {
    std::uint32_t const before = branches_.back().last_kept != no_token ? branches_.back().last_kept
                                 : groups_.empty()                      ? no_token
                                                                        : groups_.back().before;
    bool const guard = is_guard(at);
    if (guard)
      to_.guard = source_.directives[at + 1].whole.begin;
    int const round = branches_.back().balance.round + (groups_.empty() ? 0 : groups_.back().round);
    groups_.push_back({branches_.size(), before, round, condition_, group_, groups_made_++, guard});
    begin_branch(at);
  }

  // A source may hold directives alone, many of which give macros that nobody has defined a value.
  bool says_something_before(std::uint32_t at) const {
    auto const & directives = source_.directives;
    return std::any_of(directives.begin(), directives.begin() + at, [this](gDirective const & one) {
      std::string_view const line = text_.substr(one.whole.begin, 40);
      std::string_view const said = line.substr(0, line.find('\n'));
      bool const once = one.kind == gDirective::other && said.find("once") != said.npos;
      return once || one.kind == gDirective::if_ || one.kind == gDirective::define;
    });
  }

  bool is_guard(std::uint32_t at) const {
    auto const & directives = source_.directives;
    if (at_ != 0 || at + 1 >= directives.size() || !groups_.empty() || says_something_before(at))
      return false;
    gDirective const & next = directives[at + 1];
    bool const negated = directives[at].negated || directives[at].value.of(text_).starts_with("!");
    return negated && next.kind == gDirective::define && next.token == 0 &&
           directives[at].value.of(text_).find(next.name.of(text_)) != std::string_view::npos;
  }

  void begin_branch(std::uint32_t at) {
    gDirective const & one = source_.directives[at];
    Group const & group = groups_.back();
    branches_.push_back({at, one.token, 0, {}, no_token, no_token});
    condition_ = group.outer;
    group_ = group.outer_group;
    if (!group.guard && !is_plain_number(group)) {
      to_.conditions.push_back({condition_text(group), group.outer});
      condition_ = static_cast<std::int32_t>(to_.conditions.size() - 1);
      group_ = group.number;
    }
    to_.changes_.push_back({one.whole.begin, condition_, group_});
  }

  bool is_plain_number(Group const & group) const {
    gDirective const & first = source_.directives[branches_[group.first_branch].directive];
    return first.literally_zero || first.literally_one;
  }

  // Of the branch that was just begun.
  std::string condition_text(Group const & group) const {
    std::string text;
    for (std::size_t at = group.first_branch; at < branches_.size(); ++at) {
      bool const own = at + 1 == branches_.size();
      std::string part = one_condition(source_.directives[branches_[at].directive]);
      if (own && part.empty())
        break; // "#else"
      if (!own)
        part = negated_condition(part);
      else if (!text.empty() && part.find("||") != part.npos)
        part = "(" + part + ")";
      text += (text.empty() ? "" : " && ") + part;
      if (text.size() > longest_condition) {
        text.resize(longest_condition);
        return text + "...";
      }
    }
    return text;
  }

  std::string one_condition(gDirective const & one) const {
    if (one.kind == gDirective::else_)
      return {};
    std::string const value = one_line(text_, one.value);
    if (!one.of_name)
      return value;
    return (one.negated ? "!defined(" : "defined(") + value + ")";
  }

  void end_group(std::uint32_t at) {
    bool const at_end = at == source_.directives.size();
    branches_.back().last = at_;
    Group const group = groups_.back();
    groups_.pop_back();
    condition_ = group.outer;
    group_ = group.outer_group;
    if (!at_end)
      to_.changes_.push_back({source_.directives[at].whole.begin, condition_, group_});
    std::size_t const count = branches_.size() - group.first_branch;
    std::vector<bool> const kept = choose(group, count);
    Branch & outer = branches_[group.first_branch - 1];
    for (std::size_t one = 0; one < count; ++one) {
      Branch const & branch = branches_[group.first_branch + one];
      if (!kept[one]) {
        std::uint32_t const next =
            one + 1 < count ? branches_[group.first_branch + one + 1].directive : at;
        drop_branch(branch, next);
        continue;
      }
      outer.balance.add(branch.balance);
      if (branch.last_kept == no_token)
        continue;
      if (outer.first_kept == no_token)
        outer.first_kept = branch.first_kept;
      outer.last_kept = branch.last_kept;
    }
    branches_.resize(group.first_branch);
  }

  void drop_branch(Branch const & branch, std::uint32_t next) {
    std::uint32_t const end = next < source_.directives.size()
                                  ? source_.directives[next].whole.begin
                                  : static_cast<std::uint32_t>(text_.size());
    dropped_.push_back(
        {branch.first, branch.last, {source_.directives[branch.directive].whole.end, end}});
  }

  std::vector<bool> choose(Group const & group, std::size_t count) {
    std::vector<bool> kept(count, true);
    bool taken = false; // a branch whose condition is always true
    for (std::size_t one = 0; one < count; ++one) {
      gDirective const & directive = source_.directives[branch(group, one).directive];
      kept[one] = !taken && !directive.literally_zero;
      taken = taken || directive.literally_one;
    }
    auto const live = static_cast<std::size_t>(std::ranges::count(kept, true));
    bool even = true;
    for (std::size_t one = 0; one < count; ++one)
      even = even && (!kept[one] || branch(group, one).balance.even());
    if (even && (live < 2 || are_wholes(group, kept)))
      return kept;
    keep_one(group, kept, even);
    return kept;
  }

  Branch const & branch(Group const & group, std::size_t one) const {
    return branches_[group.first_branch + one];
  }

  void keep_one(Group const & group, std::vector<bool> & kept, bool even) {
    auto const first = static_cast<std::size_t>(std::ranges::find(kept, true) - kept.begin());
    std::size_t chosen = first;
    bool negated = false;
    std::string const key = key_of(source_.directives[branch(group, 0).directive], negated);
    if (!even && !key.empty()) {
      auto const known = assumed_.find(key);
      bool const holds = known == assumed_.end() ? first == 0 : known->second != negated;
      if (known == assumed_.end())
        assumed_.emplace(key, !negated);
      chosen = holds ? first : std::max(first, std::size_t(1));
    }
    if (!even && contradicts(source_.directives[branch(group, first).directive]))
      chosen = std::max(chosen, first + 1);
    if (!even && chosen < kept.size() && branch(group, chosen).balance.even())
      chosen = far_longest(group, kept, chosen);
    for (std::size_t one = 0; one < kept.size(); ++one)
      kept[one] = kept[one] && one == chosen;
  }

  // One of the conditions that must all hold is known not to: "!A && B" where A was assumed.
  bool contradicts(gDirective const & one) const {
    std::string_view rest = one.value.of(text_);
    if (rest.size() > 200 || rest.find("&&") == rest.npos || rest.find("||") != rest.npos)
      return false;
    while (!rest.empty()) {
      std::size_t const end = std::min(rest.find("&&"), rest.size());
      bool negated = false;
      auto const known = assumed_.find(key_of(rest.substr(0, end), negated));
      if (known != assumed_.end() && known->second == negated)
        return true;
      rest.remove_prefix(std::min(end + 2, rest.size()));
    }
    return false;
  }

  // A stub of some lines in front of all the code is no branch to choose for its being whole.
  std::size_t far_longest(Group const & group, std::vector<bool> const & kept,
                          std::size_t chosen) const {
    auto const length = [&](std::size_t one) {
      return branch(group, one).last - branch(group, one).first;
    };
    for (std::size_t one = 0; one < kept.size(); ++one)
      if (kept[one] && length(one) > few_tokens && length(one) / 8 > length(chosen))
        chosen = one;
    return chosen;
  }

  // The name that a condition asks for alone, and whether for its absence.
  std::string key_of(gDirective const & one, bool & negated) const {
    negated = one.negated;
    return one.value.of(text_).size() > 200 ? std::string() : key_of(one.value.of(text_), negated);
  }

  static std::string key_of(std::string_view text, bool & negated) {
    std::string key;
    for (char const c : text) {
      if (c == '!' && key.empty())
        negated = !negated;
      else if (c != ' ' && c != '(' && c != ')' && c != '\t')
        key += c;
    }
    return key.starts_with("defined") ? key.substr(7) : key;
  }

  // Every branch begins and ends between declarations, or between values of a list.
  bool are_wholes(Group const & group, std::vector<bool> const & kept) const {
    std::uint8_t const before = group.before == no_token ? ';' : type(group.before);
    bool const list = before == ',' && group.round == 0;
    bool const fresh = before == ';' || before == '{' || before == '}' || before == ':';
    bool const macro = before == ')' || (before == token_word && is_macro(group.before));
    if (!list && !fresh && !macro)
      return false;
    for (std::size_t one = 0; one < kept.size(); ++one) {
      Branch const & own = branch(group, one);
      if (!kept[one] || own.first_kept == no_token)
        continue;
      std::uint8_t const last = type(own.last_kept);
      bool const ends = last == ';' || last == '}' || last == ':' || last == ')' ||
                        (last == token_word && is_macro(own.last_kept));
      if (!(ends || (last == ',' && group.round == 0)) || (macro && !begins(own.first_kept)))
        return false;
    }
    return true;
  }

  bool is_macro(std::uint32_t token) const {
    gToken const & one = source_.tokens[token];
    return one.word == gWord::qt_statement ||
           (one.word == gWord::name && is_capital(text_.substr(one.begin, one.end - one.begin)));
  }

  bool begins(std::uint32_t token) const {
    return type(token) == token_word && !is_trailing(source_.tokens[token].word);
  }

  void drop() {
    std::ranges::sort(dropped_, {}, &Dropped::first);
    auto & tokens = source_.tokens;
    std::size_t to = 0, from = 0;
    for (Dropped const & one : dropped_) {
      for (; from < one.first; ++from)
        tokens[to++] = tokens[from];
      from = std::max<std::size_t>(from, one.last);
    }
    if (dropped_.empty())
      return;
    for (; from < tokens.size(); ++from)
      tokens[to++] = tokens[from];
    tokens.resize(to);
    merge_bytes();
  }

  void merge_bytes() {
    std::ranges::sort(dropped_, {}, [](Dropped const & one) { return one.bytes.begin; });
    for (Dropped const & one : dropped_) {
      if (!to_.left_out_.empty() && one.bytes.begin <= to_.left_out_.back().end)
        to_.left_out_.back().end = std::max(to_.left_out_.back().end, one.bytes.end);
      else
        to_.left_out_.push_back(one.bytes);
    }
  }
};

std::string negated_condition(std::string const & part) {
  std::string_view const name = "defined(";
  if (part.starts_with(name) && part.find_first_of(" )") == part.size() - 1)
    return "!" + part;
  if (part.starts_with("!defined(") && part.find_first_of(" )") == part.size() - 1)
    return part.substr(1);
  return "!(" + part + ")";
}

gBranches::gBranches(std::string_view text, gTokens & source) {
  gBranchWalk(text, source, *this).run();
}

gBranches::Change const * gBranches::change_at(std::uint32_t position) const {
  auto const behind =
      std::ranges::upper_bound(changes_, position, {}, [](Change const & c) { return c.position; });
  return behind == changes_.begin() ? nullptr : &*(behind - 1);
}

std::int32_t gBranches::condition_at(std::uint32_t position) const {
  Change const * change = change_at(position);
  return change ? change->condition : -1;
}

std::int32_t gBranches::group_at(std::uint32_t position) const {
  Change const * change = change_at(position);
  return change ? change->group : -1;
}

bool gBranches::is_left_out(std::uint32_t position) const {
  auto const behind = std::ranges::upper_bound(left_out_, position, {},
                                               [](gRange const & range) { return range.begin; });
  return behind != left_out_.begin() && position < (behind - 1)->end;
}

} // namespace Decl

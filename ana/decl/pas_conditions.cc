// Conditional code. A group is decided branch by branch while the tokens come, so that a branch
// that goes is always at the end of the list.
#include "ana/decl/pas_conditions.h"

#include <algorithm>

namespace Decl {

namespace {

bool is_blank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && is_blank(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && is_blank(text.back()))
    text.remove_suffix(1);
  return text;
}

bool is_letter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// The rest of a line in $ENDIF and the like is a note.
std::string_view first_word(std::string_view text) {
  auto const end = std::ranges::find_if(text, is_blank);
  return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

std::string_view file_name(std::string_view text) {
  if (text.empty() || text.front() != '\'')
    return first_word(text);
  std::size_t const quote = text.find('\'', 1);
  return text.substr(1, quote == text.npos ? text.npos : quote - 1);
}

struct Row {
  std::string_view word;
  gPasDirective::Kind kind;
  bool defined, negated;
};

constexpr Row rows[] = {
    {"ifdef", gPasDirective::if_, true, false},
    {"ifndef", gPasDirective::if_, true, true},
    {"if", gPasDirective::if_, false, false},
    {"ifc", gPasDirective::if_, false, false},
    {"ifopt", gPasDirective::if_, false, false},
    {"else", gPasDirective::else_, false, false},
    {"elsec", gPasDirective::else_, false, false},
    {"elseif", gPasDirective::else_if, false, false},
    {"elifc", gPasDirective::else_if, false, false},
    {"endif", gPasDirective::end_if, false, false},
    {"endc", gPasDirective::end_if, false, false},
    {"ifend", gPasDirective::end_if, false, false},
    {"i", gPasDirective::include, false, false},
    {"include", gPasDirective::include, false, false},
};

// Some write a page into a condition; each branch repeats the first one's.
constexpr std::size_t longest_condition = 400;

std::string condition_text(gPasDirective const & directive) {
  std::string text(directive.argument.substr(0, longest_condition));
  std::ranges::replace_if(text, is_blank, ' ');
  if (!directive.defined)
    return text;
  return (directive.negated ? "not defined(" : "defined(") + text + ")";
}

bool is_never(gPasDirective const & directive) {
  return !directive.defined &&
         (directive.argument == "0" || same_word(directive.argument, "false"));
}

} // namespace

gPasDirective read_directive(std::string_view whole) {
  bool const brace = whole.starts_with('{');
  std::string_view inner = whole.substr(brace ? 2 : 3);
  std::string_view const closer = brace ? "}" : "*)";
  if (inner.ends_with(closer))
    inner.remove_suffix(closer.size());
  std::size_t length = 0;
  while (length < inner.size() && is_letter(inner[length]))
    ++length;
  std::string_view const word = inner.substr(0, length);
  gPasDirective directive;
  for (Row const & row : rows) {
    if (!same_word(word, row.word))
      continue;
    directive.kind = row.kind;
    directive.defined = row.defined;
    directive.negated = row.negated;
    directive.argument = trimmed(inner.substr(length));
    if (row.defined)
      directive.argument = first_word(directive.argument);
  }
  if (directive.kind != gPasDirective::include)
    return directive;
  // "{$I+}" is a switch, "{$I %DATE%}" a value.
  bool const file = length < inner.size() && is_blank(inner[length]) &&
                    !directive.argument.empty() && !directive.argument.starts_with('%');
  directive.argument = file_name(directive.argument);
  if (!file)
    directive.kind = gPasDirective::other;
  return directive;
}

gPasConditions::gPasConditions(gPasMap & map, std::vector<gPasToken> & tokens,
                               std::vector<gCondition> & conditions)
    : map_(map),
      tokens_(tokens),
      conditions_(conditions) {}

void gPasConditions::take(gPasDirective const & directive, gRange where) {
  if (directive.kind == gPasDirective::if_)
    begin(directive, where);
  else if (groups_.empty())
    return;
  else if (directive.kind == gPasDirective::end_if)
    end(where);
  else
    other_branch(directive, where);
}

void gPasConditions::begin(gPasDirective const & directive, gRange where) {
  Group group;
  group.skipped_whole = skipping_;
  group.outer = changes_.empty() ? -1 : changes_.back().condition;
  if (!skipping_) {
    group.in_assembler = map_.in_assembler();
    group.between = map_.between_declarations() || map_.in_statements();
    group.tail = completed_at_ == tokens_.size() && completed_at_ > 0;
    group.first = condition_text(directive);
    group.symbol = small_letters(directive.argument);
    group.negated = directive.negated;
    group.mark = map_.mark();
  } else {
    group.in_assembler = groups_.back().in_assembler;
  }
  groups_.push_back(std::move(group));
  if (skipping_)
    return;
  Truth const truth = is_never(directive) ? no : assumed(groups_.back().symbol, directive.negated);
  begin_branch(where.end, truth);
  skipping_ = groups_.back().skip = is_never(directive);
  enter_condition(groups_.back().first, groups_.back().outer, where.begin);
}

void gPasConditions::begin_branch(std::uint32_t offset, Truth truth) {
  Group & group = groups_.back();
  group.first_token = static_cast<std::uint32_t>(tokens_.size());
  if (!group.decided)
    map_.renew(group.mark);
  group.branch_begin = offset;
  group.truth = truth;
  group.skip = group.decided;
  skipping_ = group.skip;
}

void gPasConditions::other_branch(gPasDirective const & directive, gRange where) {
  Group & group = groups_.back();
  if (group.skipped_whole)
    return;
  end_branch(where.begin, false);
  group.in_first = false;
  Truth truth = unknown;
  std::string text;
  if (directive.kind == gPasDirective::else_if) {
    text = condition_text(directive);
    truth = assumed(small_letters(directive.argument), false);
  } else {
    text = "not (" + group.first + ")";
    Truth const first = assumed(group.symbol, group.negated);
    truth = first == unknown ? unknown : first == yes ? no : yes;
  }
  begin_branch(where.end, truth);
  enter_condition(std::move(text), group.outer, where.begin);
}

void gPasConditions::end(gRange where) {
  Group & group = groups_.back();
  if (!group.skipped_whole) {
    end_branch(where.begin, true);
    if (group.completes || group.tail)
      completed_at_ = static_cast<std::uint32_t>(tokens_.size());
    map_.forget(group.mark);
    changes_.push_back({where.end, group.outer});
    skipping_ = false;
  }
  groups_.pop_back();
}

bool gPasConditions::is_whole(Group const & group) const {
  bool const empty = tokens_.size() == group.first_token;
  return map_.even_since(group.mark) &&
         (empty || (group.between && (map_.between_declarations() || map_.in_statements())));
}

// "X = {$ifdef A} 1; {$endif} {$ifdef B} 2; {$endif}": alternatives that nothing joins.
bool gPasConditions::is_other_tail(Group const & group) const {
  if (!group.tail || tokens_.size() <= group.first_token)
    return false;
  gPasToken const & first = tokens_[group.first_token];
  if (first.sign != pas_word_sign)
    return first.sign != '[' && first.sign != ';';
  char const behind =
      tokens_.size() > group.first_token + 1 ? tokens_[group.first_token + 1].sign : ';';
  return (pas_word_marks(first.word) & (pas_head | pas_directive | pas_access)) == 0 &&
         (behind == ';' || behind == '.');
}

// "procedure a{$ifdef B}(c: D); procedure e;{$else}; procedure f;{$endif}": a branch finishes what
// stands in front of it, and whole declarations may follow.
bool gPasConditions::completes_declaration(Group const & group) const {
  return !group.between && map_.even_since(group.mark) && tokens_.size() > group.first_token &&
         map_.between_declarations();
}

// Of a later branch the rest of that declaration goes; empty ones in its place do no harm.
void gPasConditions::blank_tail(Group const & group) {
  for (std::size_t at = group.first_token; at < tokens_.size(); ++at) {
    gPasToken & token = tokens_[at];
    std::size_t const behind =
        token.partner == gPasToken::no_partner ? at + 1 : std::size_t{token.partner} + 1;
    bool const last = token.sign == ';';
    for (; at < std::min(behind, tokens_.size()); ++at) {
      tokens_[at].sign = ';';
      tokens_[at].word = gPasWord::none;
      tokens_[at].partner = gPasToken::no_partner;
    }
    --at;
    if (last)
      return;
  }
}

void gPasConditions::end_branch(std::uint32_t offset, bool last) {
  Group & group = groups_.back();
  if (group.skip) {
    left_out_.push_back({group.branch_begin, offset});
    return;
  }
  map_.settle_heads(group.mark);
  if (!is_other_tail(group) && is_whole(group)) {
    group.kept = true;
    return;
  }
  bool const first = !group.kept && group.truth != no;
  if (completes_declaration(group) && (first || group.completes)) {
    if (group.completes)
      blank_tail(group);
    else
      assume(group, yes);
    group.completes = group.kept = true;
    return;
  }
  // "end." in front of "$ELSE", or an empty implementation part, stand in for the other branch.
  bool const dead_end =
      !last &&
      (map_.ended() || (map_.section_since(group.mark) && tokens_.size() <= group.first_token + 2));
  if (group.truth == no || dead_end || is_other_tail(group) || (group.kept && group.truth != yes)) {
    drop_branch(group, offset);
    return;
  }
  assume(group, yes);
  group.decided = group.kept = true;
}

void gPasConditions::drop_branch(Group & group, std::uint32_t offset) {
  map_.drop_to(group.mark);
  tokens_.resize(group.first_token);
  while (!left_out_.empty() && left_out_.back().begin >= group.branch_begin)
    left_out_.pop_back();
  left_out_.push_back({group.branch_begin, offset});
  if (group.kept)
    assume(group, no);
}

// What is assumed of the branch holds for all branches with the same symbol.
void gPasConditions::assume(Group const & group, Truth truth) {
  bool const value = (truth == yes) == group.in_first;
  assumed_.try_emplace(group.symbol, value != group.negated);
}

gPasConditions::Truth gPasConditions::assumed(std::string const & symbol, bool negated) const {
  auto const found = assumed_.find(symbol);
  if (found == assumed_.end())
    return unknown;
  return found->second != negated ? yes : no;
}

void gPasConditions::enter_condition(std::string text, std::int32_t outer, std::uint32_t offset) {
  changes_.push_back({offset, static_cast<std::int32_t>(conditions_.size())});
  conditions_.push_back({std::move(text), outer});
}

void gPasConditions::finish(std::uint32_t size) {
  while (!groups_.empty())
    end({size, size});
}

} // namespace Decl

// A comment or two in a thousand open or close something, so the words that do are searched before
// a comment is read. What is never closed ends with the source.
#include "ana/read/comment_regions.h"

#include <algorithm>

#include "ana/comments/commands.h"
#include "ana/comments/foreign_text.h"
#include "ana/comments/words.h"
#include "ana/read/rich_pieces.h"
#include "vlb/gstring.h"

namespace {

constexpr std::size_t deepest = 64; // brackets within each other
constexpr std::size_t longest_heading = 200;

bool is_mark(std::string_view rest) {
  if (rest.starts_with('{') || rest.starts_with('}'))
    return true;
  std::size_t length = 0;
  while (length < rest.size() && is_letter(rest[length]))
    ++length;
  std::string_view const word = rest.substr(0, length);
  return word == "cond" || word == "endcond" || Commands::find(word).kind == gCommandKind::group;
}

bool may_mark(std::string_view comment) {
  for (std::size_t at = comment.find_first_of("@\\"); at != comment.npos;
       at = comment.find_first_of("@\\", at + 1))
    if (is_mark(comment.substr(at + 1)))
      return true;
  return false;
}

} // namespace

gCommentRegions::gCommentRegions(std::string_view text, std::vector<gCommentBlock> const & blocks,
                                 std::vector<Decl::gComment> const & comments, bool pascal,
                                 gCommentOptions const & options)
    : states_(1) {
  for (gCommentBlock const & block : blocks) {
    if (options.aliases.empty() && !may_mark(text.substr(block.begin, block.end - block.begin)))
      continue;
    std::string const words =
        with_aliases(comment_text(text, block, comments, pascal), options.aliases);
    if (!may_mark(words))
      continue;
    std::string_view const head = trimmed(words);
    // "//@{" is no documentation, but means what it says.
    if (!block.documenting && !head.starts_with("@{") && !head.starts_with("@}"))
      continue;
    bool const follows =
        pending_end_ > 0 && trimmed(text.substr(pending_end_, block.begin - pending_end_)).empty();
    if (!follows)
      pending_ = {gCommentGroup::close, {}, {}};
    take(block, translate(words, nullptr, options).groups);
  }
}

void gCommentRegions::take(gCommentBlock const & block, std::vector<gCommentGroup> const & groups) {
  pending_end_ = block.end;
  for (gCommentGroup const & group : groups) {
    State state = states_.back();
    switch (group.kind) {
    case gCommentGroup::topic:
    case gCommentGroup::joins:
    case gCommentGroup::heading:
      pending_ = group;
      break;
    case gCommentGroup::open:
      open(block.end);
      break;
    case gCommentGroup::close:
      if (open_.empty())
        break;
      if (open_.size() <= deepest) {
        State before = std::move(open_.back());
        before.hidden = state.hidden;
        change(block.begin, std::move(before));
      }
      open_.pop_back();
      break;
    case gCommentGroup::hide:
      hiding_.push_back(!group.id.empty());
      state.hidden = state.hidden || hiding_.back();
      change(block.end, std::move(state));
      break;
    case gCommentGroup::show:
      if (!hiding_.empty())
        hiding_.pop_back();
      state.hidden = std::ranges::find(hiding_, true) != hiding_.end();
      change(block.begin, std::move(state));
      break;
    default:
      break;
    }
  }
}

void gCommentRegions::open(std::uint32_t place) {
  State state = states_.back();
  open_.push_back(open_.size() < deepest ? state : State());
  gCommentGroup const what = std::exchange(pending_, {gCommentGroup::close, {}, {}});
  if (open_.size() > deepest)
    return;
  if (what.kind == gCommentGroup::heading) {
    state.heading = what.title.substr(0, character_end(what.title, longest_heading));
    state.heading_begin = place;
  } else if (what.kind != gCommentGroup::close) {
    state.topic = place_name(what.id);
    state.topic_begin = place;
  }
  change(place, std::move(state));
}

void gCommentRegions::change(std::uint32_t place, State state) {
  state.from = std::max(place, states_.back().from);
  if (states_.back().from == state.from)
    states_.back() = std::move(state);
  else
    states_.push_back(std::move(state));
}

gCommentRegions::State const & gCommentRegions::at(std::uint32_t place) const {
  auto const next =
      std::upper_bound(states_.begin(), states_.end(), place,
                       [](std::uint32_t at, State const & state) { return at < state.from; });
  return next == states_.begin() ? *next : *std::prev(next);
}

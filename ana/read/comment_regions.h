// What comments bracket: the members of topics, those under a heading, and what isn't to be shown.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ana/comments/translate.h"
#include "ana/read/comment_blocks.h"

class gCommentRegions {
public:
  // What holds from a place of the source on.
  struct State {
    std::uint32_t from = 0;
    std::string topic; // the place of the innermost one; empty for none
    std::string heading;
    std::uint32_t topic_begin = 0, heading_begin = 0; // where their brackets open
    bool hidden = false;
  };

  gCommentRegions(std::string_view text, std::vector<gCommentBlock> const & blocks,
                  std::vector<Decl::gComment> const & comments, bool pascal,
                  gCommentOptions const & options);

  bool empty() const { return states_.size() == 1; }
  State const & at(std::uint32_t place) const;

private:
  void take(gCommentBlock const & block, std::vector<gCommentGroup> const & groups);
  void open(std::uint32_t place);
  void change(std::uint32_t place, State state);

  std::vector<State> states_; // by their places
  std::vector<State> open_;   // by open brackets: what held in front
  std::vector<bool> hiding_;  // by open "cond"
  // What the next bracket opens, and the end of the comment that says so.
  gCommentGroup pending_{gCommentGroup::close, {}, {}};
  std::uint32_t pending_end_ = 0;
};

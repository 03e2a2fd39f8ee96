// The order of gAttachRule is that of preference.
#include "ana/read/attach_choice.h"

#include <algorithm>

namespace {

// "/* input */ int width; /* in pixels */ int height; /* in lines */", each on a line: what stands
// in front of the first speaks of all, if those that follow have a comment behind alone.
void leave_out_headings(std::vector<gAttachment> & found, std::vector<gCommentBlock> const & blocks,
                        gAttachPlaces const & places) {
  constexpr std::uint32_t longest = 3; // lines behind the first one; what is longer is told, too
  std::vector<std::int32_t> behind(places.size(), -1); // the block, by declaration
  std::vector<bool> in_front(places.size(), false);
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (found[i].declaration < 0 || found[i].param >= 0)
      continue;
    auto const at = static_cast<std::size_t>(found[i].declaration);
    if (found[i].rule == gAttachRule::plain_behind)
      behind[at] = static_cast<std::int32_t>(i);
    else
      in_front[at] = true;
  }
  for (std::size_t i = 0; i < found.size(); ++i) {
    gAttachment & one = found[i];
    if (one.rule != gAttachRule::plain_before || blocks[i].end_line > blocks[i].line + longest)
      continue;
    std::int32_t const own = behind[static_cast<std::size_t>(one.declaration)];
    std::int32_t const next = places.next_sibling(places.first_of_statement(one.declaration));
    if (own < 0 || next < 0 || behind[static_cast<std::size_t>(next)] < 0 ||
        in_front[static_cast<std::size_t>(next)])
      continue;
    std::uint32_t const line = places.line_of(places.item(next).whole.begin);
    if (line <= blocks[static_cast<std::size_t>(own)].end_line + 1)
      one = {gAttachRule::none, gLeftOut::heading, -1, -1};
  }
}

// A front comment of two kinds: the nearest documenting one was chosen above; of plain ones the
// rules are ordered.
void keep_the_best(std::vector<gAttachment> & found, std::size_t declarations) {
  std::vector<gAttachRule> best(declarations, gAttachRule::none);
  for (gAttachment const & one : found)
    if (one.declaration >= 0 && one.param < 0) {
      gAttachRule & rule = best[static_cast<std::size_t>(one.declaration)];
      rule = std::min(rule, one.rule);
    }
  for (gAttachment & one : found) {
    if (one.declaration < 0 || one.param >= 0)
      continue;
    gAttachRule const rule = best[static_cast<std::size_t>(one.declaration)];
    // What is written behind adds to what stands in front.
    bool const adds = (one.rule == gAttachRule::behind && rule == gAttachRule::before) ||
                      (one.rule == gAttachRule::plain_behind && rule == gAttachRule::plain_before);
    if (one.rule != rule && !adds)
      one = {gAttachRule::none, gLeftOut::another, -1, -1};
  }
}

} // namespace

void choose_attachments(std::vector<gAttachment> & found, std::vector<gCommentBlock> const & blocks,
                        gAttachPlaces const & places) {
  leave_out_headings(found, blocks, places);
  keep_the_best(found, places.size());
}

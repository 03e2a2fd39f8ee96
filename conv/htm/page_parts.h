// Where a page would be too heavy, the texts of members move to further pages, by their groups.
// The rows of the page keep all addresses, and lead on.
#pragma once

#include <map>
#include <set>

#include "conv/htm/overview.h"

// What the text of a member came to when it stood on the page itself.
struct gMemberText {
  std::size_t markup = 0; // bytes of tags
  std::vector<std::string> anchors;
};

// A further page. Its address depends on the first of its groups, and on the sizes.
struct gPagePart {
  std::string file;
  std::vector<std::string> titles; // of its groups, finished texts
  std::vector<int> members;
  std::string title; // made of them
};

class gPageParts {
public:
  // Bytes of tags from which on a page is heavy, and up to which a part is filled.
  static constexpr std::size_t most_markup = 85000, most_of_part = 70000;

  // Members without a text stay where they are.
  void plan(std::string const & page_file, std::vector<gListed::Group> const & groups,
            std::map<int, gMemberText> texts);
  void clear() { *this = gPageParts(); }
  bool empty() const { return parts_.empty(); }
  std::vector<gPagePart> const & all() const { return parts_; }
  // The part that has the text of a member; null for others.
  gPagePart const * of(int member) const;
  gMemberText const & text_of(int member) const { return texts_.at(member); }

private:
  std::vector<gPagePart> parts_;
  std::map<int, std::size_t> part_of_;
  std::map<int, gMemberText> texts_;
};

namespace PageParts {

std::size_t markup_of(std::string_view html);
// All places that links can lead to, but those of notes.
std::vector<std::string> anchors_in(std::string_view html);

} // namespace PageParts

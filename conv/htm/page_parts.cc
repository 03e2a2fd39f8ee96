// Parts are filled in the order of the lists. No slug has two dashes side by side, so that the
// names of parts are free.

#include "conv/htm/page_parts.h"

#include <algorithm>

namespace {

// Of one group, of few, or of the first and the last.
std::string joined(std::vector<std::string> const & titles) {
  constexpr std::size_t few = 3;
  if (titles.size() > few)
    return titles.front() + " \u2026 " + titles.back();
  std::string out;
  for (std::string const & title : titles)
    out += (out.empty() ? "" : ", ") + title;
  return out;
}

} // namespace

// A group begins a part if it has no room in the one before.
void gPageParts::plan(std::string const & page_file, std::vector<gListed::Group> const & groups,
                      std::map<int, gMemberText> texts) {
  texts_ = std::move(texts);
  std::string const stem = page_file.substr(0, page_file.rfind('.')) + "--";
  std::map<std::string, std::size_t> files;
  std::size_t filled = most_of_part;
  for (gListed::Group const & group : groups) {
    std::size_t needed = 0;
    for (int const member : group.units)
      needed += texts_.contains(member) ? texts_.at(member).markup : 0;
    bool begins = needed > 0 && filled + needed > most_of_part;
    bool listed = false;
    for (int const member : group.units) {
      auto const text = texts_.find(member);
      if (text == texts_.end())
        continue;
      if (begins || filled + text->second.markup > most_of_part) {
        std::size_t const number = ++files[group.place];
        parts_.emplace_back().file =
            stem + group.place + (number > 1 ? "-" + std::to_string(number) : "");
        filled = 0;
        begins = listed = false;
      }
      if (!listed)
        parts_.back().titles.push_back(group.title);
      listed = true;
      filled += text->second.markup;
      part_of_[member] = parts_.size() - 1;
      parts_.back().members.push_back(member);
    }
  }
  for (gPagePart & part : parts_) {
    part.file += ".htm";
    part.title = joined(part.titles);
  }
}

gPagePart const * gPageParts::of(int member) const {
  auto const found = part_of_.find(member);
  return found == part_of_.end() ? nullptr : &parts_[found->second];
}

std::size_t PageParts::markup_of(std::string_view html) {
  std::size_t bytes = 0;
  for (std::size_t at = 0; (at = html.find('<', at)) != html.npos;) {
    std::size_t const end = std::min(html.find('>', at), html.size());
    bytes += end - at + 1;
    at = end;
  }
  return bytes;
}

std::vector<std::string> PageParts::anchors_in(std::string_view html) {
  constexpr std::string_view key = " id=\"";
  std::vector<std::string> anchors;
  for (std::size_t at = 0; (at = html.find(key, at)) != html.npos;) {
    at += key.size();
    std::string_view const anchor = html.substr(at, html.find('"', at) - at);
    if (!anchor.starts_with("n-"))
      anchors.emplace_back(anchor);
  }
  return anchors;
}

// Few declarations have a topic or a heading, so the others pay a null pointer.
#include "ana/read/element_groups.h"

#include <algorithm>

#include "ana/read/rich_pieces.h"

namespace {

using Decl::gDeclaration;
using Decl::gKind;

constexpr std::size_t most_topics = 64; // of one declaration

void put(gCodeElem & element, gString const & topic, gString const & heading) {
  auto made = element.groups ? make_ref<gElemGroups>(*element.groups) : make_ref<gElemGroups>();
  bool const known = std::ranges::find(made->topics, topic) != made->topics.end();
  if (!topic.empty() && !known && made->topics.size() < most_topics)
    made->topics.push_back(topic);
  if (!heading.empty())
    made->heading = heading;
  element.groups = std::move(made);
}

// It stands in something that begins behind the bracket.
bool is_inner(Decl::gFileDeclarations const & found, gDeclaration const & one,
              std::uint32_t bracket) {
  if (one.scope < 0)
    return false;
  gDeclaration const & scope = found.items[static_cast<std::size_t>(one.scope)];
  return scope.kind != gKind::name_space && scope.whole.begin >= bracket;
}

template <class Each> void each_element(gReadElements const & elements, Each each) {
  for (std::size_t i = 0; i < elements.of.size(); ++i)
    if (elements.of[i] >= 0)
      each(i, static_cast<std::size_t>(elements.of[i]));
}

} // namespace

void note_regions(gCommentRegions const & regions, Decl::gFileDeclarations const & found,
                  gReadElements & elements) {
  if (regions.empty())
    return;
  each_element(elements, [&](std::size_t declaration, std::size_t element) {
    gDeclaration const & one = found.items[declaration];
    gCommentRegions::State const & state = regions.at(one.whole.begin);
    bool const named = !state.topic.empty() && one.kind != gKind::name_space &&
                       !is_inner(found, one, state.topic_begin);
    bool const headed = !state.heading.empty() && !is_inner(found, one, state.heading_begin);
    if (named || headed)
      put(*elements.elements[element], gString(named ? state.topic : ""),
          gString(headed ? state.heading : ""));
  });
}

void note_heading(std::string const & heading, Decl::gFileDeclarations const & found,
                  gAttachment const & attachment, gReadElements & elements) {
  auto const first = static_cast<std::size_t>(attachment.first_headed);
  auto const last = static_cast<std::size_t>(attachment.last_headed);
  std::uint32_t const end = found.items[last].whole.end;
  for (std::size_t i = first; i < found.items.size() && found.items[i].whole.begin < end; ++i) {
    bool const sibling = found.items[i].scope == found.items[first].scope;
    if (!sibling || elements.of[i] < 0)
      continue;
    gCodeElem & element = *elements.elements[static_cast<std::size_t>(elements.of[i])];
    if (!element.groups || element.groups->heading.empty())
      put(element, gString(), gString(heading));
  }
}

void add_topics(gCodeElem & element, std::vector<gCommentGroup> const & groups) {
  for (gCommentGroup const & group : groups)
    if (group.kind == gCommentGroup::member)
      put(element, place_name(group.id), gString());
}

gString topics_of(std::vector<gCommentGroup> const & groups, gCommentGroup::Kind kind) {
  gString all;
  for (gCommentGroup const & group : groups)
    if (group.kind == kind)
      all += (all.empty() ? "" : " ") + place_name(group.id);
  return all;
}

std::vector<bool> hidden_elements(gCommentRegions const & regions,
                                  Decl::gFileDeclarations const & found,
                                  gReadElements const & elements) {
  std::vector<bool> hidden(elements.elements.size());
  if (!regions.empty())
    each_element(elements, [&](std::size_t declaration, std::size_t element) {
      hidden[element] = regions.at(found.items[declaration].whole.begin).hidden;
    });
  return hidden;
}

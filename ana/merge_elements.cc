// Elements share their parts with others, so changed ones are copies.
#include "ana/merge_elements.h"

#include <algorithm>

#include "ana/join_conditions.h"
#include "ana/join_keys.h"

using Decl::gKind;

bool announces(gCodeElem const & element) {
  if (family_of(element) == 'c')
    return element.kind == gKind::typedef_ || has_mark(element, Decl::mark_forward);
  return !has_mark(element, Decl::mark_definition) && !has_mark(element, Decl::mark_out_of_class);
}

namespace {

// The topics of all places count.
void join_groups(gCodeElem & kept, gCodeElem const & gone) {
  if (!gone.groups)
    return;
  auto both = make_ref<gElemGroups>(kept.groups ? *kept.groups : *gone.groups);
  for (gString const & topic : gone.groups->topics)
    if (std::ranges::find(both->topics, topic) == both->topics.end())
      both->topics.push_back(topic);
  if (both->heading.empty())
    both->heading = gone.groups->heading;
  kept.groups = std::move(both);
}

// Which one of several definitions holds is told by conditions alone.
void join_variants(gCodeElem & kept, gCodeElem const & gone) {
  constexpr std::size_t most = 32;
  bool const known = kept.parts && gone.parts && (kept.parts->condition || gone.parts->condition);
  if (!known || family_of(kept) != 'm' || std::string_view(kept.decl) == gone.decl)
    return;
  auto const variant_of = [](gCodeElem const & one) {
    return gMacroVariant{one.parts->condition ? *one.parts->condition : gString(), one.decl};
  };
  auto parts = std::make_unique<gDeclParts>(*kept.parts);
  auto lists = parts->lists ? make_ref<gDeclLists>(*parts->lists) : make_ref<gDeclLists>();
  if (lists->variants.empty())
    lists->variants.push_back(variant_of(kept));
  if (lists->variants.size() < most)
    lists->variants.push_back(variant_of(gone));
  parts->condition = either_condition(parts->condition, gone.parts->condition);
  parts->lists = std::move(lists);
  kept.parts = std::move(parts);
}

// Where two places say the same, users have it if one of them does. Of a definition it isn't known
// who sees it, and of what is spelled in two ways the shown one has its own condition.
void join_conditions(gCodeElem & kept, gCodeElem const & gone) {
  bool const alike = family_of(kept) == 'f' || std::string_view(kept.decl) == gone.decl;
  if (!alike || announces(kept) != announces(gone) || !kept.parts || !kept.parts->condition ||
      !gone.parts)
    return;
  auto parts = std::make_unique<gDeclParts>(*kept.parts);
  parts->condition = either_condition(kept.parts->condition, gone.parts->condition);
  kept.parts = std::move(parts);
}

} // namespace

void merge_elements(gCodeElem & kept, gCodeElem const & gone) {
  join_groups(kept, gone);
  join_variants(kept, gone);
  join_conditions(kept, gone);
}

void take_shape(gCodeElem & kept, gCodeElem const & like) {
  auto parts = std::make_unique<gDeclParts>(*like.parts);
  parts->marks = kept.parts->marks;
  parts->condition = kept.parts->condition;
  kept.decl = like.decl;
  kept.parts = std::move(parts);
}

// Places. Comments, includes and faults come in text order, and so do the declarations, so one walk
// with a stack of those that are open finds what each stands in.
#include <algorithm>

#include "ana/decl/pas_reader.h"

namespace Decl {

namespace {

bool holds(gRange range, std::uint32_t offset) {
  return range.begin <= offset && offset < range.end;
}

// The innermost declaration around an offset, for offsets that only grow.
class Nest {
public:
  explicit Nest(std::vector<gDeclaration> const & items) : items_(items) {}

  // -1 outside of all.
  std::int32_t at(std::uint32_t offset) {
    while (next_ < items_.size() && items_[next_].whole.begin <= offset) {
      leave(items_[next_].whole.begin);
      // Names of one statement have one extent: the first stands for all.
      bool const repeated = items_[next_].statement != static_cast<std::int32_t>(next_);
      if (!repeated)
        open_.push_back(static_cast<std::int32_t>(next_));
      ++next_;
    }
    leave(offset);
    return open_.empty() ? -1 : open_.back();
  }

private:
  std::vector<gDeclaration> const & items_;
  std::vector<std::int32_t> open_;
  std::size_t next_ = 0;

  void leave(std::uint32_t offset) {
    while (!open_.empty() && items_[static_cast<std::size_t>(open_.back())].whole.end <= offset)
      open_.pop_back();
  }
};

bool is_routine(gKind kind) {
  switch (kind) {
  case gKind::procedure:
  case gKind::function:
  case gKind::method:
  case gKind::class_method:
  case gKind::message_method:
  case gKind::constructor:
  case gKind::destructor:
  case gKind::operator_:
    return true;
  default:
    return false;
  }
}

// Contents of a type that lists values, not members.
bool lists_values(gDeclaration const & item, std::string_view text) {
  return !item.body.empty() && text[item.body.begin] == '(';
}

struct Where {
  std::int32_t scope = -1, declaration = -1;
  gComment::Place place = gComment::between;
};

Where where(gFileDeclarations const & out, std::string_view text, std::int32_t inner,
            std::uint32_t offset) {
  Where found;
  if (inner < 0)
    return found;
  gDeclaration const & item = out.items[static_cast<std::size_t>(inner)];
  if (item.body.begin < item.body.end && holds(item.body, offset)) {
    found.scope = inner;
    if (is_routine(item.kind)) {
      found.place = gComment::body;
      found.declaration = inner;
    } else if (lists_values(item, text)) {
      found.place = gComment::values;
    }
    return found;
  }
  found.scope = item.scope;
  found.declaration = inner;
  found.place = holds(item.parameter_list, offset) ? gComment::parameters : gComment::within;
  return found;
}

void place_comments(gPasSource const & source, bool nothing_declared, gFileDeclarations & out) {
  Nest nest(out.items);
  auto const size = static_cast<std::uint32_t>(source.text.size());
  for (gPasPlace const & place : source.comment_places) {
    gComment & comment = out.comments[place.index];
    std::uint32_t const before = place.token;
    comment.code_before = before > 0 ? source.tokens[before - 1].end : 0;
    comment.code_behind = before < source.tokens.size() ? source.tokens[before].begin : size;
    Where const found = where(out, source.text, nest.at(comment.whole.begin), comment.whole.begin);
    comment.scope = found.scope;
    if (comment.place == gComment::outside)
      continue;
    comment.declaration = found.declaration;
    comment.place = nothing_declared ? gComment::body : found.place;
  }
}

void place_includes(gPasSource const & source, std::vector<gPasState> const & states,
                    gFileDeclarations & out) {
  Nest nest(out.items);
  for (gPasPlace const & place : source.include_places) {
    gInclude & include = out.includes[place.index];
    Where const found = where(out, source.text, nest.at(include.name.begin), include.name.begin);
    include.scope = found.scope;
    if (include.context.section == gPascalContext::body) {
      continue;
    } else if (found.place == gComment::values) {
      include.context.section = gPascalContext::values;
    } else if (found.place != gComment::between) {
      include.context.section = gPascalContext::body;
    } else {
      auto const behind = std::ranges::upper_bound(states, place.token, {}, &gPasState::token);
      if (behind != states.begin())
        include.context = std::prev(behind)->context;
    }
  }
}

} // namespace

void pas_places(gPasSource const & source, std::vector<gPasState> const & states,
                std::vector<gPasFault> const & faults, gFileDeclarations & out) {
  bool const nothing = !states.empty() && states.front().context.section == gPascalContext::body;
  place_comments(source, nothing, out);
  place_includes(source, states, out);
  if (nothing)
    return;
  std::vector<gPasFault> all = source.faults;
  all.insert(all.end(), faults.begin(), faults.end());
  std::ranges::stable_sort(all, {}, [](gPasFault const & fault) { return fault.whole.begin; });
  Nest nest(out.items);
  for (gPasFault const & fault : all) {
    gSkipped skipped;
    skipped.whole = fault.whole;
    skipped.line = source.line_of(fault.whole.begin);
    // One cause often shows more than once on its line.
    if (!out.skipped.empty() && out.skipped.back().line == skipped.line &&
        fault.whole.end <= out.skipped.back().whole.end + 200)
      continue;
    skipped.end_line = std::max(skipped.line, source.line_of(std::max(fault.whole.end, 1u) - 1));
    skipped.scope = where(out, source.text, nest.at(fault.whole.begin), fault.whole.begin).scope;
    skipped.reason = fault.reason;
    out.skipped.push_back(std::move(skipped));
  }
}

} // namespace Decl

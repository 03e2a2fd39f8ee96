// Pages are stretches of the units in their order.

#include "conv/htm/pages.h"

gPages::gFlags gPages::begins(gDocument const & document, int split) {
  std::vector<gUnitRecord> const & units = document.units;
  gFlags result(units.size());
  auto const is_text = [](gUnitRecord const & unit) {
    return unit.facts.kind == "topic" || unit.facts.kind == "page";
  };
  for (std::size_t i = 0; i < units.size(); ++i)
    result[i] = units[i].level <= split || i == 0 || units[i - 1].section != units[i].section ||
                is_text(units[i]);
  for (std::size_t first = 0, end = 0; first < units.size(); first = end) {
    for (end = first + 1; end < units.size() && !result[end];)
      ++end;
    split_long_list(document, static_cast<int>(first), static_cast<int>(end), result);
  }
  return result;
}

void gPages::split_long_list(gDocument const & document, int first, int end, gFlags & begins) {
  std::vector<gUnitRecord> const & units = document.units;
  if (end - first <= most_units || !units[static_cast<std::size_t>(first)].declaration.empty())
    return;
  long_lists_.insert(first);
  for (auto unit = static_cast<std::size_t>(first) + 1; unit < static_cast<std::size_t>(end);
       ++unit)
    if (units[unit].parent == first)
      begins[unit] = true;
}

// Overloads, or what is declared several times.
bool gPages::is_same(std::size_t a, std::size_t b) const {
  gUnitRecord const & one = document_.units[a];
  gUnitRecord const & other = document_.units[b];
  return !one.name.empty() && one.name == other.name && one.style == other.style &&
         one.level == other.level && one.parent == other.parent && one.section == other.section;
}

void gPages::join_sets(gFlags & begins) {
  std::size_t const none = begins.size();
  std::size_t head = none; // of the page at work
  std::size_t bytes = 0;   // of its text
  for (std::size_t first = 0, end = 0; first < begins.size(); first = end) {
    std::size_t own = 0;
    for (end = first; end == first || (end < begins.size() && !begins[end]); ++end)
      own += document_.units[end].end - document_.units[end].begin;
    bool const fits = end - head <= most_units && bytes + own <= most_bytes;
    if (head != none && is_same(head, first) && fits) {
      begins[first] = false;
      bytes += own;
    } else {
      head = first;
      bytes = own;
    }
  }
}

bool gPages::is_mere_heading(std::size_t unit) const {
  gUnitRecord const & record = document_.units[unit];
  if (!record.name.empty() || !record.declaration.empty() || record.file < 0 ||
      document_.files.empty())
    return false;
  gUnitText const text = document_.text_of(static_cast<int>(unit));
  return text.subject.empty() && text.body.empty();
}

// Chapters of a script that found nothing: behind them comes the next one, or their section ends.
bool gPages::is_empty_heading(std::size_t unit, gFlags const & begins) const {
  std::size_t const next = unit + 1;
  if (next < begins.size() && !begins[next])
    return false;
  bool const followed =
      next < begins.size() && document_.units[next].section == document_.units[unit].section &&
      (document_.units[next].parent == static_cast<int>(unit) || !is_mere_heading(next));
  return !followed && is_mere_heading(unit);
}

gPages::gPages(gDocument const & document, int split)
    : document_(document),
      of_(document.units.size(), -1) {
  gFlags begins_page = begins(document, split);
  join_sets(begins_page);
  std::vector<int> unit_parents, page_parents;
  unit_parents.reserve(of_.size());
  for (std::size_t unit = 0; unit < of_.size(); ++unit) {
    gUnitRecord const & record = document.units[unit];
    unit_parents.push_back(record.parent);
    if (begins_page[unit] && is_empty_heading(unit, begins_page))
      continue;
    auto const number = static_cast<int>(unit);
    if (begins_page[unit]) {
      pages_.push_back({number, number, 0});
      page_parents.push_back(record.parent < 0 ? -1 : of(record.parent));
    }
    gPage & page = pages_.back();
    page.end = number + 1;
    page.same += begins_page[unit] || is_same(static_cast<std::size_t>(page.first), unit) ? 1 : 0;
    of_[unit] = size() - 1;
  }
  tree_ = gForest(std::move(page_parents));
  units_ = gForest(std::move(unit_parents));
}

bool gPages::heads(int unit) const {
  if (of(unit) < 0)
    return false;
  int const first = (*this)[of(unit)].first;
  return first == unit || is_same(static_cast<std::size_t>(first), static_cast<std::size_t>(unit));
}

int gPages::depth(int unit) const {
  int depth = 0;
  int top = unit;
  for (int above = units_.parent(unit); above >= 0 && of(above) == of(unit);
       above = units_.parent(above)) {
    ++depth;
    top = above;
  }
  return depth + (begins(top) ? 0 : 1);
}

// The tables over the units, and what they answer.
#include "conv/atc/document.h"

#include "conv/atc/node_parser.h"

std::vector<int> gDocument::children_of(int unit) const {
  auto const at = static_cast<std::size_t>(unit + 1);
  if (at + 1 >= child_starts_.size())
    return {};
  return {children_.begin() + child_starts_[at], children_.begin() + child_starts_[at + 1]};
}

gUnitText gDocument::text_of(int unit) const {
  gUnitRecord const & record = units[unit];
  gAtcScanner scanner(files[record.file]->text, record.begin, record.end, record.content_line,
                      nullptr);
  return gNodeParser(scanner).unit_text();
}

// Children lie behind one another, parent after parent.
void gDocument::make_tree() {
  child_starts_.assign(units.size() + 2, 0);
  children_.resize(units.size());
  depths_.assign(units.size(), 0);
  for (gUnitRecord const & unit : units)
    ++child_starts_[unit.parent + 2];
  for (std::size_t i = 1; i < child_starts_.size(); ++i)
    child_starts_[i] += child_starts_[i - 1];
  std::vector<int> next(child_starts_.begin(), child_starts_.end() - 1);
  for (std::size_t i = 0; i < units.size(); ++i) {
    int const parent = units[i].parent;
    children_[next[parent + 1]++] = static_cast<int>(i);
    depths_[i] = parent < 0 ? 0 : depths_[parent] + 1;
  }
}

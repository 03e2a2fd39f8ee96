// What units are, in a word: by the rules of the script for their style.
#pragma once

#include "conv/atc/document.h"
#include "conv/vlt/rules.h"

struct gKind {
  std::string word;     // finished text of the target; empty for units that are just text
  std::string css;      // lower-case letters and "-"
  std::string selector; // what rules select by; the style or what the declaration looks like
};

class gKinds {
public:
  gKinds(gDocument const & document, gVltRules const & rules);

  gKind const & of(int unit) const { return kinds_[index_of(unit)]; }
  // Into all(); 0 for units without a kind.
  std::size_t index_of(int unit) const { return of_[static_cast<std::size_t>(unit)]; }
  std::vector<gKind> const & all() const { return kinds_; }

private:
  std::vector<gKind> kinds_;
  std::vector<std::uint16_t> of_;
};

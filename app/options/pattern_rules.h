// Source patterns and subentries: keywords that must be unique, and the sets for the mark-up of
// other documentation generators.
#pragma once

#include <string>
#include <vector>

#include "app/options/text_rules.h"

namespace Vapp {

// A keyword's place: the source pattern or subentry that holds it, and the position there.
struct gKeywordPlace {
  std::string holder;
  int position = -1;

  bool operator==(gKeywordPlace const &) const = default;
};

// Where a keyword stands first among those of all source patterns and subentries, leaving out one
// place; an empty holder if nowhere.
gKeywordPlace find_keyword(cObj const & options, std::string const & keyword,
                           gKeywordPlace const & left_out = {});
// The form of a keyword and its separators, and that no one else has it. `place` is where a
// keyword is changed.
gCheck check_new_keyword(cObj const & options, std::string const & keyword,
                         std::string const & separators, gKeywordPlace const & place = {});
// Names of new things; the text has passed cat::wsp_normalize.
gCheck check_new_attribute(cObj const & options, std::string const & name);
gCheck check_new_pattern(cObj const & options, std::string const & name);
gCheck check_new_subentry(cObj const & options, std::string const & name);

// The two source patterns without keywords, and the text in place of the keywords.
bool is_optional_pattern(std::string const & name);
std::string optional_pattern_text(std::string const & name);

enum class gSubentrySet { javadoc, docpp };
// The subentries that a set brings.
std::vector<std::string> subentries_of(gSubentrySet set);
// Adds the subentries and keywords of a set; what is there is left alone. Returns the new
// subentries.
std::vector<std::string> add_subentry_set(cMapObj & options, gSubentrySet set);
// Takes them away again; the keyword that is a predefined subentry's own name stays.
std::vector<std::string> remove_subentry_set(cMapObj & options, gSubentrySet set);

} // namespace Vapp

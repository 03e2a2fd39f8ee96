#include "app/options/comment_subentries.h"

#include <algorithm>

#include "app/options/run_input.h"
#include "store/cmapobj.h"

namespace {

struct Row {
  std::string_view name;  // its keyword, too
  std::string_view title; // above its text where no script has another one
};

// In the order in which a unit shows them.
constexpr Row rows[] = {
    {"@deprecated", "Deprecated"},
    {"@tparam", "Template Parameters"},
    {"@throws", "Throws"},
    {"@invariant", "Invariants"},
    {"@pre", "Preconditions"},
    {"@post", "Postconditions"},
    {"@values", "Values"},
    {"@note", "Notes"},
    {"@warning", "Warnings"},
    {"@example", "Example"},
    {"@see", "See also"},
    {"@since", "Since"},
    {"@version", "Version"},
    {"@author", "Author"},
    {"@copyright", "Copyright"},
    {"@bug", "Known Bugs"},
    {"@test", "Tests"},
    {"@todo", "To do"},
};

// Those of a project's own set that comments are translated to, too.
constexpr std::string_view common[] = {"@description", "@parameter", "@return"};

bool has_keyword(gRunInput const & input, std::string_view word) {
  auto const has = [&](auto const & holder) {
    return std::ranges::any_of(holder.keywords,
                               [&](gKeywordInput const & one) { return one.first == word; });
  };
  return std::ranges::any_of(input.patterns, has) || std::ranges::any_of(input.subentries, has);
}

// A keyword that the project gave to something else stays there.
void permit_subentry(gRunInput & input, std::string_view name) {
  if (!has_keyword(input, name)) {
    auto found = std::ranges::find(input.subentries, name, &gSubentryInput::name);
    if (found == input.subentries.end())
      found = input.subentries.insert(found, {gString(name), {}});
    found->keywords.emplace_back(gString(name), gString());
  }
  input.subentry_names.emplace(name);
  for (auto & [type, config] : input.unit_config)
    if (config.digits(name) < 0)
      config.add(gString(name), 0);
}

void permit_pattern(gRunInput & input, gPatternInput const & pattern) {
  bool const there = std::ranges::any_of(
      input.patterns, [&](gPatternInput const & one) { return one.name == pattern.name; });
  bool const taken = !pattern.keywords.empty() && has_keyword(input, pattern.keywords[0].first);
  if (!there && !taken)
    input.patterns.push_back(pattern);
}

} // namespace

void Vapp::permit_comments(gRunInput & input) {
  // Every comment beside a declaration is a unit, whatever it begins with: the pattern of those
  // that begin with two stars serves.
  permit_pattern(input, {.name = "spt_2star", .keywords = {}, .slsep = {}, .attributes = {}});
  permit_pattern(input, {.name = "spt_about",
                         .keywords = {{"@about", ""}},
                         .idspec = 2,
                         .slspec = 1,
                         .slsep = "|",
                         .attributes = {}});
  permit_pattern(input, {.name = "spt_text",
                         .keywords = {{"@text", ""}},
                         .slsep = {},
                         .attributes = {{"UNITTYPE", "text"}}});
  for (std::string_view name : common)
    permit_subentry(input, name);
  for (Row const & row : rows) {
    permit_subentry(input, row.name);
    input.shown_subentries.emplace_back(gString(row.name), gString(row.title));
  }
}

void Vapp::choose_modern(cMapObj & options) {
  constexpr int all_types = 511;
  cMapObj & ana = options.submap("ana");
  ana["dialect"] = cat::make("modern");
  ana["cpp_ext"] =
      cat::make("c; cc; cpp; cppm; cu; cuh; cxx; h; hh; hpp; hxx; inl; ipp; ixx; tcc; tpp; txx");
  ana["pas_ext"] = cat::make("p; pas; pp; dpr; lpr");
  ana["alloc"]["gen_unit"] = cat::make(all_types);
  ana["alloc"]["gen_extern"] = cat::make(true);
}

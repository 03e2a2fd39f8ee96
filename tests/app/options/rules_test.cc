// The rules for keywords and sets of subentries, with their words. What an assignment from
// outside can run into stands in set_option.cases.
#include <gtest/gtest.h>

#include "app/options/attributes.h"
#include "app/options/completion.h"
#include "app/options/defaults.h"
#include "app/options/pattern_rules.h"

namespace {

using namespace Vapp;

std::string words(gCheck const & check) {
  return check ? std::to_string(check->field) + " " + check->message : "passes";
}

struct Rules : testing::Test {
  Rules() {
    build_defaults(tree);
    complete_options(tree);
    rebuild_values(tree);
  }
  cMapObj tree;
};

TEST_F(Rules, KeywordsAndSeparators) {
  char const * const rows[][3] = {
      {"see also", ":", "passes"},
      {"see also", "", "3 Keywords containing spaces must have a separator."},
      {"@", "", "1 @-keyword must start with a letter or '_'."},
      {"@a-b", "", "1 Illegal character in @-keyword: '-'"},
      {"a.b", "", "1 Illegal character in keyword: '.'"},
      {"", "", "1 Keyword must start with a letter, '@', or '_'."},
      {"a", "-", "2 Alphanumeric characters, '_', and '-'\ncannot be used as keyword separators."}};
  for (auto const & [keyword, separators, expected] : rows)
    EXPECT_EQ(words(check_keyword(keyword, separators)), expected) << keyword;
  // Among all patterns and subentries a keyword stands once.
  EXPECT_EQ(words(check_new_keyword(tree, "See also", ":")),
            "1 Keyword already exists for @comment.");
  EXPECT_EQ(words(check_new_keyword(tree, "@M", "")), "passes") << "case counts";
  EXPECT_EQ(words(check_new_keyword(tree, "@m", ":", {"spt_method", 1})), "passes");
  EXPECT_EQ(words(check_new_keyword(tree, "@method", "", {"spt_method", 1})),
            "1 Keyword already exists for spt_method.");
}

TEST_F(Rules, ASubentrySetComesAndGoesAsAWhole) {
  cMapObj before;
  before.assign(tree);
  cMapObj & return_record = *(tree.at("ana") / "srcpat_subentry" / "@return")->map();
  EXPECT_EQ(add_subentry_set(tree, gSubentrySet::docpp).size(), 6u);
  EXPECT_EQ(add_subentry_set(tree, gSubentrySet::docpp).size(), 0u);
  EXPECT_EQ(return_record.at("kwd")->size(), 3) << "@return was there already";
  EXPECT_EQ(find_keyword(tree, "@args"), (gKeywordPlace{"@parameter", 4}));
  EXPECT_EQ(find_keyword(tree, "@type").holder, "spt_type") << "taken before";
  EXPECT_EQ(find_keyword(tree, "@see").holder, "@see");
  EXPECT_EQ(remove_subentry_set(tree, gSubentrySet::docpp).size(), 6u);
  EXPECT_TRUE(tree.equal(before));
  EXPECT_EQ(add_subentry_set(tree, gSubentrySet::javadoc), subentries_of(gSubentrySet::javadoc));
}

} // namespace

// The rules for keywords, deletions and unit types, with their words. What an assignment from
// outside can run into stands in set_option.cases.
#include <gtest/gtest.h>

#include "app/options/attributes.h"
#include "app/options/completion.h"
#include "app/options/defaults.h"
#include "app/options/pattern_rules.h"
#include "app/options/unitconfig_rules.h"
#include "store/cerr.h"

namespace {

using namespace Vapp;

std::string words(gCheck const & check) {
  return check ? std::to_string(check->field) + " " + check->message : "passes";
}

struct Rules : testing::Test {
  Rules() {
    build_defaults(tree);
    tree["attr"]["STATE"] = new_attribute("");
    tree["attr"]["STATE"]["valusr"]["draft"] = cat::make(gStrList("draft"));
    complete_options(tree);
    rebuild_values(tree);
    for (char const * pattern : {"spt_class", "spt_var"})
      tree["ana"]["srcpat_unit"][pattern]["attr"]["STATE"] = cat::make("draft");
  }
  cMapObj tree;
};

TEST_F(Rules, KeywordsAndSeparators) {
  char const * const rows[][3] = {
      {"@x", "", "passes"},
      {"@x_1", ":", "passes"},
      {"See-also", "", "passes"},
      {"see also", ":", "passes"},
      {"see also", "", "3 Keywords containing spaces must have a separator."},
      {"@", "", "1 @-keyword must start with a letter or '_'."},
      {"@1", "", "1 @-keyword must start with a letter or '_'."},
      {"@a-b", "", "1 Illegal character in @-keyword: '-'"},
      {"@a b", ":", "1 Illegal character in @-keyword: ' '"},
      {"a.b", "", "1 Illegal character in keyword: '.'"},
      {"1a", "", "1 Keyword must start with a letter, '@', or '_'."},
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

TEST_F(Rules, NamesAndSubjectLines) {
  EXPECT_EQ(words(check_identifier("")), "0 ") << "no message of its own";
  EXPECT_EQ(words(check_new_attribute(tree, "STATE")), "0 Attribute STATE already defined.");
  EXPECT_EQ(words(check_new_pattern(tree, "spt_var")), "0 Source pattern spt_var already exists.");
  EXPECT_EQ(words(check_new_subentry(tree, "@sline")), "0 Subentry @sline already esists.");
  EXPECT_EQ(words(check_new_subentry(tree, "@")), "0 '@' is not a valid identifier.");
  for (char c : std::string("$!=,>"))
    EXPECT_TRUE(check_attribute_value(std::string("a") + c, *(tree.at("attr") / "STATE"))) << c;
  for (char const * bad : {"a", "_", "- -"})
    EXPECT_TRUE(check_subject_separator(bad)) << bad;
  EXPECT_EQ(words(check_subject_line(2, 1, "")), "0 Please specify a separator.");
  EXPECT_FALSE(check_subject_line(2, 0, "") || check_subject_line(1, 1, ""));
}

TEST_F(Rules, DeletionsNameAllUsersOrAskFirst) {
  EXPECT_EQ(
      check_delete_attribute(tree, "STATE").text,
      "Cannot delete attribute STATE.\nIt is being used by source pattern spt_class, spt_var.");
  EXPECT_EQ(check_delete_value(tree, "STATE", "undefined").text,
            "Cannot delete a predefined attribute value: 'undefined'.");
  EXPECT_FALSE(drop_dangling_attributes(tree));
  (tree.at("attr") / "STATE" / "val")->erase("draft");
  EXPECT_TRUE(drop_dangling_attributes(tree)) << "patterns lose attributes that are gone";
  EXPECT_EQ(check_delete_value(tree, "STATE", "draft").text, "Delete attribute value 'draft'?");
  EXPECT_TRUE(check_delete_attribute(tree, "STATE").allowed);
  EXPECT_EQ(check_delete_subentry("@mine").text, "Delete subentry @mine?");
  EXPECT_EQ(check_delete_pattern("spt_var").text, "Delete source pattern spt_var?");
}

TEST_F(Rules, TogglingTheDigitsOfASubentry) {
  struct {
    char const * type;
    char const * subentry;
    int digits;
    gConfigDigit digit;
    char const * expected;
  } const rows[] = {
      {"text", "@comment", 0, config_fill_digit, "Unit type 'text' cannot be con"},
      {"var", "@sline", 0, config_verbatim_digit, "The verbatim format cannot be "},
      {"var", "@sline", 1, config_verbatim_digit, "0"}, // switching off is free
      {"var", "@comment", 0, config_automatic_digit, "Only the following subentries "},
      {"var", "@heritage", 1, config_automatic_digit, "Subentry @heritage can only be"},
      {"class", "@heritage", 1, config_automatic_digit, "11"},
      {"var", "@description", 110, config_automatic_digit, "Subentry @description is alway"},
      {"var", "@description", 110, config_fill_digit, "10"},
      {"var", "@comment", -1, config_fill_digit, "100"}};
  for (auto const & [type, subentry, digits, digit, expected] : rows) {
    std::string const text = words(check_toggle(type, subentry, digits, digit));
    EXPECT_EQ(text == "passes" ? std::to_string(toggled(digits, digit)) : text.substr(2, 30),
              expected);
  }
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

TEST(Refusals, ArePublishedWithTheirField) {
  std::string heard;
  cErrSlot const slot([&](cErr & error) { heard += std::to_string(error.code()) + error.text(); });
  publish(*check_keyword("a b", ""));
  publish({0, "x"});
  EXPECT_EQ(heard, "3Keywords containing spaces must have a separator.1x");
}

} // namespace

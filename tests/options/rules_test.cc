// The rules for names, values, keywords, deletions and unit types, with their words.
#include <gtest/gtest.h>

#include "app/options/attributes.h"
#include "app/options/completion.h"
#include "app/options/defaults.h"
#include "app/options/pattern_rules.h"
#include "app/options/unitconfig_rules.h"
#include "store/cerr.h"

namespace {

std::string words(Vapp::gCheck const & check) {
  return check ? std::to_string(check->field) + " " + check->message : "passes";
}

struct Rules : testing::Test {
  Rules() {
    Vapp::build_defaults(tree);
    tree["attr"]["UNITTYPE"]["valusr"]["macro"] = cat::make(gStrList("macro"));
    tree["attr"]["STATE"] = Vapp::new_attribute("");
    tree["attr"]["STATE"]["valusr"]["draft"] = cat::make(gStrList("draft"));
    Vapp::complete_options(tree);
    Vapp::rebuild_values(tree);
    tree["ana"]["srcpat_unit"]["spt_class"]["attr"]["STATE"] = cat::make("draft");
    tree["ana"]["srcpat_unit"]["spt_var"]["attr"]["STATE"] = cat::make("draft");
  }
  cMapObj tree;
};

TEST_F(Rules, KeywordsAndSeparators) {
  struct {
    char const * keyword;
    char const * separators;
    char const * expected;
  } const rows[] = {
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
      {"a", "-", "2 Alphanumeric characters, '_', and '-'\ncannot be used as keyword separators."},
      {"", "x", "2 Alphanumeric characters, '_', and '-'\ncannot be used as keyword separators."},
  };
  for (auto const & row : rows)
    EXPECT_EQ(words(Vapp::check_keyword(row.keyword, row.separators)), row.expected) << row.keyword;
}

TEST_F(Rules, NamesAndValues) {
  using namespace Vapp;
  EXPECT_EQ(words(check_identifier("")), "0 ") << "no message of its own";
  EXPECT_EQ(words(check_identifier("a b")), "0 'a b' is not a valid identifier.");
  EXPECT_EQ(words(check_new_attribute(tree, "NEW")), "passes");
  EXPECT_EQ(words(check_new_attribute(tree, "STATE")), "0 Attribute STATE already defined.");
  EXPECT_EQ(words(check_new_pattern(tree, "spt_var")), "0 Source pattern spt_var already exists.");
  EXPECT_EQ(words(check_new_subentry(tree, "@sline")), "0 Subentry @sline already esists.");
  EXPECT_EQ(words(check_new_subentry(tree, "@")), "0 '@' is not a valid identifier.");
  cObj const & state = *(tree.at("attr") / "STATE");
  EXPECT_EQ(words(check_attribute_value("in work", state)), "passes");
  EXPECT_EQ(words(check_attribute_value("draft", state)),
            "0 Attribute value 'draft' already exists.");
  EXPECT_EQ(words(check_attribute_value("undefined", state)),
            "0 Attribute value 'undefined' already exists.");
  for (char c : std::string("$!=,>"))
    EXPECT_EQ(words(check_attribute_value(std::string("a") + c, state)),
              "0 Attribute values cannot contain the following characters:\n$ ! = , >");
  EXPECT_EQ(words(check_change_value(tree, "STATE", "undefined")),
            "0 Cannot change predefined attribute values.");
  EXPECT_EQ(words(check_change_value(tree, "STATE", "draft")), "passes");
}

TEST_F(Rules, SubjectLines) {
  using namespace Vapp;
  EXPECT_EQ(words(check_subject_separator("--")), "passes");
  for (char const * bad : {"a", "_", "- -"})
    EXPECT_EQ(words(check_subject_separator(bad)),
              "0 Alphanumeric characters and '_' cannot\nbe used as subject line separators.");
  EXPECT_EQ(words(check_subject_line(2, 1, "")), "0 Please specify a separator.");
  EXPECT_EQ(words(check_subject_line(2, 0, "")), "passes");
  EXPECT_EQ(words(check_subject_line(1, 1, "")), "passes");
}

TEST_F(Rules, AKeywordStandsOnceAmongAllPatternsAndSubentries) {
  using namespace Vapp;
  EXPECT_EQ(words(check_new_keyword(tree, "@m", "")), "1 Keyword already exists for spt_method.");
  EXPECT_EQ(words(check_new_keyword(tree, "See also", ":")),
            "1 Keyword already exists for @comment.");
  EXPECT_EQ(words(check_new_keyword(tree, "@M", "")), "passes") << "case counts";
  EXPECT_EQ(words(check_new_keyword(tree, "@m", ":", {"spt_method", 1})), "passes");
  EXPECT_EQ(words(check_new_keyword(tree, "@method", "", {"spt_method", 1})),
            "1 Keyword already exists for spt_method.");
}

TEST_F(Rules, Deletions) {
  using namespace Vapp;
  EXPECT_EQ(check_delete_attribute(tree, "VISIBILITY").text,
            "Cannot delete a predefined attribute: VISIBILITY.");
  EXPECT_EQ(
      check_delete_attribute(tree, "STATE").text,
      "Cannot delete attribute STATE.\nIt is being used by source pattern spt_class, spt_var.");
  EXPECT_EQ(check_delete_value(tree, "STATE", "undefined").text,
            "Cannot delete a predefined attribute value: 'undefined'.");
  EXPECT_EQ(check_delete_value(tree, "STATE", "draft").text,
            "Cannot delete attribute value draft.\nIt is being used by source pattern spt_class, "
            "spt_var.");
  (tree.at("ana") / "srcpat_unit" / "spt_class" / "attr")->erase("STATE");
  (tree.at("ana") / "srcpat_unit" / "spt_var" / "attr")->erase("STATE");
  EXPECT_EQ(check_delete_value(tree, "STATE", "draft").text, "Delete attribute value 'draft'?");
  EXPECT_TRUE(check_delete_attribute(tree, "STATE").allowed);
  EXPECT_EQ(check_delete_value(tree, "UNITTYPE", "macro").text,
            "Cannot delete unit type 'macro'.\nThere are subentries configured for this unit type."
            "\n\nPlease remove these first from the unit type's configuration.");
  tree["unitconfig"]["macro"] = make_ref<cMapObj>();
  EXPECT_TRUE(check_delete_value(tree, "UNITTYPE", "macro").allowed);
  EXPECT_EQ(check_delete_subentry("@comment").text, "Cannot delete predefined subentry: @comment.");
  EXPECT_EQ(check_delete_subentry("@mine").text, "Delete subentry @mine?");
  EXPECT_EQ(check_delete_pattern("spt_var").text, "Delete source pattern spt_var?");
}

TEST_F(Rules, TogglingTheDigitsOfASubentry) {
  using namespace Vapp;
  auto const toggle = [](char const * type, char const * subentry, int digits, gConfigDigit digit) {
    std::string const text = words(check_toggle(type, subentry, digits, digit));
    return text == "passes" ? std::to_string(toggled(digits, digit)) : text.substr(2, 30);
  };
  EXPECT_EQ(toggle("text", "@comment", 0, config_fill_digit), "Unit type 'text' cannot be con");
  EXPECT_EQ(toggle("var", "@sline", 0, config_verbatim_digit), "The verbatim format cannot be ");
  EXPECT_EQ(toggle("var", "@sline", 1, config_verbatim_digit), "0") << "switching off is free";
  EXPECT_EQ(toggle("var", "@comment", 0, config_automatic_digit), "Only the following subentries ");
  EXPECT_EQ(toggle("var", "@heritage", 1, config_automatic_digit),
            "Subentry @heritage can only be");
  EXPECT_EQ(toggle("class", "@heritage", 1, config_automatic_digit), "11");
  EXPECT_EQ(toggle("var", "@description", 110, config_automatic_digit),
            "Subentry @description is alway");
  EXPECT_EQ(toggle("var", "@description", 110, config_fill_digit), "10");
  EXPECT_EQ(toggle("var", "@comment", -1, config_fill_digit), "100");
}

TEST_F(Rules, ASubentrySetComesAndGoesAsAWhole) {
  using namespace Vapp;
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

TEST_F(Rules, PatternsLoseAttributesThatAreGone) {
  EXPECT_FALSE(Vapp::drop_dangling_attributes(tree));
  (tree.at("attr") / "STATE" / "val")->erase("draft");
  EXPECT_TRUE(Vapp::drop_dangling_attributes(tree));
  EXPECT_TRUE(Vapp::users_of_attribute(tree, "STATE").empty());
  EXPECT_EQ(Vapp::users_of_value(tree, "UNITTYPE", "var"), std::vector<std::string>{"spt_var"});
}

TEST(Refusals, ArePublishedWithTheirField) {
  std::string heard;
  cErrSlot const slot([&](cErr & error) { heard += std::to_string(error.code()) + error.text(); });
  Vapp::publish(*Vapp::check_keyword("a b", ""));
  Vapp::publish({0, "x"});
  EXPECT_EQ(heard, "3Keywords containing spaces must have a separator.1x");
}

} // namespace

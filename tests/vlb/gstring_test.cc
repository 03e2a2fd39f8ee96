#include <random>

#include <gtest/gtest.h>

#include "vlb/gstrlist.h"

namespace {

std::string random_text(std::mt19937 & random, std::string_view characters) {
  std::string text(random() % 20, ' ');
  for (char & c : text)
    c = characters[random() % characters.size()];
  return text;
}

TEST(gString, white_space_is_the_blank_and_9_to_13_only) {
  struct {
    char const *text, *left, *right, *trimmed;
  } const cases[] = {{"", "", "", ""},
                     {" \t\n\v\f\r", "", "", ""},
                     {" a  b\r\n", "a  b\r\n", " a  b", "a b"},
                     {"a \t b\n\nc", "a \t b\n\nc", "a \t b\n\nc", "a b c"},
                     {"\xa0x\x1f", "\xa0x\x1f", "\xa0x\x1f", "\xa0x\x1f"}};
  for (auto const & one : cases) {
    EXPECT_EQ(gString(one.text).wsp_rmleft(), one.left);
    EXPECT_EQ(gString(one.text).wsp_rmright(), one.right);
    EXPECT_EQ(gString(one.text).wsp_trim(), one.trimmed);
    EXPECT_EQ(gString(one.text).wsp_norm(), one.trimmed);
    EXPECT_EQ(gString(one.text).wsp_only(), one.trimmed[0] == '\0') << one.text;
  }
}

TEST(gString, unescape_undoes_escape_on_any_text) {
  std::mt19937 random(2);
  gString const set(",>}@\\");
  for (int i = 0; i < 5000; ++i) {
    gString const text = random_text(random, std::string_view("a,>}@\\\0\n\xb4", 9));
    gString const escaped = gString(text).escape(set, '\\');
    EXPECT_EQ(gString(escaped).unescape('\\'), text);
    EXPECT_EQ(Vlb::escape_atc(text), escaped);
    EXPECT_EQ(gPString(text).escape_atc(), escaped);
  }
  EXPECT_EQ(gString("a\\b,c").escape(set, '\\'), "a\\\\b\\,c");
  EXPECT_EQ(gString("open\\").unescape('\\'), "open");
}

TEST(gString, comparison_without_case_is_that_of_ascii_letters_by_unsigned_bytes) {
  struct {
    char const *a, *b;
    int sign;
  } const cases[] = {{"Foo", "FOO", 0}, {"a", "B", -1}, {"B", "a", 1},         {"ab", "a", 1},
                     {"a", "ab", -1},   {"", "", 0},    {"\xc4", "\xe4", -1},  {"z", "\xe4", -1},
                     {"[", "a", -1},    {"Z", "[", 1},  {"name_", "NAMEa", -1}};
  for (auto const & one : cases) {
    int const order = gString(one.a).compare_i(one.b);
    EXPECT_EQ((order > 0) - (order < 0), one.sign) << one.a << " " << one.b;
  }
  EXPECT_EQ(gString("\xc4Zz@[`{").tolower(), "\xc4zz@[`{");
}

TEST(gStrList, a_copy_keeps_its_text_when_the_original_is_normalised_or_set) {
  gStrList list(" a  b ");
  gStrList const copy = list;
  EXPECT_EQ(list.front().get(), copy.front().get());
  list.wsp_norm();
  EXPECT_EQ(list.make_string(""), "a b");
  list.set(list.begin(), "c");
  EXPECT_EQ(list.make_string(""), "c");
  EXPECT_EQ(copy.make_string(""), " a  b ");
}

TEST(gStrList, appends_itself_and_what_another_list_gives_away) {
  gStrList list("b");
  list.push_front(make_ref<gString>("a"));
  list.append(list);
  EXPECT_EQ(list.make_string(","), "a,b,a,b");
  gStrList given("c");
  gStrList const shared = given;
  list.append(std::move(given));
  EXPECT_EQ(list.make_string(","), "a,b,a,b,c");
  EXPECT_EQ(list.back(), shared.front());
  EXPECT_EQ(std::distance(list.begin(), list.find("b")), 1);
}

} // namespace

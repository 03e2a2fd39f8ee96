#include <random>

#include <gtest/gtest.h>

#include "vlb/gcounter.h"
#include "vlb/gexception.h"
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
  } const cases[] = {
      {"", "", "", ""},
      {" \t\n\v\f\r", "", "", ""},
      {"a", "a", "a", "a"},
      {" a  b\r\n", "a  b\r\n", " a  b", "a b"},
      {"a \t b\n\nc", "a \t b\n\nc", "a \t b\n\nc", "a b c"},
      {"\xa0x\x1f", "\xa0x\x1f", "\xa0x\x1f", "\xa0x\x1f"},
  };
  for (auto const & one : cases) {
    EXPECT_EQ(gString(one.text).wsp_rmleft(), one.left);
    EXPECT_EQ(gString(one.text).wsp_rmright(), one.right);
    EXPECT_EQ(gString(one.text).wsp_trim(), one.trimmed);
    EXPECT_EQ(gString(one.text).wsp_norm(), one.trimmed);
    EXPECT_EQ(gString(one.text).wsp_only(), one.trimmed[0] == '\0') << one.text;
  }
}

TEST(gString, trimming_again_changes_nothing_and_keeps_every_other_character) {
  std::mt19937 random(1);
  for (int i = 0; i < 2000; ++i) {
    gString const text = random_text(random, "ab \t\n");
    gString const once = gString(text).wsp_trim();
    EXPECT_EQ(gString(once).wsp_trim(), once);
    std::string letters, kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(letters), Vlb::is_letter);
    std::copy_if(once.begin(), once.end(), std::back_inserter(kept), Vlb::is_letter);
    EXPECT_EQ(kept, letters);
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
  EXPECT_EQ(gString("plain").escape(set, '\\'), "plain");
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
  EXPECT_EQ(gString("\xe4Zz@[`{").toupper(), "\xe4ZZ@[`{");
}

TEST(gString, assembles_text_from_both_ends) {
  gString text("x");
  text.prepend("class ").prepend(' ').prepend(std::string("a"));
  text += ';';
  text += std::string_view("end");
  EXPECT_EQ(text, "a class x;end");
  EXPECT_EQ(mString(7, 3, '0'), "007");
  EXPECT_EQ(mString(-12345, 3), "-12345");
  gCounter counter;
  counter.get_next_str();
  EXPECT_EQ(counter.get_next_str(), "2");
}

TEST(gStrList, make_string_puts_the_separator_between_neighbours_only) {
  gStrList list;
  EXPECT_EQ(list.make_string("::"), "");
  list << gString("a");
  EXPECT_EQ(list.make_string("::"), "a");
  list << gString("") << gStrList("b");
  list.push_front(gString("0"));
  EXPECT_EQ(list.make_string("::"), "0::a::::b");
  EXPECT_EQ(list.make_string(""), "0ab");
}

TEST(gStrList, a_list_is_blank_if_all_elements_are) {
  EXPECT_TRUE(gStrList().is_wsp());
  EXPECT_TRUE((gStrList(" ") << gString("")).is_wsp());
  EXPECT_FALSE((gStrList(" ") << gString("x")).is_wsp());
}

TEST(gStrList, a_copy_keeps_its_text_when_the_original_is_normalised_or_set) {
  gStrList list(" a  b ");
  gStrList const copy = list;
  EXPECT_EQ(list.front().get(), copy.front().get());
  list.wsp_norm();
  EXPECT_EQ(list.make_string(""), "a b");
  EXPECT_EQ(copy.make_string(""), " a  b ");
  list.set(list.begin(), "c");
  EXPECT_EQ(list.make_string(""), "c");
  EXPECT_FALSE(list == copy);
}

TEST(gStrList, inserts_in_front_appends_behind_and_finds_with_case) {
  gStrList list("b");
  list.insert(list.begin(), "a");
  gStrList more("c");
  more << gString("B");
  list.append(more);
  EXPECT_EQ(list.make_string(","), "a,b,c,B");
  list.append(list);
  EXPECT_EQ(list.make_string(","), "a,b,c,B,a,b,c,B");
  EXPECT_EQ(std::distance(list.begin(), list.find("B")), 3);
  EXPECT_EQ(list.find("x"), list.end());
  list.append(std::move(more));
  EXPECT_EQ(list.size(), 10u);
  list.insert(std::next(list.begin()), std::prev(list.end()), list.end());
  EXPECT_EQ(*list.find("B"), list.back());
}

TEST(gException, texts_begin_with_their_kind_and_internal_errors_are_fatal_ones) {
  EXPECT_STREQ(gExcFatalErr("a: ", "b").what(), "FATAL ERROR: a: b");
  EXPECT_STREQ(gExcUserBreak().what(), "User aborted program.");
  EXPECT_EQ(gExcRange(5, 0, 3).text(), "Invalid index: 5 (0 to 3)");
  try {
    int const value = 1;
    VLB_ASSERT(value == 2);
    FAIL();
  } catch (gExcFatalErr const & failure) {
    EXPECT_TRUE(
        failure.text().starts_with(" INTERNAL ERROR: ASSERT_ failed: value == 2 (gstring_test.cc("))
        << failure.what();
  }
}

} // namespace

// Under which condition there is what two branches, or two files, declare alike.

#include <gtest/gtest.h>

#include "ana/join_conditions.h"

namespace {

std::string either(char const * a, char const * b) {
  cRef<gString const> const both =
      either_condition(make_ref<gString const>(a), make_ref<gString const>(b));
  return both ? *both : "always";
}

} // namespace

TEST(JoinConditions, OneOfTwoHolds) {
  EXPECT_EQ(either("defined(A)", "defined(A)"), "defined(A)");
  EXPECT_EQ(either("defined(A)", "defined(B)"), "defined(A) || defined(B)");
  EXPECT_EQ(either("defined(A)", "!defined(A)"), "always");
  EXPECT_EQ(either("A > 2 && B", "!(A > 2 && B)"), "always");
  EXPECT_EQ(either("defined(A)", "!defined(A) && X(1, 2)"), "defined(A) || X(1, 2)");
  EXPECT_EQ(either("defined(W) && defined(A)", "defined(W) && !defined(A)"), "defined(W)");
  EXPECT_EQ(either("defined(W)", "defined(W) && defined(A)"), "defined(W)");
  EXPECT_EQ(either("defined(W) && (A || B)", "defined(W) && C"), "defined(W) && ((A || B) || C)");
  EXPECT_EQ(either("A && B || C", "A && D"), "A && B || C || A && D");
  EXPECT_FALSE(either_condition(nullptr, make_ref<gString const>("A")));
  std::string const many(600, 'x');
  EXPECT_EQ(either("A", many.c_str()), "always"); // too long to tell
}

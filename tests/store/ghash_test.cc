// The table against the standard library's, and what that one doesn't promise.
#include "store/ghash.h"

#include <gtest/gtest.h>
#include <random>
#include <unordered_map>

namespace {

TEST(Hash, AgreesWithAReferenceMapUnderRandomOperations) {
  std::mt19937 random(1);
  gHash<int> table;
  std::unordered_map<std::string, int> reference;
  for (int i = 0; i < 60000; ++i) {
    std::string const key = "k" + std::to_string(random() % 3000);
    int found = -1;
    switch (random() % 4) {
    case 0:
    case 1:
      EXPECT_EQ(table.insert(key, i), reference.emplace(key, i).second);
      break;
    case 2:
      EXPECT_EQ(table.remove(key), reference.erase(key) == 1);
      break;
    default:
      ASSERT_EQ(table.find(key, found), reference.contains(key));
      ASSERT_EQ(found, reference.contains(key) ? reference[key] : -1);
    }
    ASSERT_EQ(table.size(), reference.size());
  }
  for (auto const & entry : table)
    EXPECT_EQ(reference.at(entry.key), entry.value);
}

TEST(Hash, IteratesInTheOrderOfInsertionThroughGrowthAndRemoval) {
  gHash<int> table;
  std::vector<std::string> expected, keys;
  for (int i = 0; i < 1000; ++i)
    table.insert(std::to_string(i), i);
  int const * const stays = table.lookup("3");
  for (int i = 1000; i < 5000; ++i)
    table.insert(std::to_string(i), i);
  EXPECT_EQ(stays, table.lookup("3"));
  for (int i = 0; i < 5000; i += 2)
    table.remove(std::to_string(i));
  for (int i = 1; i < 5000; i += 2)
    expected.push_back(std::to_string(i));
  table.insert("0", 7);
  expected.push_back("0");
  for (auto const & entry : table)
    keys.push_back(entry.key);
  EXPECT_EQ(keys, expected);
}

TEST(Hash, FreedSlotsNeitherHideKeysNorStopSearches) {
  gHash<int> table;
  table.insert("stays", 1);
  // More removals than slots: a search that only ends at an empty slot would run for ever.
  for (int i = 0; i < 20000; ++i) {
    ASSERT_TRUE(table.insert("x" + std::to_string(i), i));
    ASSERT_TRUE(table.remove("x" + std::to_string(i)));
  }
  EXPECT_TRUE(table.contains("stays"));
  EXPECT_FALSE(table.contains("x5"));
  EXPECT_FALSE(table.insert("stays", 2));
  EXPECT_EQ(*table.lookup("stays"), 1);
}

TEST(GlobalObjects, AreResetInTheOrderOfConstructionWhileTheyLive) {
  static std::string order;
  struct Object : gGlobalObj {
    explicit Object(char name) : name(name) {}
    void reset() override { order += name; }
    char name;
  };
  gGlobalHash<int> table;
  table.insert("a", 1);
  Object first('1');
  { Object gone('x'); }
  Object second('2');
  Global::objects().reset_all();
  EXPECT_EQ(order, "12");
  EXPECT_TRUE(table.empty());
  EXPECT_TRUE(table.insert("a", 2));
}

} // namespace

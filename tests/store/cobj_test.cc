// Values, containers, proxies and types.
#include <gtest/gtest.h>

#include "store/ctypeobj.h"
#include "store/json_text.h"

namespace {

std::string keys(cObj const & map) {
  std::string text;
  for (cIterObj it = map.begin(); it.valid(); it++)
    text += it.key_as_string() + " ";
  return text;
}

TEST(Map, ReadingCreatesNothingAndWritingCreatesTheWay) {
  cMapObj map;
  EXPECT_FALSE(map["x"].getattr() || map["x"]["y"].getattr() || map / "x" / "y");
  EXPECT_EQ(keys(map), "");
  map["a"]["b"] = cat::make(3);
  EXPECT_EQ(&(*map["nil"]).type(), &cat::type_nil());
  EXPECT_EQ(to_json(map), R"({"a":{"b":3},"nil":null})");
  // A value in the way is replaced, as one of the wrong type counts as absent.
  map["nil"]["deep"]["er"] = cat::make(true);
  EXPECT_TRUE(map / "nil" / "deep" / "er");
  cRef<cObj> const same = map["a"]["b"].force_type(cat::type_int());
  EXPECT_EQ(map / "a" / "b", same);
  map["a"].force_type(cat::type_vector())->append(cat::make(2));
  EXPECT_EQ(to_json(*map.at("a")), "[2]");
  EXPECT_TRUE(map["none"] == map["neither"]);
  EXPECT_FALSE(map["none"] == map["a"]);
}

TEST(Map, KeepsTheOrderOfInsertionAndFindsEveryKey) {
  cMapObj map;
  std::string expected;
  for (int i = 500; i > 0; --i) {
    map["key " + std::to_string(i)] = cat::make(i);
    expected += "key " + std::to_string(i) + " ";
  }
  EXPECT_EQ(keys(map), expected);
  for (int i = 500; i > 0; i -= 3)
    EXPECT_TRUE(map.erase("key " + std::to_string(i)));
  for (int i = 1; i <= 500; ++i)
    EXPECT_EQ(map.at("key " + std::to_string(i)) != nullptr, i % 3 != 2) << i;
  EXPECT_FALSE(map.erase("key 2"));
}

// Either would take minutes if it grew with the square.
TEST(Map, NumberKeysSpreadAndManyEntriesGoAtOnce) {
  cMapObj map;
  for (int i = 0; i < 1 << 16; ++i)
    map.set(cKey(i << 15), cat::make(i));
  EXPECT_EQ(cat::as_index(map.at(4000 << 15)), 4000);
  auto const odd = [](cAttrNode const & node) { return cat::as_index(node.value) % 2 == 1; };
  EXPECT_TRUE(map.entries().erase_if(odd));
  EXPECT_FALSE(map.entries().erase_if(odd));
  EXPECT_EQ(map.size(), 1 << 15);
  EXPECT_FALSE(map.at(1 << 15));
  EXPECT_EQ(cat::as_index(map.at(4000 << 15)), 4000);
}

TEST(Map, AListEqualsAMapOfTheSameValuesInOrder) {
  cMapObj map, moved;
  cRef<cObj> const list = make_ref<cVectorObj>();
  for (int i : {0, 1}) {
    map[i == 0 ? "b" : "a"] = cat::make(i);
    moved[i == 0 ? "a" : "b"] = cat::make(1 - i);
    (*list)[i] = cat::make(i);
  }
  cRef<cObj> other = list;
  EXPECT_TRUE(cTomMap::equal_sorted(map, other));
  EXPECT_FALSE(cTomMap::equal_sorted(moved, other)) << "another order";
  map["c"] = cat::make(2);
  EXPECT_FALSE(cTomMap::equal_sorted(map, other)) << "more values";
  other = cat::make(0);
  EXPECT_FALSE(cTomMap::equal_sorted(map, other)) << "no list at all";
}

TEST(Map, CopiesShareUntilTheyAreDetachedAndAssignsAreDeep) {
  cMapObj map, to;
  map["sub"]["x"] = cat::make(1);
  cMapObj shared(map), detached(map);
  detached.detach(true);
  EXPECT_TRUE(to.assign(map));
  EXPECT_TRUE(to.equal(map));
  map["sub"]["x"] = cat::make(gStrList("2"));
  EXPECT_EQ(to_json(shared), R"({"sub":{"x":["2"]}})");
  EXPECT_EQ(to_json(detached) + to_json(to), R"({"sub":{"x":1}}{"sub":{"x":1}})");
  EXPECT_FALSE(to.equal(map));
  EXPECT_FALSE(to.assign(*cat::make(1)) || to.add(*cat::make(1)));
  EXPECT_FALSE(to.assign(cVectorObj())) << "a vector is no map";
  // Copying a part over its whole mustn't free the part first.
  EXPECT_TRUE(to.assign(*to.at("sub")));
  map["x"] = cat::make(3);
  EXPECT_TRUE(to.add(map));
  EXPECT_EQ(to_json(to), R"({"x":3,"sub":{"x":["2"]}})");
}

TEST(Values, ConvertAsAWholeOrNotAtAll) {
  bool flag = false;
  int number = 7;
  std::string text;
  EXPECT_TRUE(cat::read(cat::make(2), flag) && flag);
  EXPECT_TRUE(cat::read(cat::make("3"), number) && number == 3);
  for (char const * bad : {"3x", "", " 3", "99999999999", "true"})
    EXPECT_FALSE(cat::read(cat::make(bad), number)) << bad;
  EXPECT_FALSE(cat::read(nullptr, number) || cat::read(cat::make_nil(), number));
  EXPECT_EQ(number, 3);
  EXPECT_TRUE(cat::read(cat::make(-5), text) && text == "-5");
  EXPECT_FALSE(cat::read(make_ref<cMapObj>(), text) || cat::read(cat::make(gStrList("1")), text));
  cRef<cObj> const value = cat::make("12");
  int const before = cObjBase::ob_count;
  cat::read(value, number);
  { cMapObj const temporary; }
  EXPECT_EQ(cObjBase::ob_count, before) << "a reader that converts frees what it makes";
}

} // namespace

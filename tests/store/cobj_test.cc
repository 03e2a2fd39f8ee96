// Values, containers, proxies and types.
#include <gtest/gtest.h>
#include <sstream>

#include "store/cerr.h"
#include "store/ctypeobj.h"

namespace {

std::string keys(cObj const & map) {
  std::string text;
  for (cIterObj it = map.begin(); it.valid(); it++)
    text += it.key_as_string() + " ";
  return text;
}

TEST(Map, ReadingCreatesNothingAndWritingCreatesTheWay) {
  cMapObj map;
  EXPECT_FALSE(map["x"].getattr());
  EXPECT_FALSE(map["x"]["y"].getattr());
  EXPECT_FALSE(map / "x" / "y");
  EXPECT_EQ(keys(map), "");
  map["a"]["b"] = cat::make(3);
  int number = 0;
  EXPECT_TRUE(cat::read(map["a"]["b"], number));
  EXPECT_EQ(number, 3);
  EXPECT_EQ(&(*map["nil"]).type(), &cat::type_nil());
  EXPECT_EQ(keys(map), "a nil ");
  // A value in the way is replaced, as one of the wrong type counts as absent.
  map["nil"]["deep"]["er"] = cat::make(true);
  EXPECT_TRUE(map / "nil" / "deep" / "er");
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
  map.sort_by_key();
  EXPECT_TRUE(keys(map).starts_with("key 1 key 10 key 100 key 102 "));
  EXPECT_TRUE(map.at("key 100"));
}

TEST(Map, TextAndNumberKeysDiffer) {
  cMapObj map;
  map["3"] = cat::make("text");
  map[3] = cat::make("number");
  EXPECT_EQ(cat::as_string(map.at("3")), "text");
  EXPECT_EQ(cat::as_string(map.at(3)), "number");
  map.append(cat::make("next"));
  EXPECT_EQ(cat::as_string(map.at(4)), "next");
  EXPECT_EQ(cat::as_string(map.at("4")), "next") << "digits reach a number";
  EXPECT_EQ(cat::as_index(map.end().key()), -1);
  EXPECT_EQ(map.size(), 3);
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

TEST(Map, CopiesShareUntilTheyAreDetached) {
  cMapObj map;
  map["sub"]["x"] = cat::make(1);
  cMapObj shared(map), detached(map);
  detached.detach(true);
  map["sub"]["x"] = cat::make(2);
  EXPECT_EQ(cat::as_string(shared["sub"]["x"]), "2");
  EXPECT_EQ(cat::as_string(detached["sub"]["x"]), "1");
}

TEST(Map, AssignCopiesDeeplyAndEqualComparesDeeply) {
  cMapObj from, to;
  from["v"] = make_ref<cVectorObj>();
  from["v"].getattr()->append(cat::make(gStrList("x")));
  from["m"]["k"] = cat::make(gCppMacro{"FOO", true, 1, 0});
  EXPECT_TRUE(to.assign(from));
  EXPECT_TRUE(to.equal(from));
  from["v"].getattr()->at(0)->assign(*cat::make(gStrList("y")));
  EXPECT_FALSE(to.equal(from));
  EXPECT_FALSE(to.assign(*cat::make(1)));
  EXPECT_FALSE(to.assign(cVectorObj())) << "a vector is no map";
  // Copying a part over its whole mustn't free the part first.
  EXPECT_TRUE(to.assign(*to.at("m")));
  EXPECT_EQ(keys(to), "k ");
}

TEST(Map, AddReplacesAndAppends) {
  cMapObj a, b;
  a["x"] = cat::make(1);
  b["x"] = cat::make(2);
  b["y"] = cat::make(3);
  EXPECT_TRUE(a.add(b));
  EXPECT_EQ(keys(a), "x y ");
  EXPECT_EQ(cat::as_string(a["x"]), "2");
  EXPECT_FALSE(a.add(*cat::make(1)));
}

TEST(Vector, RenumbersWhenElementsGo) {
  cVectorObj vector;
  for (int i = 0; i < 6; ++i)
    vector.append(cat::make(i * 10));
  vector.erase(1, 3);
  EXPECT_EQ(keys(vector), "0 1 2 3 ");
  EXPECT_EQ(cat::as_string(vector.at("1")), "30");
  vector.erase(2, 99);
  EXPECT_EQ(vector.size(), 2);
  vector[4] = cat::make("far");
  EXPECT_TRUE(cat::is_nil(vector.at(3)));
  EXPECT_EQ(cat::as_string(vector.at(4)), "far");
}

TEST(Values, ConvertAsAWholeOrNotAtAll) {
  bool flag = false;
  int number = 7;
  std::string text;
  gStrList list;
  EXPECT_TRUE(cat::read(cat::make(2), flag));
  EXPECT_TRUE(flag);
  EXPECT_TRUE(cat::read(cat::make("3"), number));
  EXPECT_EQ(number, 3);
  for (char const * bad : {"3x", "", " 3", "99999999999", "true"})
    EXPECT_FALSE(cat::read(cat::make(bad), number)) << bad;
  EXPECT_EQ(number, 3);
  EXPECT_FALSE(cat::read(nullptr, number));
  EXPECT_FALSE(cat::read(cat::make_nil(), number));
  EXPECT_TRUE(cat::read(cat::make(-5), text));
  EXPECT_EQ(text, "-5");
  EXPECT_FALSE(cat::read(make_ref<cMapObj>(), text));
  EXPECT_TRUE(cat::read(cat::make("one"), list));
  EXPECT_EQ(list, gStrList("one"));
  EXPECT_FALSE(cat::read(cat::make(gStrList("one")), text));
}

TEST(Values, AReaderThatConvertsLeavesTheCountOfObjectsAlone) {
  cRef<cObj> const value = cat::make("12");
  int const before = cObjBase::ob_count;
  int number = 0;
  cat::read(value, number);
  { cMapObj const temporary; }
  EXPECT_EQ(cObjBase::ob_count, before);
}

TEST(Proxy, ForceTypeReplacesOnlyAnotherType) {
  cMapObj map;
  map["x"] = cat::make(1);
  cRef<cObj> const same = map["x"].force_type(cat::type_int());
  EXPECT_EQ(map.at("x"), same);
  map["x"].force_type(cat::type_vector())->append(cat::make(2));
  EXPECT_EQ(map.at("x")->size(), 1);
  EXPECT_TRUE(map["none"] == map["neither"]);
  EXPECT_FALSE(map["none"] == map["x"]);
}

TEST(Types, MethodsOfTheMacroTypeWorkByName) {
  cRef<cObj> const made = cat::make(gCppMacro())->call("newobj");
  ASSERT_TRUE(made);
  gCppMacro * macro = cat::value_of<gCppMacro>(*made);
  *macro = {"FOO", true, 1, 2};
  EXPECT_EQ(cat::as_string(made->call("write")), "FOO 1 1 2");
  std::istringstream in("BAR 0 2 1 rest");
  EXPECT_TRUE(in >> *macro);
  EXPECT_EQ(*macro, (gCppMacro{"BAR", false, 2, 1}));
  cRef<cObj> const reference = made->call("newref");
  EXPECT_TRUE(reference->is_ObjDR());
  EXPECT_TRUE(reference->equal(*made));
  EXPECT_FALSE(made->call("no such method"));
  EXPECT_EQ(cat::find_type("cppmacro"), &made->type());
}

TEST(Types, AFailedAssignOfAMacroIsTold) {
  std::ostringstream errors;
  std::streambuf * const before = eros().rdbuf(errors.rdbuf());
  unsigned code = 0;
  cErrSlot const slot([&](cErr & error) { code = error.code(); });
  cRef<cObj> argument = cat::make(3);
  cRef<cObj> const macro = cat::make(gCppMacro());
  auto const method = macro->type().tmember("assign");
  EXPECT_FALSE(dynamic_cast<cExeObj &>(*method).pexecute(*macro, argument));
  eros().rdbuf(before);
  EXPECT_TRUE(errors.str().starts_with("Method 'assign', type '")) << errors.str();
  EXPECT_NE(code, 0u);
}

TEST(Types, ModifiersAndInsertionsEndWithTheirScope) {
  cTypeObj parent("parent", nullptr), type(&parent, "child", nullptr);
  cRef<cObj> const one = cat::make(1), two = cat::make(2);
  parent.set_tmember("m", one);
  {
    cTypeModifier const modifier(type, "m", two);
    cTypeInsert const insert(type);
    EXPECT_EQ(type.tmember("m"), two);
    EXPECT_EQ(cat::find_type("child"), &type);
  }
  EXPECT_EQ(type.tmember("m"), one);
  EXPECT_EQ(cat::find_type("child"), nullptr);
  EXPECT_TRUE(type.is_a(parent));
}

TEST(Texts, IdentifiersAreAscii) {
  EXPECT_TRUE(cat::is_ident("_a1"));
  for (char const * bad : {"", "1a", "a b", "a-b", "\xC3\xA4"})
    EXPECT_FALSE(cat::is_ident(bad)) << bad;
}

} // namespace

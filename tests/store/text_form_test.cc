// The text form: what is written comes back, and damage costs nothing.
#include "store/text_form.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <random>

#include "store/cerr.h"
#include "store/json_form.h"
#include "store/json_text.h"
#include "support/temp_folder.h"

namespace {

class RandomTree {
public:
  explicit RandomTree(unsigned seed) : random_(seed) {}

  cRef<cObj> value(int depth) {
    switch (random_() % (depth > 0 ? 8 : 6)) {
    case 0:
      return cat::make(random_() % 2 == 0);
    case 1:
      return cat::make(static_cast<int>(random_()));
    case 2:
      return cat::make(text());
    case 3:
      return cat::make(gCppMacro{text(), random_() % 2 == 0, 2, -1});
    case 4: {
      gStrList list;
      for (unsigned i = random_() % 4; i > 0; --i)
        list.push_back(gString(text()));
      return cat::make(list);
    }
    case 5:
      return cat::make_nil();
    case 6: {
      auto vector = make_ref<cVectorObj>();
      for (unsigned i = random_() % 4; i > 0; --i)
        vector->append(value(depth - 1));
      return vector;
    }
    default:
      return map(depth);
    }
  }
  cRef<cMapObj> map(int depth) {
    auto map = make_ref<cMapObj>();
    for (unsigned i = random_() % 6; i > 0; --i)
      map->set(random_() % 5 == 0 ? cKey(static_cast<int>(random_() % 99)) : cKey(text()),
               value(depth - 1));
    return map;
  }

private:
  // Bytes of all kinds, and words that mean something in the text form.
  std::string text() {
    static constexpr char const * words[] = {"$list", "$",      "$$",   "$i:3",
                                             "$b:",   "$bytes", "@x y", "3"};
    std::string text = random_() % 3 == 0 ? words[random_() % std::size(words)] : "";
    for (unsigned i = random_() % 5; i > 0; --i)
      text += static_cast<char>(random_() % (random_() % 2 ? 256 : 128));
    return text;
  }

  std::mt19937 random_;
};

std::string keys_in_order(cObj const & map) {
  std::string keys;
  for (cIterObj it = map.begin(); it.valid(); it++)
    keys += it.key_as_string() + "|" + keys_in_order(*it);
  return keys;
}

TEST(TextForm, AnyTreeSurvivesTheRoundTrip) {
  for (unsigned seed = 0; seed < 3000; ++seed) {
    cRef<cMapObj> const tree = RandomTree(seed).map(4);
    std::string text, again;
    ASSERT_TRUE(write_json(*tree, cJsonForm::typed, seed % 2 == 0, text));
    cMapObj read;
    std::string reason;
    ASSERT_TRUE(text2map(text, "tree", read, &reason)) << text << "\n" << reason;
    ASSERT_TRUE(read.equal(*tree)) << text;
    ASSERT_EQ(keys_in_order(read), keys_in_order(*tree));
    write_json(read, cJsonForm::typed, seed % 2 == 0, again);
    ASSERT_EQ(text, again);
  }
}

// Prefixes and changed bytes of a good file: read or refused with a line, never half taken over.
TEST(TextForm, DamageIsRefusedWholly) {
  cMapObj tree;
  tree["list"] = cat::make(gStrList("a"));
  tree["macro"] = cat::make(gCppMacro{"FOO", true, 1, 0});
  tree["sub"]["deep"] = cat::make("\xFF");
  std::string text;
  write_json(tree, cJsonForm::typed, true, text);
  std::mt19937 random(2);
  for (std::size_t i = 1; i + 1 < text.size(); ++i) {
    std::string const cut = text.substr(0, i);
    std::string changed = text;
    changed[i] = static_cast<char>(random());
    for (std::string const & damaged : {cut, changed}) {
      cMapObj map;
      std::string reason;
      if (!text2map(damaged, "f.vlp", map, &reason)) {
        EXPECT_EQ(map.size(), 0);
        EXPECT_TRUE(reason.starts_with("f.vlp:")) << reason;
      } else {
        EXPECT_EQ(damaged, changed);
      }
    }
  }
}

// What a file does to a map that holds other things.
TEST(TextForm, FilesAreMergedMapByMap) {
  cMapObj map;
  map["old"] = cat::make(1);
  map["sub"]["kept"] = cat::make(true);
  std::string reason, text;
  EXPECT_TRUE(text2map(R"({"sub": {"new": 2}, "old": "text"})", "f", map, &reason)) << reason;
  EXPECT_EQ(to_json(map), R"({"old":"text","sub":{"kept":true,"new":2}})");
  EXPECT_TRUE(text2map(R"({"old": {"in": [["@c", ""], ["a", ":"]]}, "sub": [1, 2],
                       "list": {"$list": ["a", {"$bytes": "\u00e4"}]}})",
                       "f", map, &reason));
  write_json(map, cJsonForm::typed, true, text);
  EXPECT_EQ(text,
            "{\n  \"old\": {\n    \"in\": [\n      [\"@c\", \"\"],\n      [\"a\", \":\"]\n    ]\n"
            "  },\n  \"sub\": [1, 2],\n  \"list\": {\"$list\": [\"a\", {\"$bytes\": \"ä\"}]}\n}");
}

TEST(TextForm, RefusalsTellTheLineAndArePublished) {
  char const * const rows[][2] = {
      {"{\n\"a\": 1,\n\"a\": 2\n}", "f:3: the key \"a\" stands twice"},
      {"{\"a\": 1, \"$b:a\": 2}", "f:1: the key \"$b:a\" stands twice"},
      {"{\n\"a\": 3000000000\n}", "f:2: the number 3000000000 is out of range"},
      {"{\"a\": 99999999999999999999}",
       "f:1: the number 99999999999999999999 is no integer, or out of range"},
      {"{\n\"a\": 1,\n\"b\":\n", "f:4: syntax error while parsing value - unexpected end of input; "
                                 "expected '[', '{', or a literal"},
      {"[1]", "f:1: no map of keys and values"},
      {"{\"a\": {\"$set\": 1}}", "f:1: a key \"$set\" that begins with \"$\""},
      {"{\"a\": {\"$list\": [], \"b\": 1}}", "f:1: a key \"b\" where an object has to end"},
      {"{\"a\": {\"$macro\": {\"name\": \"X\", \"body\": 1}}}", "f:1: a bad value of \"$macro\""},
      {"{\"a\": {\"$bytes\": \"Ā\"}}", "f:1: a bad value of \"$bytes\""}};
  for (auto const & [text, expected] : rows) {
    cMapObj map;
    std::string reason;
    unsigned published = 0;
    cErrSlot const slot([&](cErr & error) { published = error.code(); });
    EXPECT_FALSE(text2map(text, "f", map, &reason)) << text;
    EXPECT_EQ(reason, expected);
    EXPECT_NE(published, 0u) << text;
  }
}

TEST(TextForm, NestingAndSizeHaveLimits) {
  auto const nested = [](int depth) {
    std::string text = "{\"k\":";
    for (int i = 1; i < depth; ++i)
      text += "[";
    text +=
        R"({"$macro":{"name":{"$bytes":"x"},"parameterized":false,"action":0,"interpretation":0}})";
    return text + std::string(static_cast<std::size_t>(depth - 1), ']') + "}";
  };
  cMapObj map;
  std::string reason, text;
  EXPECT_TRUE(text2map(nested(json_max_depth), "f", map, &reason)) << reason;
  EXPECT_TRUE(write_json(map, cJsonForm::typed, true, text));
  cMapObj deeper;
  EXPECT_FALSE(text2map(nested(json_max_depth + 1), "f", deeper, &reason));
  deeper["above"] = cRef<cObj>(map.clone());
  EXPECT_FALSE(write_json(deeper, cJsonForm::typed, true, text));
  EXPECT_FALSE(text2map("{\"k\":" + std::string(1000000, '['), "f", map, &reason));
}

// Writing and reading count alike, so that nothing is written that can't be read.
TEST(TextForm, ThereIsALimitOfValues) {
  std::string many = R"({"k":[{"$macro":{"name":"F","parameterized":true,"action":1,)"
                     R"("interpretation":0}},{"$list":["a"]},{"$bytes":"ÿ"})";
  for (int i = 13; i < json_max_values; ++i)
    many += ",0";
  cMapObj map;
  std::string reason, text;
  EXPECT_TRUE(text2map(many + "]}", "f", map, &reason)) << reason;
  EXPECT_TRUE(write_json(map, cJsonForm::typed, true, text));
  map.at("k")->append(cat::make(0));
  EXPECT_FALSE(write_json(map, cJsonForm::typed, true, text));
  EXPECT_FALSE(text2map(many + ",0]}", "f", map, &reason));
  EXPECT_EQ(reason, "f:1: too many values");
}

TEST(TextForm, NothingMayFollowAZeroByte) {
  cMapObj map;
  std::string reason;
  EXPECT_FALSE(text2map(std::string_view("{\n}\n\0{", 6), "f", map, &reason));
  EXPECT_EQ(reason, "f:3: a zero byte");
}

TEST(TextForm, FilesAreMergedAndReplacedAsAWhole) {
  TempFolder const folder;
  std::string const file = folder.path("x.vlp");
  cMapObj map;
  map["@a key\n"] = cat::make("v");
  ASSERT_TRUE(write2file(map, file.c_str(), true));
  EXPECT_EQ(folder.read("x.vlp"), "{\n  \"@a key\\n\": \"v\"\n}\n");
  EXPECT_FALSE(write2file(map, folder.path("none/x.vlp").c_str(), true));
  std::string reason;
  EXPECT_FALSE(file2map(folder.path("missing").c_str(), map, &reason));
  EXPECT_EQ(reason, folder.path("missing") + ": cannot be read");
  EXPECT_FALSE(file2map(folder.path().c_str(), map));
  folder.write("empty", "\xEF\xBB\xBF \r\n");
  EXPECT_TRUE(file2map(folder.path("empty").c_str(), map));
  EXPECT_EQ(map.size(), 1);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2)
      << "nothing is left beside the file";
}

} // namespace

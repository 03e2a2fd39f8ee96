#include "store/json_text.h"

#include <gtest/gtest.h>

#include "store/cmapobj.h"

namespace {

cRef<cObj> example(std::string const & type) {
  if (type == "any")
    return nullptr;
  if (type == "pairs") {
    auto pairs = make_ref<cVectorObj>();
    pairs->append(make_ref<cVectorObj>());
    pairs->at(0)->append(cat::make(""));
    return pairs;
  }
  if (type == "map") {
    auto map = make_ref<cMapObj>();
    map->set("n", cat::make(0));
    map->set("*", cat::make(""));
    return map;
  }
  cRef<cObj> const examples[] = {cat::make(true), cat::make(0), cat::make(""),
                                 cat::make(gStrList()), cat::make(gCppMacro())};
  char const * const names[] = {"bool", "int", "string", "list", "macro"};
  for (int i = 0; i < 5; ++i)
    if (type == names[i])
      return examples[i];
  return nullptr;
}

struct Row {
  char const * type;
  char const * text;
  char const * expected;
};

TEST(PlainJson, IsTurnedIntoTheTypeThatIsWanted) {
  Row const rows[] = {
      {"int", "3", "3"},
      {"int", "\"3\"", "3"},
      {"int", "true", "1"},
      {"int", "abc", "refused"},
      {"int", "1.5", "refused"},
      {"bool", "0", "false"},
      {"bool", "true", "true"},
      {"bool", "yes", "refused"},
      {"string", "a b", "\"a b\""},
      {"string", "\"a\\u00e4\"", "\"aä\""},
      {"string", " 007 ", "\" 007 \""},
      {"string", "1.50", "\"1.50\""},
      {"string", "99999999999999999999", "\"99999999999999999999\""},
      {"string", "-", "\"-\""},
      {"string", "[1]", "refused"},
      {"string", "\xFF", "{\"$bytes\":\"ÿ\"}"},
      {"string", "{\"$bytes\":\"ÿ\"}", "{\"$bytes\":\"ÿ\"}"},
      {"list", "one", "[\"one\"]"},
      {"list", "12", "[\"12\"]"},
      {"list", "[\"a\",\"\"]", "[\"a\",\"\"]"},
      {"list", "[1]", "refused"},
      {"macro", "{\"name\":\"F\",\"action\":1}",
       "{\"name\":\"F\",\"parameterized\":false,\"action\":1,\"interpretation\":0}"},
      {"macro", "{\"nome\":\"F\"}", "refused"},
      {"macro", "F", "refused"},
      {"pairs", "[[\"@f\",\"\"],[\"R\",1]]", "[[\"@f\",\"\"],[\"R\",\"1\"]]"},
      {"pairs", "[\"@f\"]", "refused"},
      {"map", "{\"n\":\"4\",\"other\":5}", "{\"n\":4,\"other\":\"5\"}"},
      {"map", "{\"n\":1", "refused"},
      {"map", "{\"n\":1,\"n\":2}", "refused"},
      {"any", "{\"a\":[1,null,\"$x\"]}", "{\"a\":[1,null,\"$x\"]}"},
      {"any", "no json", "\"no json\""},
  };
  for (Row const & row : rows) {
    cRef<cObj> out;
    std::string reason;
    bool const good = from_json(row.text, example(row.type), out, reason);
    EXPECT_EQ(good ? to_json(*out) : "refused", row.expected) << row.type << " " << row.text;
    EXPECT_EQ(good, reason.empty());
    EXPECT_EQ(good, out != nullptr);
  }
}

TEST(PlainJson, AKeyWithoutAnExampleIsRefused) {
  cRef<cObj> out;
  std::string reason;
  auto like = make_ref<cMapObj>();
  like->set("known", cat::make(1));
  EXPECT_FALSE(from_json("{\"unknown\": 1}", like, out, reason));
  EXPECT_EQ(reason, "unknown key \"unknown\"");
}

} // namespace

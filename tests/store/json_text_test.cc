#include "store/json_text.h"

#include <gtest/gtest.h>

#include "store/cmapobj.h"

namespace {

TEST(PlainJson, IsTurnedIntoTheTypeThatIsWanted) {
  cRef<cObj> const any, flag = cat::make(true), number = cat::make(0), text = cat::make(""),
                        list = cat::make(gStrList()), macro = cat::make(gCppMacro());
  auto const pairs = make_ref<cVectorObj>();
  pairs->append(make_ref<cVectorObj>());
  pairs->at(0)->append(text);
  auto const map = make_ref<cMapObj>(), known = make_ref<cMapObj>();
  map->set("n", number);
  map->set("*", text);
  known->set("n", number);
  struct {
    cRef<cObj> like;
    char const * text;
    char const * expected;
  } const rows[] = {{number, "3", "3"},
                    {number, R"("3")", "3"},
                    {number, "abc", "refused"},
                    {flag, "0", "false"},

                    {text, R"("a\u00e4")", R"("aä")"},
                    {text, " 007 ", R"(" 007 ")"},
                    {text, "\xFF", R"({"$bytes":"ÿ"})"},
                    {text, R"({"$bytes":"ÿ"})", R"({"$bytes":"ÿ"})"},

                    {list, R"(["a",""])", R"(["a",""])"},
                    {macro, R"({"name":"F","action":1})",
                     R"({"name":"F","parameterized":false,"action":1,"interpretation":0})"},
                    {macro, R"({"nome":"F"})", "refused"},
                    {pairs, R"([["@f",""],["R",1]])", R"([["@f",""],["R","1"]])"},
                    {pairs, R"(["@f"])", "refused"},
                    {map, R"({"n":"4","other":5})", R"({"n":4,"other":"5"})"},
                    {map, R"({"n":1,"n":2})", "refused"},
                    {any, R"({"a":[1,null,"$x"]})", R"({"a":[1,null,"$x"]})"},
                    {any, "no json", R"("no json")"}};
  for (auto const & row : rows) {
    cRef<cObj> out;
    std::string reason;
    bool const good = from_json(row.text, row.like, out, reason);
    EXPECT_EQ(good ? to_json(*out) : "refused", row.expected) << row.text;
    EXPECT_TRUE(good == reason.empty() && good == (out != nullptr)) << row.text;
  }
  cRef<cObj> out;
  std::string reason;
  EXPECT_FALSE(from_json(R"({"unknown": 1})", known, out, reason));
  EXPECT_EQ(reason, "unknown key \"unknown\"");
}

} // namespace

// Reading ahead: by hand, and as Ninja does it.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "program.h"

namespace {

namespace fs = std::filesystem;

void make_sources(Sandbox const & box) {
  for (int i = 0; i < 30; ++i) {
    std::string const n = std::to_string(i);
    box.write("src/a " + std::to_string(i % 3) + "/h" + n + ".h",
              "#define API" + n + " __attribute__((x))\n/// Does it, see C0 and @ref no" + n +
                  ".\nclass API" + std::to_string((i + 1) % 30) + " C" + n +
                  " : public C0 {\npublic:\n  int f(int a); ///< It.\n};\n" +
                  (i % 7 ? "" : "class {{ (\n"));
    box.write("src/p/u" + n + ".pas", "unit u" + n + ";\ninterface\n{$I p" + n +
                                          ".inc}\n// Does.\nprocedure p;\nimplementation\nend.\n");
    box.write("src/p/p" + n + ".inc", "type T" + n + " = record X: Integer; end;\n");
  }
  box.write("doc.vls", "@document\n@outfilter\n");
  ASSERT_EQ(box.run("new p.vlp --script doc.vls --out out --input 'src/**|*.h;*.pas;*.inc'").status,
            0);
}

// The intermediate code and the reports, which hold all that the reading found.
std::string result(Sandbox const & box, std::string const & out) {
  return box.read(out + "/doc.atc") + box.read(out + ".json");
}

std::string plain(Sandbox const & box) {
  Answer const answer = box.run("build p.vlp -q --no-cache -o plain --reports plain.json");
  EXPECT_EQ(answer.status, 0) << answer.err;
  return result(box, "plain");
}

TEST(facts, stand_for_the_reading_as_long_as_they_fit) {
  Sandbox box;
  make_sources(box);
  std::string const build = "build p.vlp -q --no-cache --facts f -o out --reports out.json";
  ASSERT_EQ(box.run("facts --project p.vlp -o f").status, 0);
  ASSERT_EQ(box.run(build).status, 0);
  EXPECT_TRUE(result(box, "out") == plain(box));
  // A run that takes them reads nothing else: what they say is what it finds.
  std::string const name = "src/a 1/h1.h";
  struct {
    char const * what;
    std::string file, text;
  } const rows[] = {
      {"other bytes", name, "/// Others.\nclass D1;\n"},
      {"a macro that others use", "src/a 2/h2.h", "#define API2 int x; class\n"},
      {"a macro less", "src/a 0/h3.h", "class D3;\n"},
  };
  for (auto const & row : rows) {
    box.write(row.file, row.text);
    ASSERT_EQ(box.run(build).status, 0);
    EXPECT_TRUE(result(box, "out") == plain(box)) << row.what;
  }
  // Damaged, cut, exchanged.
  std::vector<std::string> files;
  for (auto const & entry : fs::directory_iterator(box.path("f")))
    files.push_back("f/" + entry.path().filename().string());
  std::sort(files.begin(), files.end());
  ASSERT_GT(files.size(), 60U);
  ASSERT_EQ(box.run("facts --project p.vlp -o f --macros").status, 0);
  ASSERT_EQ(box.run("facts --project p.vlp -o f").status, 0);
  for (std::size_t i = 0; i + 1 < files.size(); ++i) {
    std::string bytes = box.read(files[i]);
    if (i % 3 == 0 && !bytes.empty())
      bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 1);
    else if (i % 3 == 1)
      bytes = box.read(files[i + 1]);
    else
      bytes.resize(bytes.size() / 2);
    box.write(files[i], bytes);
  }
  ASSERT_EQ(box.run(build).status, 0);
  EXPECT_TRUE(result(box, "out") == plain(box));
  EXPECT_EQ(box.run("facts --project p.vlp --set ana/dialect=classic -o f").status, 2);
  EXPECT_EQ(box.run("facts --project p.vlp missing.h -o f").status, 1);
}

TEST(plan, ninja_makes_what_a_plain_run_makes) {
  Sandbox box;
  make_sources(box);
  fs::create_directory(box.path("n"));
  ASSERT_EQ(box.run("plan p.vlp --ninja n/build.ninja --set 'atc_title=$1: x'\\''y'").status, 0);
  std::string const ninja = "cd '" + box.path() + "' && XDG_CACHE_HOME='" + box.path("tmp/cache") +
                            "' ninja -C n -j 2 >ninja.log 2>&1; echo $? >>ninja.log";
  auto const run = [&] {
    EXPECT_EQ(std::system(ninja.c_str()), 0);
    return box.read("ninja.log");
  };
  std::string log = run();
  EXPECT_TRUE(log.ends_with("\n0\n")) << log;
  std::string const made = box.read("out/doc.atc");
  plain(box);
  EXPECT_TRUE(made == box.read("plain/doc.atc"));
  EXPECT_NE(box.read("out/htm/index.htm").find("$1: x"), std::string::npos);
  log = run();
  EXPECT_NE(log.find("no work to do"), log.npos) << log;
  // One file, without a macro: a group of files is read, and the document made.
  box.write("src/a 1/h1.h", box.read("src/a 1/h1.h") + "int added();\n");
  log = run();
  EXPECT_TRUE(log.ends_with("\n0\n")) << log;
  plain(box);
  EXPECT_TRUE(box.read("out/doc.atc") == box.read("plain/doc.atc"));
  EXPECT_NE(box.read("out/doc.atc").find("added"), std::string::npos);
  // A new one is found by its folder.
  box.write("src/a 1/new.h", "/// New.\nclass New {};\n");
  log = run();
  EXPECT_TRUE(log.ends_with("\n0\n")) << log;
  plain(box);
  EXPECT_TRUE(box.read("out/doc.atc") == box.read("plain/doc.atc"));
  EXPECT_NE(box.read("out/doc.atc").find("class New"), std::string::npos);
  EXPECT_NE(run().find("no work to do"), std::string::npos);
}

} // namespace

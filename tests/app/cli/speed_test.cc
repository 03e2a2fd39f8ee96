// Threads, and results that follow what changed.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <random>

#include <sys/stat.h>

#include "program.h"

namespace {

namespace fs = std::filesystem;

// All files of a folder by their names; logs without the time and what depends on the run.
std::map<std::string, std::string> contents(Sandbox const & box, std::string const & folder) {
  std::map<std::string, std::string> files;
  for (fs::directory_entry const & entry : fs::recursive_directory_iterator(box.path(folder))) {
    if (!entry.is_regular_file())
      continue;
    std::string const name = fs::relative(entry.path(), box.path(folder)).string();
    std::string text = box.read(folder + "/" + name);
    if (name == "ana.log")
      text.erase(0, text.find("\n\n"));
    files[name] = std::move(text);
  }
  return files;
}

std::string header(int i, std::string const & words) {
  std::string const n = std::to_string(i);
  return "#define M" + n + (i % 3 ? "" : " __attribute__((x))") + "\n" + // macros of other files
         "/// " + words + " See @ref nowhere" + n + " and C0.\nclass M" + std::to_string(i / 2) +
         " C" + n + " : public C" + std::to_string(i / 3) + " {\npublic:\n  int f" + n +
         "(int a); ///< " + words + "\n};\nint f" + n + "(); // shared\n" + "int shared(int" +
         std::string(static_cast<std::size_t>(i % 4), '*') + ");\n" + (i % 5 ? "" : "class {{ (\n");
}

void write_sources(Sandbox const & box, int headers = 90) {
  for (int i = 0; i < headers; ++i)
    box.write("src/" + std::to_string(i % 7) + "/h" + std::to_string(i) + ".h", header(i, "Does."));
  for (int i = 0; i < headers / 5; ++i) {
    std::string const n = std::to_string(i);
    box.write("src/p/u" + n + ".pas", "unit u" + n + ";\ninterface\n{$I part" + n +
                                          ".inc}\n// Does.\nprocedure p" + n +
                                          ";\nimplementation\nend.\n");
    box.write("src/p/part" + n + ".inc", "{$I deep" + std::to_string(i / 2) + ".inc}\ntype T" + n +
                                             " = record X: Integer; end;\n");
    box.write("src/p/deep" + n + ".inc", "const D" + n + " = 1;\n");
  }
}

// What a run tells, but for the line that says how long it took.
std::string without_time(std::string const & out) {
  return out.substr(0, out.find("Seconds:"));
}

// What a run writes may depend on nothing but its input: neither on how many threads there were,
// nor on which of them was faster.
TEST(speed, threads_change_no_byte) {
  Sandbox box;
  ::setenv("SOURCE_DATE_EPOCH", "86400", 1); // RTF tells the minute
  write_sources(box);
  box.make_project();
  for (int i = 0; i < 40; ++i)
    box.write("src/c" + std::to_string(i) + ".h",
              "/* @class Has it. @bookmark<same> @cref<nothing> */\nclass A" + std::to_string(i) +
                  " {};\nclass {\n");
  for (std::string const command :
       {"quick src -o out ", "build p.vlp -o out --target htm --target rtf "}) {
    fs::remove_all(box.path("out"));
    Answer const one = box.run(command + "--jobs 1");
    EXPECT_EQ(one.status, 0) << one.err;
    auto const expected = contents(box, "out");
    EXPECT_GT(expected.size(), 50U);
    for (std::string const jobs : {"2", "8"}) {
      fs::remove_all(box.path("out"));
      Answer const many = box.run(command + "--jobs " + jobs);
      EXPECT_EQ(many.err, one.err);
      EXPECT_EQ(without_time(many.out), without_time(one.out));
      EXPECT_TRUE(contents(box, "out") == expected) << command << jobs;
    }
  }
  EXPECT_EQ(box.run("quick src -o out --jobs 0").status, 2);
  ::unsetenv("SOURCE_DATE_EPOCH");
}

std::map<std::string, std::pair<ino_t, time_t>> places(Sandbox const & box) {
  std::map<std::string, std::pair<ino_t, time_t>> found;
  for (fs::directory_entry const & entry : fs::recursive_directory_iterator(box.path("out/htm"))) {
    struct stat about {};
    if (entry.is_regular_file() && ::stat(entry.path().c_str(), &about) == 0)
      found[entry.path().string()] = {about.st_ino, about.st_mtim.tv_nsec};
  }
  return found;
}

TEST(speed, files_that_stay_the_same_are_not_written_again) {
  Sandbox box;
  write_sources(box);
  ASSERT_EQ(box.run("quick src -o out").status, 0);
  auto const first = places(box);
  ASSERT_EQ(box.run("quick src -o out --no-cache").status, 0);
  EXPECT_TRUE(places(box) == first) << "nothing has changed";
  // A page that somebody has changed is put right; a link leads nowhere else.
  std::string const page = box.read("out/htm/index.htm");
  box.write("out/htm/index.htm", std::string(page.size(), 'x'));
  box.write("elsewhere", box.read("out/htm/contents.htm"));
  fs::remove(box.path("out/htm/contents.htm"));
  fs::create_symlink(box.path("elsewhere"), box.path("out/htm/contents.htm"));
  box.write("src/1/h1.h", header(1, "Something else."));
  ASSERT_EQ(box.run("quick src -o out").status, 0);
  EXPECT_EQ(box.read("out/htm/index.htm").find("xx"), std::string::npos);
  EXPECT_FALSE(fs::is_symlink(box.path("out/htm/contents.htm")));
  std::size_t written = 0;
  for (auto const & [name, place] : places(box))
    written += !first.contains(name) || first.at(name) != place;
  EXPECT_LT(written, first.size() / 4) << "of a change in one file";
}

// One random change of a tree of sources.
void change(Sandbox const & box, std::mt19937 & random) {
  auto const pick = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  int const i = pick(20);
  std::string const name =
      "src/" + std::to_string(i % 7) + "/h" + std::to_string(i) + (pick(9) ? ".h" : ".cpp");
  switch (pick(5)) {
  case 0:
    fs::remove(box.path(name));
    break;
  case 1:
    if (fs::exists(box.path(name)))
      fs::rename(box.path(name), box.path("src/moved" + std::to_string(pick(5)) + ".h"));
    break;
  case 2:
    box.write("src/p/part" + std::to_string(pick(3)) + ".inc",
              "var V" + std::to_string(i) + ": Integer;\n");
    break;
  default:
    box.write(name, header(pick(25), "Words " + std::to_string(pick(5)) + "."));
  }
}

TEST(speed, a_run_over_an_old_result_equals_a_clean_one) {
  Sandbox box;
  write_sources(box, 15);
  std::mt19937 random(7);
  for (int step = 0; step < 8; ++step) {
    change(box, random);
    ASSERT_EQ(box.run("quick src -q -o out").status, 0);
    auto const made = contents(box, "out");
    fs::rename(box.path("out"), box.path("old"));
    ASSERT_EQ(box.run("quick src -q -o out").status, 0);
    EXPECT_TRUE(contents(box, "out") == made) << step;
    fs::remove_all(box.path("out"));
    fs::rename(box.path("old"), box.path("out"));
  }
}

} // namespace

// Signals at any moment: nothing is left beside its place, and the next run goes through.

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <random>
#include <set>

#include <unistd.h>

#include "program.h"

namespace {

std::set<std::string> names_in(std::string const & folder) {
  std::set<std::string> names;
  if (std::filesystem::exists(folder))
    for (auto const & entry : std::filesystem::directory_iterator(folder))
      names.insert(entry.path().filename().string());
  return names;
}

// Sends one of the signals at a random moment of a life of that many microseconds.
void disturb(int child, std::vector<int> const & signals, unsigned life, std::mt19937 & random) {
  usleep(random() % life);
  kill(child, signals[random() % signals.size()]);
  Sandbox::end_of(child);
}

TEST(signals, leave_a_folder_that_the_next_run_takes) {
  Sandbox box;
  box.make_project();
  std::string text;
  for (int i = 0; i < 300; ++i)
    text += "/* @class Has it. */\nclass c" + std::to_string(i) + " {};\n";
  box.write("src/a.h", text);
  box.write("doc.vls", "@document\n@section<output=sub/part>\n@outfilter\n");
  ASSERT_EQ(box.run("build p.vlp").status, 0);
  std::string const page = box.read("out/htm/index.htm");
  std::mt19937 random(7);
  for (int i = 0; i < 18; ++i) {
    bool const killed = i % 3 == 2;
    int const child = box.start(i % 2 ? "build p.vlp" : "build p.vlp --target rtf --target htm");
    disturb(child, killed ? std::vector{SIGKILL} : std::vector{SIGTERM, SIGINT, SIGHUP}, 500'000,
            random);
    EXPECT_EQ(box.read("out/htm/index.htm"), page) << i;
    for (std::string const & name : names_in(box.path("out")))
      EXPECT_FALSE(!killed && (name.ends_with(".tmp") || name.ends_with(".new"))) << name << i;
    if (i % 3 == 2) {
      Answer const answer = box.run("build p.vlp -q");
      EXPECT_EQ(answer.status, 0) << answer.err << i;
      std::set<std::string> const left = names_in(box.path("out"));
      std::set<std::string> expected = {".vellumar", "ana.log", "doc.atc", "htm", "htm.log", "sub"};
      if (left.contains("rtf"))
        expected.insert("rtf");
      EXPECT_EQ(left, expected) << i;
    }
  }
}

TEST(signals, leave_nothing_beside_a_project) {
  Sandbox box;
  box.make_project();
  std::set<std::string> const before = names_in(box.path());
  std::mt19937 random(11);
  for (int i = 0; i < 60; ++i) {
    disturb(box.start("set p.vlp ana/tab_width=" + std::to_string(i % 8 + 1)),
            {SIGTERM, SIGINT, SIGHUP}, 25'000, random);
    ASSERT_EQ(names_in(box.path()), before) << i;
  }
  // Only a process that is killed can leave a file; the next one clears it away, and nothing else.
  box.write("p.vlp.0123456789abcdef.tmp", "left behind");
  box.write("p.vlp.0123456789abcdeg.tmp", "mine");
  box.write("p.vlp.tmp", "mine");
  EXPECT_EQ(box.run("set p.vlp ana/tab_width=8").status, 0);
  EXPECT_FALSE(box.exists("p.vlp.0123456789abcdef.tmp"));
  EXPECT_TRUE(box.exists("p.vlp.0123456789abcdeg.tmp") && box.exists("p.vlp.tmp"));
}

} // namespace

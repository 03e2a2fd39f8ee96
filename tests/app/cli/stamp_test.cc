// A run that finds nothing changed answers as the one before, and makes nothing; whatever is
// changed makes it a run like any other.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <set>

#include <fcntl.h>
#include <sys/stat.h>

#include "program.h"

namespace {

namespace fs = std::filesystem;

bool repeated(Answer const & answer) {
  return answer.err.find("Nothing has changed since the last run.\n") != std::string::npos;
}

// A project with a part of everything that a run goes by.
void make_sources(Sandbox const & box) {
  box.make_project();
  box.write("doc.vls", "@document\n#include \"part.vls\"\n");
  box.write("part.vls", "@section\n@hdline{Made on $curdate}\n@outfilter\n");
  box.write("src/b.h", "/* @function Text, see @cref<nowhere>. */\nvoid g();\n");
  box.write("src/.git/HEAD", "ref: refs/heads/main\n");
  box.write("src/.git/refs/heads/main", "0123456789abcdef\n");
  box.write("start.md", "# Welcome\n");
  fs::copy(fs::path(VELLUMAR_PROGRAM).parent_path() / "ini/htm.vlt", box.path("own.vlt"));
  ASSERT_EQ(
      box.run("set p.vlp htm/vlt_default=false htm/vlt=own.vlt htm/start_text=start.md").status, 0);
}

// Files by name, with all that the system knows of their state.
std::set<std::string> states(Sandbox const & box, std::string const & folder) {
  std::set<std::string> found;
  for (auto const & entry : fs::recursive_directory_iterator(box.path(folder))) {
    struct stat info {};
    ::lstat(entry.path().c_str(), &info);
    found.insert(entry.path().string() + " " + std::to_string(info.st_ino) + " " +
                 std::to_string(info.st_ctim.tv_sec) + "." + std::to_string(info.st_ctim.tv_nsec));
  }
  return found;
}

// Pages of a folder; the addresses of pages hold no path of the machine.
std::string pages(Sandbox const & box, std::string const & folder) {
  std::string all;
  std::set<std::string> names;
  for (auto const & entry : fs::recursive_directory_iterator(box.path(folder + "/htm")))
    if (entry.is_regular_file())
      names.insert(fs::relative(entry.path(), box.path(folder)).string());
  for (std::string const & name : names)
    all += name + "\n" + box.read(folder + "/" + name);
  return all;
}

// Other bytes of the same number, with the time that the file had.
void change_quietly(Sandbox const & box, std::string const & name, std::string const & from,
                    std::string const & to) {
  struct stat before {};
  ASSERT_EQ(::stat(box.path(name).c_str(), &before), 0) << name;
  std::string text = box.read(name);
  ASSERT_NE(text.find(from), text.npos) << name;
  text.replace(text.find(from), from.size(), to);
  box.write(name, text);
  timespec const times[] = {before.st_atim, before.st_mtim};
  ASSERT_EQ(::utimensat(AT_FDCWD, box.path(name).c_str(), times, 0), 0);
}

TEST(stamp, an_unchanged_project_is_answered_again) {
  Sandbox box;
  make_sources(box);
  ::setenv("SOURCE_DATE_EPOCH", "86400", 1); // RTF tells the minute
  std::string const command = "build p.vlp --target htm --target rtf --fail-on warning --reports ";
  Answer const first = box.run(command + "1.json");
  EXPECT_EQ(first.status, 3) << first.err;
  EXPECT_FALSE(repeated(first));
  auto const made = states(box, "out");
  for (std::string const more : {"2.json", "2.json -q"}) {
    Answer const again = box.run(command + more);
    EXPECT_EQ(again.status, 3);
    EXPECT_EQ(again.out, first.out);
    EXPECT_EQ(again.err,
              more.ends_with("-q") ? "" : first.err + "Nothing has changed since the last run.\n");
    EXPECT_EQ(box.read("2.json"), box.read("1.json"));
    EXPECT_NE(box.read("2.json").find("nowhere"), std::string::npos);
  }
  box.write("src/b.h", box.read("src/b.h")); // other times, the same bytes
  EXPECT_TRUE(repeated(box.run(command + "2.json")));
  EXPECT_TRUE(states(box, "out") == made);
  EXPECT_FALSE(repeated(box.run(command + "2.json --no-cache")));
  // The summary of a folder comes from what was counted then.
  std::string const of_folder =
      "quick src -o site --set 'htm/repository=https://x.invalid/$commit/$file'";
  Answer const quick = box.run(of_folder), same = box.run(of_folder);
  EXPECT_TRUE(repeated(same));
  EXPECT_EQ(same.out.substr(0, same.out.find("Seconds")),
            quick.out.substr(0, quick.out.find("Seconds")));
  for (std::string const part : {"refs/heads/main", "HEAD"}) {
    box.write("src/.git/" + part, "fedcba9876543210\n");
    EXPECT_FALSE(repeated(box.run(of_folder))) << part;
  }
  ::unsetenv("SOURCE_DATE_EPOCH");
}

TEST(stamp, whatever_is_changed_makes_it_again) {
  Sandbox box;
  make_sources(box);
  std::string command = "build p.vlp ";
  struct {
    char const * what;
    std::function<void()> change;
  } const rows[] = {
      {"source", [&] { change_quietly(box, "src/b.h", "Text", "Tint"); }},
      {"new source", [&] { box.write("src/c.h", "/* @function New. */\nvoid h();\n"); }},
      {"source gone", [&] { fs::remove(box.path("src/c.h")); }},
      {"included script",
       [&] { box.write("part.vls", "@section\n@hdline{On $curdate}\n@outfilter\n"); }},
      {"rules", [&] { change_quietly(box, "own.vlt", "$text</p>", "$text</P>"); }},
      {"start", [&] { box.write("start.md", "# Hello\n"); }},
      {"option", [&] { command += "--set atc_title=Other "; }},
      {"date", [] { ::setenv("SOURCE_DATE_EPOCH", "86400", 1); }},
      {"page", [&] { change_quietly(box, "out/htm/index.htm", "<html", "<HTML"); }},
      {"page gone", [&] { fs::remove(box.path("out/htm/index.htm")); }},
      {"code", [&] { change_quietly(box, "out/doc.atc", "@verinfo", "@Verinfo"); }},
      {"log gone", [&] { fs::remove(box.path("out/ana.log")); }},
      {"other result", [&] { box.run("build p.vlp --set atc_title=X --set ana/tab_width=3"); }},
      {"time to come",
       [&] {
         fs::last_write_time(box.path("src/b.h"),
                             fs::file_time_type::clock::now() + std::chrono::hours(2));
       }},
  };
  ASSERT_EQ(box.run(command).status, 0);
  for (auto const & row : rows) {
    EXPECT_TRUE(repeated(box.run(command))) << "before: " << row.what;
    row.change();
    Answer const answer = box.run(command);
    EXPECT_FALSE(repeated(answer)) << row.what;
    EXPECT_EQ(answer.status, 0) << row.what << answer.err;
    Answer const clean = box.run(command + "--no-cache -o clean");
    EXPECT_EQ(answer.err, clean.err) << row.what;
    EXPECT_TRUE(pages(box, "out") == pages(box, "clean")) << row.what;
  }
  ::unsetenv("SOURCE_DATE_EPOCH");
  EXPECT_FALSE(repeated(box.run(command))) << "what will change by itself isn't kept";
  box.write("out/mine.txt", "");
  EXPECT_EQ(box.run(command).status, 2) << "a file of the user";
}

TEST(stamp, no_cache_can_do_harm) {
  Sandbox box;
  box.make_project();
  ASSERT_EQ(box.run("build p.vlp").status, 0);
  fs::path entry;
  for (auto const & one : fs::recursive_directory_iterator(box.path("tmp/cache")))
    if (one.is_regular_file())
      entry = one.path();
  std::string const name = fs::relative(entry, box.path()).string(), good = box.read(name);
  ASSERT_GT(good.size(), 200U);
  for (std::size_t at = 0; at < good.size(); at += good.size() / 20) {
    std::string bad = good;
    bad[at] = static_cast<char>(bad[at] ^ 4);
    box.write(name, at % 2 ? bad : good.substr(0, at));
    Answer const answer = box.run("build p.vlp");
    EXPECT_EQ(answer.status, 0) << at;
    EXPECT_FALSE(repeated(answer)) << at;
    EXPECT_TRUE(repeated(box.run("build p.vlp"))) << "it is written anew";
  }
  fs::remove_all(box.path("tmp/cache"));
  box.write("tmp/cache", "no folder");
  EXPECT_EQ(box.run("build p.vlp").status, 0);
  Answer const answer = box.run("build p.vlp");
  EXPECT_EQ(answer.status, 0);
  EXPECT_FALSE(repeated(answer));
}

} // namespace

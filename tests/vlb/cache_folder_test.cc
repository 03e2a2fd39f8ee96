// What is kept to save time, and how it is told that the world is still the same.

#include "vlb/cache_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "support/temp_folder.h"
#include "vlb/folder_snapshot.h"
#include "vlb/gfilesystem.h"
#include "vlb/witness.h"

namespace {

namespace fs = std::filesystem;

TEST(cache_folder, is_bounded_and_takes_no_foreign_entry) {
  TempFolder folder;
  ::setenv("XDG_CACHE_HOME", folder.path().c_str(), 1);
  gCacheFolder const cache("x", "form 1", 3500);
  for (int i = 0; i < 4; ++i) {
    std::string const name = "e" + std::to_string(i);
    cache.write(name, std::string(1000, 'a'));
    auto const age = std::chrono::hours(10 - i);
    fs::last_write_time(folder.path("vellumar/x/" + name), fs::file_time_type::clock::now() - age);
  }
  EXPECT_FALSE(cache.read("e0")) << "the oldest goes";
  EXPECT_EQ(cache.read("e1"), std::string(1000, 'a'));
  EXPECT_FALSE(gCacheFolder("x", "form 2").read("e1"));
  fs::rename(folder.path("vellumar/x/e2"), folder.path("vellumar/x/e9"));
  EXPECT_EQ(cache.read("e9"), std::string(1000, 'a'));
  cache.write("e1", "");
  EXPECT_EQ(cache.read("e1"), "");
  ::unsetenv("XDG_CACHE_HOME");
}

TEST(content_hash, differs_for_what_differs) {
  std::set<std::string> seen;
  std::string text;
  for (int i = 0; i < 40; ++i, text += '\0')
    EXPECT_TRUE(seen.insert(Vlb::content_hash(text).text()).second) << i;
  for (std::size_t i = 0; i < text.size(); ++i)
    for (int bit = 0; bit < 8; ++bit) {
      std::string other = text;
      other[i] = static_cast<char>(1 << bit);
      EXPECT_TRUE(seen.insert(Vlb::content_hash(other).text()).second) << i;
    }
}

// Sets itself for its life.
struct Watched : gWitness {
  explicit Watched(std::string const & result) : gWitness(result) { Vlb::set_witness(this); }
  ~Watched() { Vlb::set_witness(nullptr); }
  bool all_hold() {
    Vlb::set_witness(nullptr);
    bool hold = true;
    std::optional<gSights> const seen = sights();
    for (auto const & [place, sight] : *seen)
      hold = hold && holds(place, sight);
    Vlb::set_witness(this);
    return hold;
  }
};

TEST(witness, tells_whether_all_is_as_it_was) {
  TempFolder folder;
  folder.write("in/a", "text");
  std::string text;
  auto const look = [&] {
    gFileSystem::read_file(gPathstring(folder.path("in/a")), text);
    gFileSystem::read_file(gPathstring(folder.path("in/missing")), text);
    gFileSystem::file_exists(gPathstring(folder.path("in/other")));
    Vlb::read_folder(gPathstring(folder.path("in")));
    gFileSystem::read_file(gPathstring(folder.path("in/out/page")), text);
  };
  Watched witness(folder.path("in/out"));
  look();
  folder.write("in/out/page", "made");
  look();
  EXPECT_TRUE(witness.all_hold()) << "results are none of its business";
  folder.write("in/a", "text");
  EXPECT_TRUE(witness.all_hold()) << "touched";
  folder.write("in/a", "next");
  EXPECT_FALSE(witness.all_hold()) << "as long as before, in the same moment";
  EXPECT_TRUE(witness.sights());
  look();
  EXPECT_FALSE(witness.sights()) << "seen in two ways";
}

TEST(witness, sees_what_comes_up) {
  TempFolder folder;
  fs::create_directory(folder.path("in"));
  for (std::string const name : {"missing", "other", "linked"}) {
    Watched witness(folder.path("out"));
    std::string text;
    gFileSystem::read_file(gPathstring(folder.path("in/missing")), text);
    gFileSystem::dir_exists(gPathstring(folder.path("in/other")));
    if (name == "linked")
      Vlb::read_folder(gPathstring(folder.path("in")));
    EXPECT_TRUE(witness.all_hold());
    if (name == "missing")
      folder.write("in/missing");
    else if (name == "other")
      fs::create_directory(folder.path("in/other"));
    else
      fs::create_symlink("missing", folder.path("in/linked"));
    EXPECT_FALSE(witness.all_hold()) << name;
  }
}

TEST(folder_snapshot, notices_every_touch) {
  TempFolder folder;
  folder.write("d/e/page", "text");
  folder.write("top", "text");
  auto const whole = gFolderSnapshot::take(gPathstring(folder.path()));
  auto const part = gFolderSnapshot::take(gPathstring(folder.path()), {"top"});
  EXPECT_TRUE(whole.holds(gPathstring(folder.path())));
  EXPECT_FALSE(part.holds(gPathstring(folder.path()))) << "top is one too many";
  EXPECT_EQ(part.tops.at("d"), whole.tops.at("d"));
  auto joined = gFolderSnapshot::take(gPathstring(folder.path()), {"d"});
  joined.add(part);
  EXPECT_TRUE(joined.holds(gPathstring(folder.path())));
  folder.write("d/e/page", "tent");
  auto now = gFolderSnapshot::take(gPathstring(folder.path()));
  now.young = whole.young;
  EXPECT_FALSE(now.holds(gPathstring(folder.path()))) << "the bytes differ, whatever the times say";
  fs::remove(folder.path("top"));
  EXPECT_NE(gFolderSnapshot::take(gPathstring(folder.path())).tops, whole.tops);
}

} // namespace

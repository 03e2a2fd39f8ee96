// Lists of other documentation, good, damaged and hostile ones.

#include <zlib.h>

#include <gtest/gtest.h>

#include "conv/set/externals.h"
#include "conv/set/repository.h"
#include "support/temp_folder.h"
#include "support/test_outside.h"

namespace {

std::string inventory(std::string const & lines) {
  uLongf size = compressBound(static_cast<uLong>(lines.size()));
  std::string packed(size, '\0');
  compress(reinterpret_cast<Bytef *>(packed.data()), &size,
           reinterpret_cast<Bytef const *>(lines.data()), static_cast<uLong>(lines.size()));
  packed.resize(size);
  return "# Sphinx inventory version 2\n# Project: p\n# Version: 1\n# zlib\n" + packed;
}

constexpr char const * tags = R"x(<?xml version='1.0'?>
<tagfile>
  <compound kind="class" objc="no">
    <name>std::vector</name>
    <filename>cpp/container/vector</filename>
    <member kind="function">
      <type>void</type><name>push_back</name>
      <anchorfile>cpp/container/vector/push_back</anchorfile><anchor></anchor><arglist>(T)</arglist>
    </member>
  </compound>
  <compound kind="class"><name>std::basic_string&lt; char &gt;</name><filename>s.html</filename>
    <anchor>a1</anchor></compound>
  <compound kind="file"><name>f.h</name><filename>f_8h</filename>
    <member kind="define"><name>F_MAX</name><anchorfile>f_8h.html</anchorfile>
    <anchor>x"&lt;y</anchor></member>
  </compound>
  <compound kind="class"><name>evil</name><filename>javascript:alert(1)"&gt;&lt;b&gt;</filename>
  </compound>
</tagfile>)x";

} // namespace

TEST(Externals, BothListsAreReadAndLookedUpFromTheInsideOut) {
  gExternals externals("");
  ASSERT_TRUE(Externals::read_tags(tags, "https://c/w/", externals));
  ASSERT_TRUE(Externals::read_inventory(
      inventory("std::map cpp:class 1 map.html#$ -\noperator new cpp:function 1 n.html -\n"
                "std::vector cpp:class 1 later.html -\nos.path py:module 0 os.html -\nno good\n"),
      "https://s/", externals));
  EXPECT_EQ(externals.href("std::vector", true), "https://c/w/cpp/container/vector");
  EXPECT_EQ(externals.href("std::vector::push_back", false),
            "https://c/w/cpp/container/vector/push_back");
  EXPECT_EQ(externals.href("std::vector::push_back", true), "");
  EXPECT_EQ(externals.href("std::basic_string< char >", true), "https://c/w/s.html#a1");
  EXPECT_EQ(externals.href("F_MAX", false), "https://c/w/f_8h.html#x%22%3Cy");
  EXPECT_EQ(externals.href("evil", true), "https://c/w/javascript%3Aalert(1)%22%3E%3Cb%3E");
  EXPECT_EQ(externals.href("std::map", true), "https://s/map.html#std%3A%3Amap");
  EXPECT_EQ(externals.href("operator new", false), "https://s/n.html");
  EXPECT_EQ(externals.href("os.path", false), "");
  EXPECT_EQ(externals.href_from("std::chrono::clock", "map", true),
            "https://s/map.html#std%3A%3Amap");
  EXPECT_EQ(externals.href_from("mine::clock", "map", true), "");
}

TEST(Externals, WhatIsNoListIsTold) {
  gExternals externals("");
  std::string const good = inventory("a cpp:class 1 a.html -\n");
  EXPECT_FALSE(Externals::read_inventory(good.substr(0, good.size() - 6), "https://s/", externals));
  EXPECT_FALSE(Externals::read_tags("<html></html>", "https://s/", externals));
  for (std::size_t end = 0; end < std::string_view(tags).size(); ++end) // no end is too early
    Externals::read_tags(std::string_view(tags).substr(0, end), "https://s/", externals);

  TempFolder folder;
  TestOutside outside;
  std::string const list = folder.write("objects.inv", good);
  gExternals const read("https://host:80/x\"y , " + list + "; javascript:x, " + list +
                        "; https://z, /none; https://q, " + folder.write("plain", "text"));
  EXPECT_EQ(read.href("a", true), "https://host:80/x%22y/a.html");
  std::string const reports = outside.report_text();
  EXPECT_NE(reports.find("javascript:x"), std::string::npos) << reports;
  EXPECT_NE(reports.find("/none"), std::string::npos) << reports;
  EXPECT_NE(reports.find("/plain"), std::string::npos) << reports;
}

TEST(Repository, AddressesKnowFolderAndCommit) {
  TempFolder folder;
  std::string const commit(40, 'a'), other(40, 'b');
  folder.write("p/.git/HEAD", "ref: refs/heads/main\n");
  folder.write("p/.git/packed-refs",
               "# packed\n" + other + " refs/heads/old\n" + commit + " refs/heads/main\n");
  folder.write("q/.git", "gitdir: ../p/.git\n");
  folder.write("free/a.h", "");
  gRepository links("https://h/\"$commit/$file#L$line&x", "");
  EXPECT_EQ(links.href(folder.path("p/src/a b.h"), "7"),
            "https://h/%22" + commit + "/src/a%20b.h#L7&x");
  EXPECT_EQ(links.href(folder.path("q/c.h"), "1"), "https://h/%22" + commit + "/c.h#L1&x");
  EXPECT_EQ(links.href(folder.path("free/a.h"), "7"), "");
  EXPECT_EQ(gRepository("https://h/$commit", "v1").href(folder.path("p/a.h"), "7"), "https://h/v1");
  EXPECT_EQ(gRepository("javascript:$file", "").href(folder.path("p/a.h"), "7"), "");
  folder.write("p/.git/HEAD", "ref: ../../secret\n");
  EXPECT_EQ(Repository::commit_of(folder.path("p")), "");
}

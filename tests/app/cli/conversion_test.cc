// Conversions by the program: statuses, what stays in the output folder, and the built-in project.

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <regex>

#include "program.h"

namespace {

TEST(conversion, builds_what_the_next_run_may_empty) {
  Sandbox box;
  box.make_project();
  EXPECT_EQ(box.run("build p.vlp --target pdf").status, 2);
  Answer const answer = box.run("build p.vlp --target htm --target rtf");
  EXPECT_EQ(answer.status, 0) << answer.err;
  EXPECT_EQ(answer.out, "");
  EXPECT_TRUE(box.exists("out/htm/index.htm") && box.exists("out/rtf") &&
              box.exists("out/rtf.log"));
  EXPECT_EQ(box.run("build p.vlp --fail-on warning").status, 3); // one of the analysis
  EXPECT_TRUE(box.exists("out/htm/index.htm") && box.exists("out/rtf"));
  box.write("out/htm.new/page.htm", "of a run that was killed");
  std::string const page = box.read("out/htm/index.htm");
  for (char const * fault : {"--set htm/vlt_default=false --set htm/vlt=no.vlt",
                             "--set vls_file=none.vls", "--set 'inputfiles/1/files=*.none'"}) {
    EXPECT_EQ(box.run(std::string("build p.vlp -q ") + fault).status, 1) << fault;
    EXPECT_EQ(box.read("out/htm/index.htm"), page) << fault;
    EXPECT_FALSE(box.exists("out/htm.new")) << fault;
  }
  EXPECT_EQ(box.run("build p.vlp -o other").status, 0);
  EXPECT_TRUE(box.exists("other/htm/index.htm"));
}

// Pages without their style are no result; the folder counts from the project, wherever one stands.
TEST(conversion, needs_the_auxiliary_files_that_it_is_told) {
  Sandbox box;
  box.make_project();
  box.write("deep/helpers/own.css", "mine");
  std::string const helpers = " --set htm/helpers_dir_default=false --set htm/helpers_dir=";
  Answer answer = box.run("build p.vlp" + helpers + "deep/helpers");
  EXPECT_EQ(answer.status, 0) << answer.err;
  answer = box.run("--version && cd deep && " VELLUMAR_PROGRAM " build ../p.vlp" + helpers +
                   "deep/helpers");
  EXPECT_EQ(answer.status, 0) << answer.err;
  EXPECT_EQ(box.read("out/htm/_files/own.css"), "mine");
  answer = box.run("build p.vlp" + helpers + "nowhere");
  EXPECT_EQ(answer.status, 1);
  EXPECT_NE(answer.err.find("ERROR 20: Cannot read from file: " + box.path("nowhere\n")),
            std::string::npos)
      << answer.err;
  EXPECT_EQ(box.read("out/htm/_files/own.css"), "mine");
}

// What the user has put beside the pages goes on into the next result, unless a page needs its
// place.
TEST(conversion, keeps_files_of_the_user_among_the_pages) {
  Sandbox box;
  box.make_project();
  EXPECT_EQ(box.run("build p.vlp").status, 0);
  box.write("out/htm/mine", "mine");
  box.write("out/htm/own/deep/mine", "mine");
  std::filesystem::create_symlink("mine", box.path("out/htm/link"));
  EXPECT_EQ(box.run("build p.vlp").status, 2);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(box.run("build p.vlp --overwrite").status, 0);
    for (char const * name : {"out/htm/mine", "out/htm/own/deep/mine", "out/htm/link"})
      EXPECT_EQ(box.read(name), "mine") << name;
    EXPECT_TRUE(box.exists("out/htm/index.htm"));
  }
  box.write("new/htm/index.htm", "mine");
  Answer const answer = box.run("build p.vlp -o new --overwrite");
  EXPECT_EQ(answer.status, 1);
  EXPECT_NE(answer.err.find("new/htm/index.htm (File exists)"), std::string::npos) << answer.err;
  EXPECT_EQ(box.read("new/htm/index.htm"), "mine");
}

TEST(conversion, tells_where_there_is_no_room) {
  Sandbox box;
  box.make_project();
  box.write("helpers/large.bin", std::string(300'000, 'x'));
  std::string const build =
      "build p.vlp --set htm/helpers_dir_default=false --set htm/helpers_dir=" +
      box.path("helpers");
  EXPECT_EQ(box.run(build).status, 0);
  box.write("helpers/large.bin", std::string(300'000, 'y')); // what is the same isn't written
  Answer const answer = box.run("--version && ulimit -f 200 && " VELLUMAR_PROGRAM " " + build);
  EXPECT_EQ(answer.status, 1);
  EXPECT_NE(answer.err.find("ERROR 21: Cannot write to file: " + box.path("out/htm.new/")),
            std::string::npos)
      << answer.err;
  EXPECT_NE(answer.err.find("large.bin (File too large)\n"), std::string::npos) << answer.err;
  EXPECT_TRUE(box.exists("out/htm/index.htm") && !box.exists("out/htm.new"));
}

TEST(conversion, is_stopped_by_an_interrupt) {
  Sandbox box;
  box.make_project();
  std::string text;
  for (int i = 0; i < 5'000; ++i)
    text += "/* @class Has it. */\nclass c" + std::to_string(i) + " {};\n";
  box.write("src/long.h", text);
  int const child = box.start("build p.vlp");
  box.wait_for("out/htm.log", "Writing documentation");
  kill(child, SIGINT);
  EXPECT_EQ(Sandbox::end_of(child), 130);
  EXPECT_TRUE(box.read("out/htm.log").ends_with("User aborted program.\n"));
  EXPECT_FALSE(box.exists("out/htm") || box.exists("out/htm.new"));
  box.write("src/long.h", "");
  EXPECT_EQ(box.run("build p.vlp").status, 0);
}

TEST(conversion, quick_documents_any_folder) {
  Sandbox box;
  Answer answer = box.run("quick nowhere -o doc");
  EXPECT_TRUE(answer.status == 2 && answer.err == "vellumar: Folder does not exist: nowhere\n");
  EXPECT_EQ(box.run("quick '' -o doc").status, 2);
  box.write("tree/notes.txt", "");
  box.write("tree/build/made.h", "void made();\n");
  answer = box.run("quick tree -o doc");
  EXPECT_EQ(answer.status, 2);
  EXPECT_EQ(answer.err.find("vellumar: No source file found. "), 0u) << answer.err;
  EXPECT_FALSE(box.exists("doc"));
  box.write("tree/a.h", "// Does it.\nvoid f();\nclass C {};\n");
  box.write("tree/deep/B.HPP", "class D {\n");
  for (char const * other : {"tree/.git/x.h", "tree/node_modules/x.h", "tree/out/x.h"})
    box.write(other, "void x();\n");
  box.write("tree/out/CMakeCache.txt", "");
  for (int i = 0; i < 2; ++i) { // the second time over what the first has left, inside the tree
    answer = box.run("quick tree -o tree/doc -q");
    EXPECT_EQ(answer.status, 0) << answer.err;
    EXPECT_EQ(answer.out.find("Start page: " + box.path("tree/doc/htm/index.htm") +
                              "\nSources:    2 files, 1 of them not read whole"),
              0u)
        << answer.out;
    EXPECT_NE(answer.out.find("1 function"), std::string::npos) << answer.out;
    EXPECT_NE(answer.out.find("\nLog:        " + box.path("tree/doc/ana.log\n")),
              std::string::npos);
    EXPECT_NE(box.read("tree/doc/htm/index.htm").find("tree"), std::string::npos) << "its title";
  }
  EXPECT_EQ(box.run("quick tree -o tree").status, 2);
  box.write("tree/end /x.h", "void x();\n");
  std::filesystem::create_directory_symlink(box.path("tree"), box.path("same"));
  answer = box.run("quick tree/deep tree same -o same/doc");
  EXPECT_NE(answer.err.find("Left out because of "), std::string::npos) << answer.err;
  EXPECT_EQ(answer.err.find("ERROR:"), std::string::npos) << answer.err;
  EXPECT_NE(answer.out.find("\nSources:    2 files, "), std::string::npos) << answer.out;
  std::filesystem::remove_all(box.path("tree/end "));
  EXPECT_TRUE(box.exists("tree/a.h"));
}

// The percentages behind each of the stage's drawings, from a terminal's record.
std::vector<int> percentages(std::string const & record, std::string const & stage) {
  std::vector<int> found;
  for (std::size_t at = 0; (at = record.find(stage + " ", at)) != record.npos; ++at)
    found.push_back(std::stoi(record.substr(at + stage.size())));
  return found;
}

// A name that means one thing leads there from the source; one that means several doesn't.
TEST(conversion, sources_link_the_names_that_they_use) {
  Sandbox box;
  box.write("src/a.h", "/// One.\nclass Alpha {};\nvoid twice(int);\nvoid twice(char);\n");
  box.write("src/b.h", "/// Two.\nAlpha make_alpha(int n); // twice\nint b = twice(1);\n");
  EXPECT_EQ(box.run("quick src -o o").status, 0);
  std::string const page = box.read("o/htm/_source/b.h.htm");
  EXPECT_NE(page.find("<a href=\"../Alpha.htm\">Alpha</a>"), std::string::npos) << page;
  EXPECT_EQ(page.find(">twice</a>"), std::string::npos);
}

TEST(conversion, quick_shows_properties_wherever_they_stand) {
  Sandbox box;
  box.write("tree/a.h", "class Knob {\n/** How far. */\nQ_PROPERTY(int turn READ turn)\n};\n");
  box.write("tree/b.pas",
            "unit b;\ninterface\n{ It is known. }\nproperty Answer: Integer read Get;\n"
            "implementation\nend.\n");
  EXPECT_EQ(box.run("quick tree -o doc").status, 0);
  EXPECT_NE(box.read("doc/htm/Knob.htm").find("How far."), std::string::npos);
  EXPECT_NE(box.read("doc/htm/b.pas.htm").find("It is known."), std::string::npos);
}

TEST(conversion, classes_list_the_friends_that_they_declare) {
  Sandbox box;
  box.write("tree/a.h",
            "class A {\npublic:\n  class Inner {\n    friend void of_inner(Inner);\n  };\n"
            "  /// Compares.\n  friend bool same(A, A);\n};\nfriend void nobody();\n");
  EXPECT_EQ(box.run("quick tree -o doc").status, 0);
  std::string const page = box.read("doc/htm/A.htm");
  std::size_t const friends = page.find(">Friends<");
  ASSERT_NE(friends, std::string::npos);
  EXPECT_NE(page.find("same</", friends), std::string::npos);
  EXPECT_EQ(page.find("of_inner", friends), std::string::npos);
  EXPECT_EQ(page.find("nobody", friends), std::string::npos);
}

// What is too long for a row is a link to where it stands, also from the page of its namespace.
TEST(conversion, long_signatures_are_links_to_their_pages) {
  Sandbox box;
  std::string const types(400, 'T');
  box.write("tree/a.h",
            "/// All.\nnamespace n {\n/// Long.\nvoid far(" + types + " a);\nint g();\n}\n");
  Answer const answer = box.run("quick tree -o doc");
  EXPECT_EQ(answer.status, 0);
  EXPECT_EQ(answer.err.find("532"), std::string::npos) << answer.err;
  EXPECT_NE(box.read("doc/htm/n.htm").find("a.h.htm#"), std::string::npos);
}

// Under its path, above what it declares, and alone where it declares nothing by itself.
TEST(conversion, quick_shows_the_text_of_a_file_on_its_page) {
  Sandbox box;
  box.write("tree/a.h", "/** @file a.h\n * All of a. */\n#include \"b.h\"\nint y(); int x();\n");
  box.write("tree/b.h", "/** @file\n * All of b. */\nclass B {};\n");
  EXPECT_EQ(box.run("quick tree -o doc").status, 0);
  std::string const page = box.read("doc/htm/a.h.htm");
  std::size_t const text = page.find("All of a.");
  ASSERT_NE(text, std::string::npos);
  EXPECT_LT(text, page.find(">y<"));
  EXPECT_LT(page.find(">y<"), page.find(">x<")); // in the order of the line
  EXPECT_NE(page.find("b.h</"), std::string::npos);
  EXPECT_NE(box.read("doc/htm/b.h.htm").find("All of b."), std::string::npos);
}

TEST(conversion, quick_tells_on_a_terminal_how_far_it_is) {
  Sandbox box;
  for (int i = 0; i < 30; ++i)
    box.write("tree/f" + std::to_string(i) + ".h",
              "// Does it.\nvoid f" + std::to_string(i) + "();\n");
  box.run("--version && TMPDIR=. script -qc '" VELLUMAR_PROGRAM " quick tree' terminal");
  std::string const record = box.read("terminal");
  for (char const * stage :
       {"Analyzing program code...", "Associating code elements and text units...",
        "Writing documentation: HTML"}) {
    std::vector<int> const shown = percentages(record, stage);
    EXPECT_GE(shown.size(), 20u) << stage << record;
    EXPECT_TRUE(std::ranges::is_sorted(shown)) << stage;
  }
  EXPECT_NE(record.find("%\r\033[KStart page: "), std::string::npos) << "nothing of it is left";
}

TEST(conversion, quick_takes_what_it_is_given_and_no_more) {
  Sandbox box;
  box.write("private/y.h", "void hidden_one();\n");
  box.write("tree/a.h", "// Does it.\nvoid shown_one();\n");
  box.write("tree/b.hpp", "// Does it.\nvoid shown_two();\n");
  std::filesystem::create_symlink("../private/y.h", box.path("tree/x.h"));
  std::filesystem::create_symlink("a.h", box.path("tree/z.h"));
  box.write("tree/line\nfeed.h", "void broken();\n");
  Answer answer = box.run("quick tree");
  EXPECT_EQ(answer.status, 0) << answer.err;
  EXPECT_NE(answer.out.find("\nSources:    3 files\n"), std::string::npos) << answer.out;
  EXPECT_NE(answer.err.find("leads out of the folders: '" + box.path("tree/x.h'")),
            std::string::npos);
  EXPECT_NE(answer.err.find("line\\nfeed.h"), std::string::npos) << answer.err;
  EXPECT_EQ(answer.err.find("ERROR"), std::string::npos) << answer.err;
  std::string const code = box.read("site/quick.atc");
  EXPECT_NE(code.find("shown_one"), std::string::npos);
  EXPECT_EQ(code.find("hidden_one"), std::string::npos);
  answer = box.run("quick tree/b.hpp private/y.h");
  EXPECT_EQ(answer.status, 0) << answer.err;
  EXPECT_NE(answer.out.find("\nSources:    2 files\n"), std::string::npos) << answer.out;
  EXPECT_EQ(box.read("site/quick.atc").find("shown_one"), std::string::npos);
  EXPECT_EQ(box.run("quick site/ana.log").status, 2);
  answer = box.run("--version && mkdir g && cd g && rmdir ../g && " VELLUMAR_PROGRAM
                   " quick ../tree -o ../away");
  EXPECT_EQ(answer.status, 2) << answer.err;
  EXPECT_EQ(answer.err, "vellumar: The current folder is gone. Change into one that exists.\n");
}

// What isn't understood is told in numbers, and shown where it stands.
TEST(conversion, quick_shows_what_it_skipped) {
  Sandbox box;
  box.write("tree/a.hpp", "class A {\npublic:\n  int good();\n  int bad(<;\n  int more();\n};\n"
                          "class B {};\n");
  Answer const answer = box.run("quick tree -o doc");
  EXPECT_EQ(answer.status, 0) << answer.err;
  EXPECT_NE(answer.out.find(" declarations, 1 stretch skipped\n"), std::string::npos) << answer.out;
  EXPECT_NE(box.read("doc/htm/index.htm").find("href=\"skipped.htm\""), std::string::npos);
  EXPECT_NE(box.read("doc/htm/A.htm").find("href=\"skipped.htm\""), std::string::npos);
  EXPECT_EQ(box.read("doc/htm/B.htm").find("skipped.htm"), std::string::npos);
  std::string const page = box.read("doc/htm/skipped.htm");
  EXPECT_NE(page.find("_source/a.hpp.htm#L4"), std::string::npos) << page;
  EXPECT_NE(page.find("  int bad(&lt;;\n"), std::string::npos) << page;
  box.write("tree/a.hpp", "class A {};\n");
  EXPECT_NE(box.run("quick tree -o doc").out.find("1 declaration, 0 stretches skipped\n"),
            std::string::npos);
  EXPECT_FALSE(box.exists("doc/htm/skipped.htm"));
}

// A new project knows what comments of other systems say, and takes no word of theirs for its own
// mark-up.
TEST(conversion, a_new_project_reads_what_quick_reads) {
  Sandbox box;
  box.write("tree/a.hpp", "/**\n * Does it.\n *\n * Parameter: none.\n * - an item\n *\n"
                          " * Function f is one\n * @note Slow. @since 2\n * @throws Err if full\n"
                          " * @retval 1 done\n */\nint f();\n"
                          "/** @defgroup g The group\n * Text. */\n"
                          "/** @class C\n * @bug Many. */\nclass C { public: int x;\n/** @p x is\n "
                          "* it. */\nvoid g(int x); };\n"
                          "enum e { e1 /**< one */ };\nextern int v;\n");
  box.run("new p.vlp --script tmp/s.vls --out p --root tree --input '.|*.h*'");
  box.run("quick tree -o q -q");
  std::filesystem::copy_file(std::string(VELLUMAR_SOURCE_DIR) + "/ini/quick.vls",
                             box.path("tmp/s.vls"));
  EXPECT_EQ(box.run("analyze p.vlp --set ana/facts_line=true").status, 0);
  auto const units = [&](std::string const & file) {
    static std::regex const script("<pos><[^<>]*\\.vls>");
    std::string const text = std::regex_replace(box.read(file), script, "");
    return text.substr(std::min(text.find("@unit<"), text.size()));
  };
  std::string const quick = units("q/quick.atc");
  EXPECT_EQ(units("p/s.atc"), quick);
  for (char const * text :
       {"@subtitle{Notes}", "Slow", "an item", "Many", "{e1}", "Parameter: none"})
    EXPECT_NE(quick.find(text), std::string::npos) << text;
}

// Sources are never written over, whatever the folder is called and whoever leaves it out.
TEST(conversion, quick_writes_into_no_folder_with_sources) {
  Sandbox box;
  box.write("src/a.h", "void f();\n");
  box.write("src/deep/b.h", "void g();\n");
  box.write("src/deep/er/notes", "mine");
  std::filesystem::create_directory_symlink(box.path("src/deep"), box.path("link"));
  for (char const * out : {"src", "src/deep", "src/deep/er/..", "link", "src/../src/deep/", "."}) {
    Answer const answer = box.run(std::string("quick src --overwrite -o ") + out);
    EXPECT_EQ(answer.status, 2) << out << answer.err;
  }
  EXPECT_EQ(box.run("quick src/a.h --overwrite -o src").status, 2);
  EXPECT_EQ(std::distance(std::filesystem::recursive_directory_iterator(box.path("src")), {}), 5);
  EXPECT_EQ(box.read("src/deep/b.h"), "void g();\n");
  EXPECT_EQ(box.run("quick src --overwrite -o src/deep/er").status, 0);
  EXPECT_EQ(box.read("src/deep/er/notes"), "mine");
}

} // namespace

// The program as its users meet it: statuses, streams, and what it must never delete.

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <vector>

#include <unistd.h>

#include "program.h"
#include "vlb/messages.h"

namespace {

TEST(cli, tells_usage) {
  Sandbox box;
  EXPECT_EQ(box.run("--version").out.substr(0, 9), "vellumar ");
  struct {
    char const * arguments;
    int status;
  } const rows[] = {
      {"--help", 0},
      {"analyze", 2},
      {"analyze missing.vlp", 2},
      {"analyze p.vlp --fail-on info", 2},
      {"help", 0},
      {"help quick", 0},
      {"quik src", 2},
  };
  for (auto const & row : rows) {
    Answer const answer = box.run(row.arguments);
    EXPECT_EQ(answer.status, row.status) << row.arguments;
    EXPECT_EQ(answer.out.empty(), row.status != 0) << row.arguments;
    EXPECT_EQ(answer.err.empty(), row.status == 0) << row.arguments;
  }
  EXPECT_EQ(box.run("quik src").err,
            "vellumar: 'quik' is no command. Did you mean 'vellumar quick'?\n");
  EXPECT_EQ(box.run("help build").out, box.run("build --help").out);
}

TEST(cli, makes_and_changes_a_project) {
  Sandbox box;
  box.write("src/a.h", "");
  std::string const make =
      "new p.vlp --script s.vls --out o --root . --input 'src|*.h|api' --input 'x;y|*.c'";
  EXPECT_EQ(box.run(make).status, 0);
  EXPECT_EQ(box.run(make).status, 2);
  EXPECT_EQ(box.run(make + " --force").status, 0);
  EXPECT_EQ(box.run("get p.vlp inputfiles/1/count").out, "1\n");
  EXPECT_EQ(box.run("set p.vlp ana/tab_width=8 'ana/alloc/prio=[1,2,3,4,5,6,7,8]'").status, 0);
  EXPECT_EQ(box.run("get p.vlp ana/tab_width").out, "8\n");
  EXPECT_NE(box.run("get p.vlp").out.find("\n    \"tab_width\": 8,\n"), std::string::npos);
  std::string const before = box.read("p.vlp");
  EXPECT_EQ(box.run("set p.vlp ana/verb_indent=2 ana/tab_width=wide").status, 2);
  EXPECT_EQ(box.run("set p.vlp ana/tab_width=$(head -c 100000 /dev/zero | tr '\\0' x)").err,
            "vellumar: ana/tab_width: a value of the type string where int is wanted\n");
  EXPECT_EQ(box.read("p.vlp"), before);
  box.write("cut.vlp", before.substr(0, before.size() / 2));
  EXPECT_NE(box.run("get cut.vlp ana/tab_width").err.find("cut.vlp:"), std::string::npos);
  box.write("s.vls", "\xEF\xBB\xBF@document\n");
  EXPECT_EQ(box.run("set s.vls ana/tab_width=8").err,
            "vellumar: s.vls: this is no project file. 'vellumar new' writes one.\n");
  std::string const pattern = " ana/srcpat_unit/spt_var/";
  EXPECT_EQ(box.run("set p.vlp" + pattern + "idspec=2" + pattern + "slspec=1" + pattern + "slsep=-")
                .status,
            0);
  std::filesystem::permissions(box.path("p.vlp"), std::filesystem::perms::owner_read);
  Answer const answer = box.run("set p.vlp ana/tab_width=4");
  EXPECT_EQ(answer.status, 1);
  EXPECT_NE(answer.err.find("' stays as it was. Give yourself the right to write the file.\n"),
            std::string::npos)
      << answer.err;
}

TEST(cli, loses_no_change_of_several_processes) {
  Sandbox box;
  box.make_project();
  std::vector<int> children;
  for (int i = 0; i < 8; ++i)
    children.push_back(box.start("set p.vlp cppmacros/M" + std::to_string(i) + "={}"));
  for (int child : children)
    EXPECT_EQ(Sandbox::end_of(child), 0);
  std::string const macros = box.run("get p.vlp cppmacros").out;
  for (int i = 0; i < 8; ++i)
    EXPECT_NE(macros.find("\"M" + std::to_string(i) + "\""), std::string::npos) << macros;
}

TEST(cli, checks_the_input_of_a_project) {
  Sandbox box;
  box.make_project();
  Answer answer = box.run("check p.vlp");
  EXPECT_EQ(answer.status, 0);
  EXPECT_EQ(answer.out, "src|*.h: 1 file\n");
  std::filesystem::remove(box.path("doc.vls"));
  std::filesystem::remove_all(box.path("src"));
  answer = box.run("check p.vlp");
  EXPECT_EQ(answer.status, 1);
  EXPECT_NE(answer.err.find("Folder does not exist: "), std::string::npos);
  EXPECT_NE(answer.err.find("doc.vls"), std::string::npos);
  box.write("empty.vlp", "");
  EXPECT_EQ(box.run("check empty.vlp").err,
            "vellumar: No script file specified.\nvellumar: No input files specified.\n");
}

TEST(cli, run_options_hold_for_one_run) {
  Sandbox box;
  box.make_project();
  std::string const before = box.read("p.vlp");
  Answer const answer = box.run("analyze p.vlp");
  EXPECT_TRUE(answer.status == 0 && answer.out.empty());
  std::string const report = "WARNING 412: Unknown @-identifier: @nix (" + box.path("src/a.h:1)\n");
  EXPECT_NE(answer.err.find("\nSTATUS: Analyzing text units...\n" + report), std::string::npos);
  EXPECT_EQ(answer.err.find_first_of("\r\033"), std::string::npos);
  EXPECT_EQ(box.run("analyze p.vlp -q").err, "");
  EXPECT_EQ(box.run("analyze p.vlp --fail-on warning").status, 3);
  EXPECT_EQ(box.run("analyze p.vlp --fail-on warning --suppress 1,412").status, 0);
  EXPECT_EQ(box.read("out/ana.log").find("412"), std::string::npos);
  EXPECT_EQ(box.run("analyze p.vlp --set out_dir=other --set msg/lvl_disp=7").err,
            "doc.vls - 0 error(s), 1 warning(s)\n");
  EXPECT_TRUE(box.exists("other/doc.atc"));
  EXPECT_EQ(box.run("analyze p.vlp --set out_dir=p.vlp/out").err,
            "vellumar: Folder '" + box.path("p.vlp/out") + "' could not be created.\n");
  EXPECT_EQ(box.run("analyze p.vlp --set out_dir=").err,
            "vellumar: No output folder specified.\n"
            "vellumar: 'vellumar set' or --set changes inputfiles, vls_file and out_dir.\n");
  EXPECT_EQ(box.run("analyze p.vlp --set vls_file=none.vls").status, 1);
  EXPECT_EQ(box.read("p.vlp"), before);
  box.write("src/a.h", "");
  box.write("src/line\nfeed.h", "");
  EXPECT_EQ(box.run("analyze p.vlp --set msg/lvl_disp=4 --fail-on warning").err,
            "WARNING 462: Left out because of a line feed in its name: " +
                box.path("src/line\\nfeed.h\n") + "doc.vls - 0 error(s), 1 warning(s)\n");
}

TEST(cli, tells_what_failed_and_where) {
  Sandbox box;
  box.make_project();
  box.write("src/a.h", "int a;\n\nint f(int a) {\n {");
  std::string const fault = "FATAL ERROR: Unexpected end of file (" + box.path("src/a.h:4)\n");
  Answer answer = box.run("analyze p.vlp --fail-on error --reports r.jsonl");
  EXPECT_EQ(answer.status, 3);
  EXPECT_NE(answer.err.find(fault + "    Continuing analysis with next file.\n"), std::string::npos)
      << answer.err;
  EXPECT_EQ(
      box.read("r.jsonl"),
      "{\"number\":34,\"severity\":\"error\",\"text\":\"FATAL ERROR: Unexpected end of file\","
      "\"path\":\"" +
          box.path("src/a.h") + "\",\"line\":4,\"stage\":\"code\",\"advice\":\"" +
          std::string(Msg::unexpected_end.advice) +
          "\",\"hints\":[\"Continuing analysis with next file.\"]}\n");
  EXPECT_EQ(box.run("analyze p.vlp --suppress 34 --reports r.jsonl --fail-on error").status, 0);
  EXPECT_EQ(box.read("r.jsonl"), "");
  answer = box.run("build p.vlp -q --set vls_file=none.vls");
  EXPECT_EQ(answer.status, 1);
  EXPECT_EQ(answer.err,
            "vellumar: FATAL ERROR: Cannot read from file: " + box.path("none.vls") + "\n");
  answer = box.run("build p.vlp -q --reports r.jsonl");
  EXPECT_EQ(answer.status, 1);
  EXPECT_NE(answer.err.find("vellumar: ERROR 520: No text unit in the intermediate code: "),
            std::string::npos)
      << answer.err;
  EXPECT_NE(box.read("r.jsonl").find("\"stage\":\"convert\""), std::string::npos);
  answer = box.run("analyze p.vlp --reports src/a.h");
  EXPECT_EQ(answer.status, 2);
  EXPECT_EQ(answer.err, "vellumar: Cannot write the reports to 'src/a.h': "
                        "It exists, and holds other things\n");
  EXPECT_TRUE(box.read("src/a.h").starts_with("int a;"));
  EXPECT_EQ(box.run("analyze p.vlp --reports none/r.jsonl").status, 2);
}

TEST(cli, tells_once_what_the_machine_refuses) {
  Sandbox box;
  box.make_project();
  box.write("doc.vls", "@document\n@outfilter\n");
  box.write("src/literal.h", "char const * s = \"" + std::string(1100, 'x') + "\";\n");
  box.write("src/large.h", "");
  std::filesystem::resize_file(box.path("src/large.h"), 3'000'000'000); // as a hole
  std::string const next = "    Continuing analysis with next file.\n";
  std::string const run = "analyze p.vlp --set msg/lvl_disp=7";
  EXPECT_EQ(box.run(run + " --fail-on error").err,
            "FATAL ERROR: Cannot read from file: " + box.path("src/large.h\n") +
                "FATAL ERROR: Token buffer overflow in the scanner (" +
                box.path("src/literal.h:1)\n") + "doc.vls - 2 error(s), 1 warning(s)\n")
      << next;
  std::filesystem::remove(box.path("src/large.h"));
  std::filesystem::remove(box.path("src/literal.h"));
  for (int i = 0; i < 3; ++i)
    box.write("src/b" + std::to_string(i) + ".h", std::string(8000, '\n') + "void f();\n");
  std::string const small = "--version && ulimit -f 4 && VELLUMAR_TEMP_MEMORY=0 TMPDIR=";
  Answer answer = box.run(small + box.path("tmp ") + VELLUMAR_PROGRAM " " + run);
  EXPECT_EQ(answer.status, 1);
  EXPECT_TRUE(answer.err.starts_with("ERROR 21: Cannot write to file: " + box.path("tmp/")))
      << answer.err;
  EXPECT_TRUE(answer.err.ends_with(": File too large\ndoc.vls - 1 error(s), 1 warning(s)\n"))
      << answer.err;
  answer = box.run("quick src -q --set htm/vlt_default=false --set htm/vlt=no.vlt");
  EXPECT_EQ(answer.status, 1);
  EXPECT_TRUE(answer.err.ends_with("The log tells why: " + box.path("site/htm.log\n")))
      << answer.err;
}

// However little there is: a run goes through, or says what it lacks.
TEST(cli, tells_that_the_memory_is_not_enough) {
  Sandbox box;
  box.make_project();
  std::string text;
  for (int i = 0; i < 4000; ++i)
    text += "/* @function Does it. */\nvoid f" + std::to_string(i) + "();\n";
  box.write("src/a.h", text);
  int refused = 0;
  for (int limit = 20'000; limit <= 60'000; limit += 5'000) {
    std::string const under = "--version >../o && ulimit -v " + std::to_string(limit) + " && ";
    if (box.run(under + VELLUMAR_PROGRAM " --version").status != 0)
      continue; // not enough for its own code
    Answer const answer = box.run(under + VELLUMAR_PROGRAM " analyze p.vlp");
    EXPECT_TRUE(answer.status == 0 || answer.status == 1) << limit << answer.err;
    EXPECT_EQ(answer.err.find("bad_alloc"), std::string::npos) << answer.err;
    refused += answer.err.find("Out of memory") != std::string::npos;
  }
  if (box.run("--version && ulimit -v 60000 && " VELLUMAR_PROGRAM " --version").status == 0) {
    EXPECT_GT(refused, 0);
  }
}

TEST(cli, empties_only_what_a_run_has_left) {
  Sandbox box;
  box.make_project();
  EXPECT_EQ(box.run("analyze p.vlp --set vls_file=none.vls").status, 1);
  EXPECT_EQ(box.run("analyze p.vlp").status, 0); // over what the failed run left
  EXPECT_EQ(box.run("analyze p.vlp").status, 0);
  box.write("out/notes.txt", "mine");
  Answer const refusal = box.run("analyze p.vlp");
  EXPECT_EQ(refusal.status, 2);
  EXPECT_NE(refusal.err.find("--overwrite"), std::string::npos) << refusal.err;
  EXPECT_EQ(box.read("out/notes.txt"), "mine");
  box.write("out/sub/notes.txt", "mine");
  EXPECT_EQ(box.run("analyze p.vlp --overwrite").status, 0);
  EXPECT_EQ(box.read("out/notes.txt") + box.read("out/sub/notes.txt"), "minemine");
  box.write("precious/part.atx", "");
  std::filesystem::create_directory_symlink(box.path("precious"), box.path("out/link"));
  EXPECT_EQ(box.run("analyze p.vlp").status, 2);
  EXPECT_EQ(box.run("analyze p.vlp --overwrite").status, 0);
  EXPECT_TRUE(box.exists("out/link") && box.exists("out/doc.atc"));
}

// Files of the user in the place of those that a run writes, by whatever way.
TEST(cli, writes_over_nothing_but_what_a_run_has_left) {
  struct {
    char const *file, *script;
    int status;
  } const rows[] = {
      {"out/ana.log", "@document\n@outfilter\n", 2},
      {"out/.vellumar", "@document\n@outfilter\n", 2},
      {"out/htm.new/x", "@document\n@outfilter\n", 2},
      {"out/rtf.log", "@document\n@outfilter\n", 2},
      {"out/doc.atc", "@document\n@outfilter\n", 1},
      {"out/part.atx", "@document\n@section<output=part>\n@outfilter\n", 1},
      {"precious/part.atx", "@document\n@section<output=link/part>\n@outfilter\n", 1},
  };
  for (auto const & row : rows) {
    Sandbox box;
    box.make_project();
    box.write("doc.vls", row.script);
    box.write("out/x", "mine");
    box.write("precious/x", "mine");
    std::filesystem::create_directory_symlink(box.path("precious"), box.path("out/link"));
    box.write(row.file, "mine");
    Answer const answer = box.run("analyze p.vlp --overwrite");
    EXPECT_EQ(answer.status, row.status) << row.file << answer.err;
    EXPECT_EQ(box.read(row.file), "mine") << row.file;
  }
}

TEST(cli, never_empties_a_folder_that_holds_more_than_output) {
  Sandbox box;
  box.make_project();
  box.write("deep/er/b.h", "void b();\n");
  box.write("home/me/file", "");
  box.write("scripts/doc.vls", "@document\n@outfilter\n");
  std::filesystem::create_directory_symlink(box.path("src"), box.path("link"));
  setenv("HOME", box.path("home/me").c_str(), 1);
  std::string const inputs =
      " --set 'inputfiles/1/path=src;deep/**' --set vls_file=scripts/doc.vls";
  for (char const * folder : {"/", ".", "..", "src", "src/../src/.", "link", "link/", "deep",
                              "deep/er", "home/me", "home", "scripts", "p.vlp/.."}) {
    Answer const answer =
        box.run(std::string("analyze p.vlp --overwrite --set out_dir=") + folder + inputs);
    EXPECT_EQ(answer.status, 2) << folder << answer.err;
  }
  for (char const * file : {"p.vlp", "src/a.h", "deep/er/b.h", "home/me/file", "scripts/doc.vls"})
    EXPECT_TRUE(box.exists(file)) << file;
}

TEST(cli, takes_a_failed_write_for_an_error) {
  Sandbox box;
  box.make_project();
  std::string const before = box.read("p.vlp");
  Answer answer = box.run("--version && (" VELLUMAR_PROGRAM " get p.vlp >/dev/full)");
  EXPECT_EQ(answer.status, 1);
  EXPECT_EQ(answer.err, "vellumar: Cannot write to standard output\n");
  answer = box.run("--version && ulimit -f 1 && " VELLUMAR_PROGRAM " set p.vlp ana/tab_width=8");
  EXPECT_EQ(answer.status, 1);
  EXPECT_EQ(box.read("p.vlp"), before);
}

TEST(cli, keeps_control_characters_of_names_from_the_terminal) {
  Sandbox box;
  box.make_project();
  for (char const * arguments : {"get 'a\033[2J.vlp'", "set p.vlp 'a\033[2J=1'",
                                 "analyze p.vlp --set 'out_dir=p.vlp/\033[2J'"}) {
    Answer const answer = box.run(arguments);
    EXPECT_EQ(answer.err.find('\033'), std::string::npos) << answer.err;
    EXPECT_NE(answer.err.find("\\x1b[2J"), std::string::npos) << answer.err;
  }
}

// A source that takes long enough to be stopped in the middle, whatever the machine.
void make_long_project(Sandbox const & box) {
  box.make_project();
  std::string text;
  for (int i = 0; i < 4000; ++i)
    text += "/* @function Does it. */\nvoid f" + std::to_string(i) + "();\n";
  for (int i = 0; i < 150; ++i)
    box.write("src/b" + std::to_string(i) + ".h", text);
}

int temp_files(Sandbox const & box) {
  int count = 0;
  for (auto const & entry : std::filesystem::directory_iterator(box.path("tmp")))
    count += entry.path().filename().string().starts_with("~vl");
  return count;
}

TEST(cli, stops_in_an_orderly_way) {
  Sandbox box;
  make_long_project(box);
  int const child = box.start("analyze p.vlp");
  box.wait_for("out/ana.log", "Preprocessing");
  Answer const second = box.run("analyze p.vlp");
  EXPECT_EQ(second.status, 2);
  EXPECT_NE(second.err.find("in use by another run"), std::string::npos) << second.err;
  kill(child, SIGINT);
  EXPECT_EQ(Sandbox::end_of(child), 130);
  EXPECT_TRUE(box.read("out/ana.log").ends_with("User aborted program.\n"));
  EXPECT_EQ(temp_files(box), 0);
}

// The worker is making one temporary file after the other when the signals come, none in memory.
TEST(cli, leaves_no_temporary_file_when_it_has_to_end_at_once) {
  Sandbox box;
  ::setenv("VELLUMAR_TEMP_MEMORY", "0", 1);
  make_long_project(box);
  for (int i = 0; i < 1500; ++i)
    box.write("src/a" + std::to_string(i) + ".h", "void f();\n");
  struct {
    std::vector<int> signals;
    int status;
  } const rows[] = {
      {{SIGTERM}, 128 + SIGTERM}, {{SIGHUP}, 128 + SIGHUP}, {{SIGINT, SIGINT, SIGINT}, 130}};
  for (auto const & row : rows) {
    int const child = box.start("analyze p.vlp");
    box.wait_for("out/ana.log", "Preprocessing");
    for (int signal : row.signals) {
      usleep(3000);
      kill(child, signal);
    }
    EXPECT_EQ(Sandbox::end_of(child), row.status);
    EXPECT_EQ(temp_files(box), 0) << row.status;
    std::filesystem::remove_all(box.path("out"));
  }
  ::unsetenv("VELLUMAR_TEMP_MEMORY");
}

} // namespace

// What holds for every run: order, state, breaks, and inputs of any kind.

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>

#include <sys/resource.h>
#include <sys/stat.h>

#include "ana/anadat/tables.h"
#include "app/options/options.h"
#include "run_project.h"

namespace {

char const * const sources = "%% a.h\n"
                             "/* @class A class. @bookmark<here> */\n"
                             "class A {\n"
                             "public:\n"
                             "  /* @method Does it. @set<STATE><done> */\n"
                             "  void f();\n"
                             "};\n"
                             "%% b.h\n"
                             "/* @class Another. @cref<A> @cite<loop> */\n"
                             "class B : public A {};\n"
                             "/* @b_cite<loop> */\n"
                             "int i;\n"
                             "/* @e_cite */\n"
                             "%% c.txt\n"
                             "@text intro Words.\n"
                             "%set attr/STATE/valusr/done=[\"done\"]\n";

char const * const script = "%% doc.vls\n"
                            "@bdef_unittpl<T> @hdline{$name} @description{} @edef\n"
                            "@bdef_secttpl<S> @unittpl<class><T> @edef\n"
                            "@document<output=manual>\n"
                            "@section<template=S><output=part> @outfilter\n";

std::vector<std::string> stages_in(std::string const & log) {
  std::vector<std::string> stages;
  for (std::size_t at = 0; (at = log.find("\nSTATUS: ", at)) != std::string::npos; ++at)
    stages.push_back(log.substr(at + 9, log.find('\n', at + 1) - at - 9));
  return stages;
}

TEST(runs, report_their_stages_in_order) {
  RunProject project;
  write_all(project, sources);
  project.outside.status("before the run");
  Vlb::SetStatus("before the run", true);
  EXPECT_TRUE(project.run());
  EXPECT_EQ(stages_in(project.log()),
            (std::vector<std::string>{"Analyzing input files...", "Analyzing script file...",
                                      "Preprocessing input files...", "Analyzing text units...",
                                      "Analyzing program code...",
                                      "Associating code elements and text units...",
                                      "Updating text units...", "Checking documentation...",
                                      "Deleting temporary files...", "Compiling documentation...",
                                      "Generating intermediate code..."}));
  EXPECT_NE(project.log().find("\ndoc.vls - 0 error(s), "), std::string::npos);
  EXPECT_EQ(Vlb::GetStatus(), "before the run");
  EXPECT_EQ(std::count(project.outside.statuses.begin(), project.outside.statuses.end(),
                       "Analyzing text units... 66%"),
            1);
}

std::string bytes_of(RunProject & project) {
  project.run();
  std::string all;
  for (auto const & [name, text] : project.output())
    all += name + "\n" + (name == "ana.log" ? text.substr(text.find("\n\n")) : text);
  return all;
}

// Whatever a run leaves behind in this process would show in the next one.
TEST(runs, do_not_depend_on_earlier_runs) {
  std::string first, second, third;
  {
    RunProject project;
    write_all(project, sources);
    write_all(project, script);
    first = bytes_of(project);
    EXPECT_EQ(bytes_of(project), first);
  }
  {
    RunProject other;
    write_all(other, "%% x.cpp\n// @f\nint f() { return 1; }\n/* @f broken @em{ */\n"
                     "%set ana/start_on_par=false\n%set cppmacros/class={\"name\":\"class\","
                     "\"parameterized\":false,\"action\":1,\"interpretation\":0}\n");
    second = bytes_of(other);
  }
  RunProject project;
  write_all(project, sources);
  write_all(project, script);
  third = bytes_of(project);
  EXPECT_EQ(third, first);
  EXPECT_NE(second, first);
  ::setenv("VELLUMAR_TEMP_MEMORY", "0", 1);
  EXPECT_EQ(bytes_of(project), first);
  ::unsetenv("VELLUMAR_TEMP_MEMORY");
}

// The user breaks at each status text that a whole run shows, and at each stage's report.
TEST(runs, stop_wherever_the_user_breaks) {
  std::vector<std::string> statuses;
  {
    RunProject project;
    write_all(project, sources);
    project.run();
    statuses = project.outside.statuses;
  }
  std::sort(statuses.begin(), statuses.end());
  statuses.erase(std::unique(statuses.begin(), statuses.end()), statuses.end());
  int stopped = 0;
  for (std::string const & where : statuses) {
    if (where.empty())
      continue;
    RunProject project;
    write_all(project, sources);
    project.outside.on_status = [&](std::string const & text) {
      if (text == where)
        Vapp::user_break = true;
    };
    bool const success = project.run();
    stopped += !success;
    std::string const log = project.log();
    EXPECT_EQ(log.ends_with("User aborted program.\n"), !success) << where << "\n" << log;
    EXPECT_EQ(project.temp_files(), 0) << where;
    EXPECT_TRUE(gCodeElems.empty() && gNamedUnits.empty()) << where;
  }
  EXPECT_GE(stopped, 10);
}

TEST(runs, read_inputs_of_any_kind) {
  std::string const unit = "/* @f One. */ void one();\n";
  std::string utf16;
  for (char c : unit)
    utf16 += {c, '\0'};
  struct {
    char const * name;
    std::string text;
    bool has_unit;
    bool clean; // no report
  } const rows[] = {
      {"empty.h", "", false, true},
      {"crlf.h", "/* @f One.\r\n two */\r\nvoid one();\r\n", true, true},
      {"bom.h", "\xEF\xBB\xBF" + unit, true, true},
      {"latin1.h", "/* @f One \xE9t\xE9. */ void one();", true, true},
      {"oneline.h", std::string(300000, ' ') + unit + std::string(300000, ';'), true, true},
      {"binary.h", "\x01\xFF\x80\x7F@\\{<\n" + std::string(3000, '\xB4'), false, false},
      {"nul.h", "int a;" + std::string(2000, '\0') + "\n" + unit, true, false},
      {"utf16.h", "\xFF\xFE" + utf16, true, true},
      {"bare_utf16.h", utf16, true, true},
      {"cr.h", "/* @f One.\r two */\r// x\rvoid one();\r", true, true},
      {"open_comment.h", "void one();\n/* @f never closed", true, false},
      {"brackets.h", "int a = " + std::string(100000, '(') + ";", false, false},
      {"braces.h", "namespace a " + std::string(100000, '{'), false, false},
      {"texts.txt", "@text x " + std::string(100000, '{') + "@em{", false, false},
  };
  for (auto const & row : rows) {
    RunProject project;
    project.write(std::string("in/") + row.name, row.text);
    EXPECT_TRUE(project.run()) << row.name;
    std::string const atc = project.output()["doc.atc"];
    EXPECT_TRUE(atc.ends_with("\n@e_atc\n")) << row.name;
    EXPECT_EQ(atc.find("{one}\n") != std::string::npos, row.has_unit) << row.name << "\n" << atc;
    std::string const clean = "doc.vls - 0 error(s), 0 warning(s)\n";
    EXPECT_EQ(project.reports() == clean, row.clean) << row.name << "\n" << project.reports();
    EXPECT_EQ(project.temp_files(), 0) << row.name;
  }
}

// Headlines that a source or its name gives, and the number of units below each.
TEST(runs, part_large_files_into_what_a_reader_can_survey) {
  RunProject project;
  std::string large = "#define TWO 2\n#define MAX(a, b) 3\n";
  for (int i = 0; i < 300; ++i)
    large += "void f" + std::to_string(i) + "();\n";
  project.write("in/a}b@c{.h", "int one();\n#define ONE 1\n");
  project.write("in/large.h", large);
  write_all(project, "%% doc.vls\n@document\n@hdlevel<2>\n@filtersort<ce_loc>\n@outfiles\n"
                     "%set ana/dialect=modern\n%set ana/alloc/gen_unit=511\n");
  ASSERT_TRUE(project.run()) << project.log();
  std::vector<std::pair<std::string, int>> parts;
  bool is_headline = false;
  std::istringstream atc(project.output()["doc.atc"]);
  for (std::string line; std::getline(atc, line);) {
    bool const is_unit = line.starts_with("@unit<");
    if (is_unit)
      is_headline = line.find("<text>") != std::string::npos;
    if (is_headline && line.starts_with("@hdline{"))
      parts.emplace_back(line.substr(8), 0);
    else if (is_unit && !is_headline)
      ++parts.back().second;
  }
  EXPECT_EQ(parts, (decltype(parts){{"a\\}b\\@c{.h}", 2},
                                    {"large.h}", 0},
                                    {"Functions from f0 to f149}", 150},
                                    {"Functions from f150 to f299}", 150},
                                    {"Macros}", 2}}));
}

TEST(runs, go_on_behind_a_file_that_cannot_be_read) {
  RunProject project;
  write_all(project, sources);
  std::filesystem::create_symlink("/nonexistent/x", project.path("in/gone.h"));
  std::filesystem::create_directory(project.path("in/folder.h"));
  EXPECT_TRUE(project.run());
  EXPECT_NE(project.output()["doc.atc"].find("@hdline{A}"), std::string::npos);
}

TEST(runs, fail_by_the_script) {
  struct {
    char const * script;
    char const * report;
  } const rows[] = {
      {"@bdef_unittpl<a> @edef\n",
       "ERROR 100: Error parsing the VLS file\n    Aborting analysis.\n"},
      {"", "ERROR 100: Error parsing the VLS file\n    Aborting analysis.\n"},
      {"@document<outpt=a>\n@outfilter\n", "ERROR 135: Invalid option: "},
      {"@document<output=../x>\n@outfilter\n", "ERROR 21: Cannot write to file: ../x\n"},
  };
  for (auto const & row : rows) {
    RunProject project;
    write_all(project, sources);
    project.write("doc.vls", row.script);
    EXPECT_FALSE(project.run()) << row.script;
    EXPECT_NE(project.reports().find(row.report), std::string::npos) << project.reports();
    EXPECT_EQ(project.temp_files(), 0);
    EXPECT_FALSE(std::filesystem::exists(project.path("x.atc")));
  }
  RunProject missing;
  std::filesystem::remove(missing.path("doc.vls"));
  EXPECT_FALSE(missing.run());
  EXPECT_EQ(missing.reports(), "FATAL ERROR: Cannot read from file: DIR/doc.vls\n"
                               "    Aborting analysis.\n");
}

// A file in the place of a folder can't be written through, whoever runs the test; /dev/full
// takes no byte.
TEST(runs, fail_when_the_output_cannot_be_written) {
  RunProject project;
  write_all(project, sources);
  project.write("blocked", "");
  Vapp::options["out_dir"] = cat::make(project.path("blocked"));
  EXPECT_FALSE(project.run());
  EXPECT_NE(project.outside.report_text().find("ERROR 21: Cannot write to file: "),
            std::string::npos);
  if (!std::filesystem::exists("/dev/full"))
    GTEST_SKIP();
  for (std::string const name : {"full.atc", "part.atx"}) {
    RunProject full;
    write_all(full, sources);
    full.write("doc.vls", "@document<output=full>\n@section<output=part>\n@outfilter\n");
    full.outside.on_status = [&](std::string const & text) {
      std::error_code error;
      if (text.starts_with("Checking"))
        std::filesystem::create_symlink("/dev/full", full.path("out/" + name), error);
    };
    EXPECT_FALSE(full.run()) << name;
    EXPECT_NE(full.reports().find("ERROR 21: Cannot write to file: DIR/out/" + name),
              std::string::npos)
        << full.reports();
  }
  RunProject log;
  write_all(log, sources);
  std::filesystem::create_symlink("/dev/full", log.path("out/ana.log"));
  EXPECT_FALSE(log.analyze());
  EXPECT_NE(log.outside.report_text().find("Cannot write to file: " + log.path("out/ana.log")),
            std::string::npos);
}

// The reason, and not a line for each of thousands of sources.
TEST(runs, tell_once_that_temporary_files_find_no_room) {
  RunProject project;
  for (char const * name : {"in/a.h", "in/b.h", "in/c.txt"})
    project.write(name, std::string(400000, ' '));
  setenv("VELLUMAR_TEMP_MEMORY", "0", 1);
  rlimit before;
  getrlimit(RLIMIT_FSIZE, &before);
  rlimit const low = {100000, before.rlim_max};
  auto const handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &low);
  bool const success = project.run();
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  unsetenv("VELLUMAR_TEMP_MEMORY");
  EXPECT_FALSE(success);
  std::string const reports = project.reports();
  std::size_t const first = reports.find("ERROR 21: Cannot write to file: ");
  EXPECT_NE(reports.find(": File too large", first), std::string::npos) << reports;
  EXPECT_EQ(reports.find("ERROR", first + 1), std::string::npos) << reports;
}

TEST(runs, end_at_the_error_limit) {
  RunProject project;
  write_all(project,
            "%% a.h\n/* @f @nix{ */\n%% b.h\n/* @f @nix{ */\n%% doc.vls\n@document\n@outfilter "
            "@outunit<a> @outunit<b> @outunit<c>\n%set msg/err_max=2\n");
  EXPECT_FALSE(project.run());
  EXPECT_NE(project.reports().find("Maximum error count reached: 2\n    Aborting analysis.\n"),
            std::string::npos)
      << project.reports();
}

} // namespace

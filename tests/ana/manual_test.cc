// The examples of the manual, run as a user would try them: none may report anything wrong.

#include <gtest/gtest.h>

#include <fstream>

#include "run_project.h"

namespace {

struct Example {
  std::string text;
  int line = 0; // of the page
};

// Indented blocks; those with "..." only show a form.
std::vector<Example> examples_of(std::string const & page) {
  std::ifstream lines(VELLUMAR_SOURCE_DIR "/doc/" + page);
  std::vector<Example> examples;
  std::string line;
  bool inside = false;
  for (int number = 1; std::getline(lines, line); ++number) {
    bool const indented = line.starts_with("    ");
    if (indented && !inside)
      examples.push_back({"", number});
    inside = indented || (inside && line.empty());
    if (inside)
      examples.back().text += (indented ? line.substr(4) : "") + "\n";
  }
  std::erase_if(examples,
                [](Example const & one) { return one.text.find("...") != std::string::npos; });
  return examples;
}

constexpr char const * sources = "/* @class A class. */\n"
                                 "class A {\n"
                                 "public:\n"
                                 "  /* @method A method. */\n"
                                 "  void f();\n"
                                 "};\n"
                                 "/* @function A function. */\n"
                                 "void g();\n";

void expect_clean(RunProject & project, std::string const & page, Example const & example) {
  EXPECT_TRUE(project.run()) << page << ":" << example.line;
  EXPECT_NE(project.log().find("doc.vls - 0 error(s), 0 warning(s)\n"), std::string::npos)
      << page << ":" << example.line << "\n"
      << project.reports();
}

std::string as_source(std::string const & text) {
  if (text.find("class ") != std::string::npos)
    return text;
  if (text.starts_with("/*"))
    return "void f() {\n" + text + "}\n";
  if (text.starts_with("@function"))
    return "/* " + text + "\nPuts it there. */\nclass Stack {\n  int push(int value);\n};\n";
  return "/* @function A function.\n\n" + text + "*/\nvoid f();\n";
}

TEST(manual, examples_of_the_mark_up_report_nothing_wrong) {
  std::vector<Example> const examples = examples_of("markup.md");
  EXPECT_GE(examples.size(), 6u);
  for (Example const & example : examples) {
    RunProject project;
    project.write("in/a.h", as_source(example.text));
    project.write("doc.vls", "@bdef_table<template> @columns<*> @edef\n@document\n@outfilter\n");
    if (example.text.starts_with("@function"))
      project.set("ana/srcpat_unit/spt_function/idspec=2");
    expect_clean(project, "markup.md", example);
  }
}

TEST(manual, examples_of_scripts_report_nothing_wrong) {
  std::vector<Example> const examples = examples_of("script.md");
  EXPECT_GE(examples.size(), 3u);
  for (Example const & example : examples) {
    RunProject project;
    project.write("in/a.h", sources);
    project.write("common.inc", "! definitions of all scripts\n");
    bool const is_whole = example.text.find("@document") != std::string::npos;
    project.write("doc.vls", example.text + (is_whole ? "" : "@document\n@outfilter\n"));
    expect_clean(project, "script.md", example);
  }
}

} // namespace

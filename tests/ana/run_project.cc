#include "run_project.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "ana/ana_thread.h"
#include "app/options/attributes.h"
#include "app/options/completion.h"
#include "app/options/defaults.h"
#include "app/options/options.h"
#include "app/options/set_option.h"
#include "store/gglobalobj.h"

namespace fs = std::filesystem;

std::string replaced(std::string text, std::string const & what, std::string const & by) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
    text.replace(at, what.size(), by);
  return text;
}

RunProject::RunProject() {
  for (char const * sub : {"in", "out", "tmp"})
    fs::create_directory(path(sub));
  setenv("TMPDIR", path("tmp").c_str(), 1);
  Vapp::options.clear();
  Vapp::build_defaults(Vapp::options);
  Vapp::complete_options(Vapp::options);
  Vapp::rebuild_values(Vapp::options);
  static bool const initialised = [] {
    Global::objects().init_all();
    return true;
  }();
  EXPECT_TRUE(initialised);
  Vapp::options["vls_file"] = cat::make(path("doc.vls"));
  Vapp::options["out_dir"] = cat::make(path("out"));
  Vapp::options["inputcurdir"] = cat::make(path("in"));
  Vapp::options["inputfiles"]["1"]["path"] = cat::make("./**");
  Vapp::options["inputfiles"]["1"]["files"] = cat::make("*");
  Vapp::options["inputfiles"]["1"]["outgrp"] = cat::make("all");
  write("doc.vls", "@document\n@outfilter\n");
}

RunProject::~RunProject() {
  unsetenv("TMPDIR");
}

void RunProject::set(std::string const & assignment) const {
  Vapp::gSetRefusal const refusal = Vapp::set_options({assignment});
  EXPECT_FALSE(refusal) << assignment << ": " << refusal->reason;
}

bool RunProject::run() {
  for (auto const & entry : fs::directory_iterator(path("out")))
    fs::remove_all(entry);
  return analyze();
}

bool RunProject::analyze() {
  Vapp::user_break = false;
  return ana_thread(Vapp::run_input()).success;
}

std::map<std::string, std::string> RunProject::output() const {
  std::map<std::string, std::string> files;
  for (auto const & entry : fs::recursive_directory_iterator(path("out")))
    if (std::string const name = entry.path().lexically_relative(path("out")).string();
        entry.is_regular_file())
      files[name] = replaced(read("out/" + name), path(), "DIR");
  return files;
}

std::string RunProject::reports() const {
  std::istringstream lines(log());
  std::string result, line;
  for (int number = 1; std::getline(lines, line); ++number) {
    bool const stage = line.starts_with("STATUS");
    bool const name = line.starts_with("  ") && !line.starts_with("    ");
    if (number > 2 && !line.empty() && !stage && !name)
      result += line + "\n";
  }
  return result;
}

int RunProject::temp_files() const {
  int count = 0;
  for (auto const & entry : fs::recursive_directory_iterator(path("tmp")))
    count += entry.is_regular_file();
  return count;
}

void write_all(RunProject const & project, std::string const & text) {
  std::istringstream lines(text);
  std::string line, name, content;
  auto const flush = [&] {
    bool const plain = name.find('/') == std::string::npos && name != "doc.vls";
    if (!name.empty())
      project.write((plain ? "in/" : "") + name, content);
    content.clear();
  };
  while (std::getline(lines, line)) {
    if (line.starts_with("%% ")) {
      flush();
      name = line.substr(3);
    } else if (line.starts_with("%set ")) {
      project.set(line.substr(5));
    } else {
      content += line + "\n";
    }
  }
  flush();
}

void compare_golden(std::string const & folder, std::map<std::string, std::string> const & files) {
  for (auto const & [name, text] : files) {
    if (std::getenv("VELLUMAR_UPDATE"))
      std::ofstream(folder + "/" + name) << text;
    std::ifstream file(folder + "/" + name, std::ios::binary);
    EXPECT_EQ(text, std::string(std::istreambuf_iterator<char>(file), {})) << name;
  }
}

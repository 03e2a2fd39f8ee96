// Dense forms for case files: reports gathered by their place, and sources whose lines carry what
// they give behind " => ".
#pragma once

#include <cstdlib>
#include <fstream>
#include <functional>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/case_file.h"

// One line a place: "FILE:LINE: report: its second line; next report".
inline std::string dense_reports(std::vector<std::string> const & reports) {
  static std::regex const form(R"(([^]*) \(([^()]+:\d+)\))");
  std::string out, last;
  for (std::string const & report : reports) {
    std::smatch part;
    std::string const place = std::regex_match(report, part, form) ? part.str(2) + ": " : "";
    if (report.starts_with("    ") && !last.empty()) {
      out.insert(out.size() - 1, ": " + report.substr(4));
      continue;
    }
    if (place.empty())
      out += report + "\n";
    else if (place == last)
      out.insert(out.size() - 1, "; " + part.str(1));
    else
      out += place + part.str(1) + "\n";
    last = place;
  }
  return out;
}

// Behind line N of the source go the lines "N text" of the answer and the reports of that place,
// the others below "--". Leading lines of options, "%...", and of units, "unit ...", aren't
// counted.
inline std::string annotated(std::string const & source, std::string const & answer) {
  static std::regex const form(R"((?:[as]\.\w+:)?(\d+):? (.*))");
  std::vector<std::string> lines;
  std::size_t head = 0;
  std::istringstream in(source), given(answer);
  for (std::string line; std::getline(in, line); lines.push_back(line))
    head += line.starts_with("%") || line.starts_with("unit ");
  std::string out, rest;
  for (std::string line; std::getline(given, line);) {
    std::smatch part;
    bool const placed = std::regex_match(line, part, form) && part.length(1) < 9;
    std::size_t const number = placed ? std::stoul(part.str(1)) + head : 0;
    if (number > head && number <= lines.size())
      lines[number - 1] += " => " + part.str(2);
    else if (!line.empty())
      rest += line + "\n";
  }
  for (std::string const & line : lines)
    out += line + "\n";
  return out + (rest.empty() ? "" : "--\n" + rest);
}

inline std::string source_of(Case const & one) {
  static std::regex const annotation(" => [^\n]*");
  return std::regex_replace(one.input, annotation, "");
}

// As check_cases, for cases of annotated sources.
inline void check_annotated(std::string const & path,
                            std::function<std::string(std::string const & source)> const & answer) {
  std::vector<Case> const cases = read_cases(path);
  EXPECT_FALSE(cases.empty()) << path;
  bool const update = std::getenv("VELLUMAR_UPDATE") != nullptr;
  std::string rewritten;
  for (Case const & one : cases) {
    std::string const got = annotated(source_of(one), answer(source_of(one)));
    rewritten += "== " + one.name + "\n" + got;
    EXPECT_TRUE(update || got == one.input + (one.expected.empty() ? "" : "--\n" + one.expected))
        << path << ":" << one.line << ": " << one.name << "\n"
        << got;
  }
  if (update)
    std::ofstream(path) << rewritten;
}

// Reads the lines of a transformation script.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "conv/vlt/rules.h"
#include "vlb/gmessage.h"

class gVltParser {
public:
  explicit gVltParser(gVltRules & rules) : rules_(rules) {}

  // False if the file can't be read; that is reported.
  bool read(gPathstring const & path);
  void parse(std::string_view text, gPathstring const & path);

private:
  // A file that is being read.
  struct Source {
    gPathstring path; // as reports show it
    std::string text;
    std::size_t at = 0; // of the next line
    int line = 0;       // of the one read last
  };
  // `@name<selector> = rest`
  struct Head {
    std::string_view name, selector, rest;
    bool selected = false;
  };

  void lines(Source & source);
  static bool next_line(Source & source, std::string_view & line);
  static bool read_head(std::string_view line, Head & head);
  static bool begins_definition(std::string_view line);
  void statement(Source & source, std::string_view line);
  void include(Source const & source, std::string_view line);
  void definition(Source & source, std::string_view line);
  void rule(Source & source, Head const & head);
  void setting(Source const & source, Head const & head);
  bool block(Source & source, std::string & text);
  void store(Head const & head, gVltRule rule, gVltTemplate && parts);
  bool being_read(gPathstring const & path) const;
  void fault(Source const & source, gMessage const & message, std::string_view argument,
             int line = 0) const;

  gVltRules & rules_;
  std::vector<gPathstring> open_; // files that are being read, the outermost first
  int includes_ = 0;
};

// The parser of list_l.y, which notes what its actions were given.
#pragma once

#include <string>

#include "vlb/parse/lalr.h"

// A value that can only be moved, and tells how many of its kind there are.
struct Counted {
  std::string text;

  Counted() { ++live; }
  explicit Counted(std::string_view text) : text(text) { ++live; }
  Counted(Counted && other) noexcept : text(std::move(other.text)) { ++live; }
  Counted & operator=(Counted &&) noexcept = default;
  ~Counted() { --live; }

  static inline int live = 0;
};

using ListValue = gValue<gString, Counted>;

class ListScan : public gScanBase {
public:
  int scan() override;
  ListValue & token_value() { return value_; }

private:
  ListValue value_;
};

class ListParse : public gParseBase {
public:
  using Value = ListValue;

  int parse() { return run_lalr(*this); }
  int parse(std::string_view text) {
    notes.clear();
    scan_.reset();
    scan_.open_text(gSrcFile("in.txt", "", 1), text);
    return parse();
  }
  std::string notes;

  bool reduce(int rule, Value * rhs, Value & result);
  static gLalrTables const & tables();

  ListScan & scanner() override { return scan_; }
  ListScan const & scanner() const override { return scan_; }
  void reset() override {}
  void error(gMessage const & message, gString const & argument) const override {
    scan_.error(message, argument);
  }

private:
  void note(std::string const & what) { notes += what + ","; }
  void note(std::string const & what, Counted const & value) { note(what + " " + value.text); }
  Counted add(Counted const & a, Counted const & b) { return Counted(a.text + "+" + b.text); }
  // Skips to a word that begins with z, or to a star, and leaves it as the look-ahead.
  void skip();

  ListScan scan_;
};

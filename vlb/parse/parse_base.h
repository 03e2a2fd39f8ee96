// The frame of all parsers.
#pragma once

#include "vlb/parse/scan_base.h"

template <class Parser> class gLalrRun;

class gParseBase {
public:
  static constexpr int standard_stack_size = 150;

  virtual ~gParseBase() = default;

  // Reports with the scanner's position.
  virtual void error(gMessage const & message, gString const & argument = gString()) const = 0;
  // A concrete parser answers its own class of scanner, which has a `token_value()`.
  virtual gScanBase & scanner() = 0;
  virtual gScanBase const & scanner() const = 0;
  virtual void reset() = 0;
  // Where the reports of the file in hand go; the log unless something else is set.
  gReportSink & reports() const { return scanner().reports(); }
  void report_to(gReportSink & sink) { scanner().report_to(sink); }

  // Scanners answer this for a parse that has to give up.
  static constexpr int give_up = -2;
  static constexpr int no_token = -1;
  // The token held as look-ahead; no_token for none. Its text is the scanner's.
  int lookahead() const { return lookahead_; }
  // Drops the look-ahead.
  void clearin() { lookahead_ = no_token; }
  // The number of states that a parser's stack holds.
  int stack_size() const { return stack_size_; }

protected:
  explicit gParseBase(int stack_size = standard_stack_size) : stack_size_(stack_size) {}
  void set_stack_size(int size) { stack_size_ = size; }
  // For actions that read tokens themselves; the token's value stays with the scanner until the
  // parser shifts it.
  void set_lookahead(int token) { lookahead_ = token; }
  // True while the tokens behind a fault count, so that the parser has to shift each by itself.
  bool recovering() const { return recovery_ > 0; }
  // Reports a look-ahead that doesn't fit. `name`: what it is, for one whose text shows nothing.
  void report_syntax_error(std::string_view name) const;

private:
  template <class Parser> friend class gLalrRun;

  int lookahead_ = no_token;
  int recovery_ = 0; // tokens to shift until faults are reported again
  int stack_size_;
};

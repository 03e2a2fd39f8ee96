// The frame of all scanners: input, output, the walk over an automaton, push-back, reports.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vlb/gmsghandler.h"
#include "vlb/gsrcfile.h"
#include "vlb/parse/automaton.h"
#include "vlb/parse/input_text.h"
#include "vlb/parse/output_file.h"
#include "vlb/parse/scan_table.h"

// The rules of a scanner and their automaton. Built once at first use and constant from then on:
//   static gScanTable<x_scan> const built(rules, definitions);
// `rules` has to live as long. A pattern that can't be read raises gExcInternalErr.
template <class Scanner> class gScanTable {
public:
  explicit gScanTable(std::span<gScanRule<Scanner> const> rules,
                      std::span<gScanDefinition const> definitions = {})
      : rules_(rules),
        automaton_(rows(rules), definitions) {}
  gAutomaton const & automaton() const { return automaton_; }
  int act(int rule, Scanner & scanner) const {
    return rules_[static_cast<std::size_t>(rule)].action(scanner);
  }

private:
  static std::vector<gPatternRow> rows(std::span<gScanRule<Scanner> const> rules) {
    std::vector<gPatternRow> rows;
    for (gScanRule<Scanner> const & rule : rules)
      rows.push_back({rule.conditions, rule.pattern});
    return rows;
  }

  std::span<gScanRule<Scanner> const> rules_;
  gAutomaton automaton_;
};

class gScanBase {
public:
  static constexpr int standard_size = 1024;

  // `size`: the limit for the characters walked for one token, and for what is pushed back.
  explicit gScanBase(int size = standard_size);
  virtual ~gScanBase();
  gScanBase(gScanBase const &) = delete;
  gScanBase & operator=(gScanBase const &) = delete;

  // The next token; 0 at the end of the input. A preprocessor writes its output as it goes.
  virtual int scan() = 0;
  // Takes one character past the current token; -1 at the end of the input. It becomes the previous
  // character.
  virtual int input();
  // Pushes one character back in front of what will be read next.
  virtual void unput(int c);
  // The token, zero-terminated; valid until the next scan().
  virtual char const * text();
  virtual void ECHO(char c) const;
  virtual void ECHO(char const * text) const;
  virtual void ECHO(std::string const & text) const;
  virtual void ECHO(std::string_view text) const;
  // Asked at the end of the input: non-zero ends scanning, 0 means that the input goes on, so it
  // must have opened more.
  virtual int wrap();
  // Where reports go; the log unless something else is set. It has to outlive its use.
  gReportSink & reports() const { return *reports_; }
  void report_to(gReportSink & sink) { reports_ = &sink; }
  // The position of the current token.
  gReportPlace place() const;
  // Reports with the position of the current token.
  virtual void error(gMessage const & message, gString const & argument = gString()) const;
  // State before a new file: no token, condition 0, previous character a line feed, line 1. Input
  // and output stay.
  virtual void reset();
  // The next byte of the input; -1 at its end. The walk reads past it, straight from the input.
  virtual int getc();
  // Reports a character that no rule matches; NUL once a file.
  virtual void lex_error(int c);
  // Writes the token to the output.
  virtual void echo_text();

  // Reads the file (CRLF become line feeds, an opening byte-order mark is dropped); gExcFatalErr
  // "Cannot read from file: " if it can't be read. Doesn't reset the scanner.
  void open_infile(gSrcFile const & file);
  int close_infile();
  // gExcFatalErr "Cannot write to file: " if it can't be made.
  void open_outfile(gSrcFile const & file);
  // 0 on success: everything has reached the file. Else errno tells why.
  int close_outfile();
  // Replaces the record that positions refer to, as a #line directive does.
  void set_infile(gSrcFile const & file) { infile_ = file; }
  // The input from a text in memory, whose first line is this one of the file. Behind reset().
  void open_text(gSrcFile const & file, std::string_view text, int first_line = 1);

  gSrcFile const & cur_infile() const { return infile_; }
  gSrcFile const & cur_outfile() const { return outfile_; }
  // Line of the token's beginning, from 1: its line feeds count when the next token begins.
  int line() const { return line_; }
  void set_line(int line) { line_ = line; }

  // For actions: the token, in place; valid until the next scan().
  std::string_view token() const { return {token_, static_cast<std::size_t>(length_)}; }
  int length() const { return length_; }
  // Bytes of the input up to the end of the token.
  std::ptrdiff_t position() const { return next_ - input_.begin(); }
  // The token as a value, with the bytes of the file (see shield_quotes).
  gString value() const { return plain(token()); }
  // Bytes of the file for bytes of the machine.
  gString plain(std::string_view text) const;
  // Keeps the first `n` characters of the token; the rest goes back and is read again. Its line
  // feeds don't count until then.
  void cut_to(int n);
  // Gives the whole match back: nothing is consumed, a line head stays a line head.
  void back() { cut_to(0); }
  // Text, in bytes of the machine, that is read next, in front of what is there; its line feeds are
  // subtracted from the line. gExcFatalErr beyond the limit. The token stays as it is.
  void push_back(std::string_view text);
  int condition() const { return condition_; }
  // An even number from 0 to 62.
  void begin(int condition);
  // The character in front of the token.
  int previous() const { return previous_; }

protected:
  // Scanners for which 0xB4 and 0xEF are the quote mark of code text: in an input that is valid
  // UTF-8 with characters beyond ASCII only C2 B4 is one (it becomes the byte 0xB4), and the bytes
  // 0xB4 and 0xEF of other characters are shielded by bytes that never occur in UTF-8; plain()
  // puts them back. Holds for inputs opened from then on.
  void shield_quotes(bool on) { shield_ = on; }

  // One scan() over a table; `self` is the scanner that the actions work on. If it has a
  // `token_value()`, that is emptied first.
  template <class Scanner> int run(Scanner & self, gScanTable<Scanner> const & table) {
    if constexpr (requires { self.token_value().clear(); })
      self.token_value().clear();
    for (;;) {
      int rule = first_match(table.automaton());
      if (rule < 0)
        return 0;
      int answer = table.act(rule, self);
      while (answer == scan_reject) {
        rule = next_match(table.automaton());
        answer = rule < 0 ? scan_go_on : table.act(rule, self);
      }
      if (answer != scan_go_on)
        return answer;
    }
  }

private:
  // Begins a token: the rule of its longest match, or no_rule at the end of the input.
  int first_match(gAutomaton const & automaton);
  // The next rule for the same beginning, or no_rule: then its first character has been skipped.
  int next_match(gAutomaton const & automaton);
  void take(gAutomaton const & automaton, int rule, char * end);
  void skip_unmatched(char * at);
  void finish_token();
  void record_trail(gAutomaton const & automaton);
  void add_lines(long count);
  void place(std::string_view text);
  void input_opened();

  int const size_;
  gReportSink * reports_ = &Msg::log;
  gSrcFile infile_, outfile_;
  gInputText input_;
  mutable gOutputFile output_;
  bool shield_ = false;
  bool nul_reported_ = false;

  int line_ = 1;
  int condition_ = 0;
  int previous_ = '\n';
  bool input_taken_ = false; // input() has set the previous character

  char const * token_ = nullptr;
  int length_ = 0;
  bool count_lines_ = false; // the token may hold line feeds
  std::string moved_token_;  // the token, when its place was needed for pushed-back text
  std::string text_;         // the token with its zero

  char * next_;       // what is read next
  char * pushed_end_; // behind the pushed-back text in front of it

  // The match of the current token, for reject. The trail holds the state behind each of its
  // characters; it is made at the first reject.
  char * match_begin_;
  char * match_end_;
  gDfa::State entry_ = 0;
  std::size_t alternative_ = 0; // among the rules of the same length
  bool has_trail_ = false;
  std::vector<gDfa::State> trail_;
};

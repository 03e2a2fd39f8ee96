// Cuts a stretch of the intermediate code into commands and texts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "conv/atc/commands.h"
#include "conv/atc/faults.h"

class gAtcScanner {
public:
  enum Token : unsigned char { end, text, command, close };

  // `line` is that of `begin`. Without `faults` nothing is reported.
  gAtcScanner(std::string_view whole, std::size_t begin, std::size_t end, int line,
              gAtcFaults * faults);

  // The next token. Behind a command with braces open_brace() comes first, and the token that ends
  // its text is `close`; outside of braces "}" is text.
  Token next(bool in_braces);
  // Gives the last token back; the next call of next() answers it again.
  void back() { again_ = true; }

  // Of the last token.
  std::size_t begin() const { return begin_; }
  int line() const { return line_; }
  gAtcCommandInfo const & info() const { return *info_; }
  std::vector<std::string> const & params() const { return params_; }
  std::vector<std::string> & params() { return params_; }
  // White space is one blank; escapes are settled.
  std::string & text_value() { return text_; }

  bool open_brace();
  // A target without brackets, up to the "{" of its text; empty, and nothing read, if there is
  // none on the line.
  std::string bare_target();
  // Passes over a character if it is the next one.
  bool skip(char c);
  void skip_white();
  // Passes over a line that begins with a command "@_..." that isn't known.
  bool skip_unknown_line();
  // The text up to @e_verbatim, which is passed over too, without the line feed in front of it.
  // `closed` tells if it was there; if not, the text ends in front of the next command.
  std::string verbatim(bool & closed);

  // Behind what was read.
  std::size_t position() const { return again_ ? begin_ : at_; }
  int position_line() const { return again_ ? line_ : at_line_; }

  void report(gMessage const & message, std::string_view argument, int line);

private:
  bool read_command();
  void read_params();
  bool read_param();
  bool read_text(bool in_braces);
  bool ends_text(bool in_braces);
  void add_plain(char c);
  std::string_view name_at(std::size_t at) const;

  std::string_view whole_;
  std::size_t at_, end_;
  int at_line_;
  gAtcFaults * faults_;

  Token token_ = end;
  bool again_ = false;
  std::size_t begin_ = 0;
  int line_ = 0;
  gAtcCommandInfo const * info_ = nullptr;
  std::vector<std::string> params_;
  std::string text_;
};

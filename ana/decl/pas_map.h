// The map of openers: which token closes which.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ana/decl/declaration.h"
#include "ana/decl/pas_tokens.h"

namespace Decl {

// A stretch that made no sense, as tokens until the end and as bytes afterwards.
struct gPasFault {
  gRange whole;
  char const * reason;
};

// Takes the tokens one after the other and gives each opener its partner. Where one is missing, the
// words that only stand outside of blocks say where a block must have ended. Steps can be taken
// back, since of a conditional's branches not all may count.
class gPasMap {
public:
  gPasMap(std::string_view text, std::vector<gPasToken> & tokens, std::vector<gPasFault> & faults,
          gPascalContext const & context, bool any_has_bodies);

  // Takes the last token of the list.
  void take();
  // Closes what is open at the end of the text.
  void finish();

  bool in_assembler() const { return !stack_.empty() && stack_.back().kind == assembler; }
  // Behind "end.": what follows is no code.
  bool ended() const { return ended_; }
  // At a place where a declaration, or an item of a list of them, may begin.
  bool between_declarations() const;
  // Within a block of statements, where only openers and closers count.
  bool in_statements() const { return !stack_.empty() && stack_.back().kind == block; }

  // For branches. All that happens behind a mark can be taken back while a mark is kept.
  struct Mark {
    std::size_t log = 0;
    std::uint32_t height = 0, low = 0;
    gPascalContext::Section section = gPascalContext::any;
    std::size_t faults = 0;
    bool ended = false;
  };
  Mark mark();
  void drop_to(Mark const & mark);
  // Moves a mark since which all is even up to here.
  void renew(Mark & mark) const;
  // True if since the mark all that was opened was closed, and nothing else.
  bool even_since(Mark const & mark) const;
  // Heads that since the mark followed one another are declarations without bodies.
  void settle_heads(Mark const & mark);
  // True if a word such as "implementation" stood behind the mark.
  bool section_since(Mark const & mark) const { return section_ != mark.section; }
  // Ends the life of the innermost mark.
  void forget(Mark const & mark);

private:
  enum Kind : std::uint8_t { none, round, square, block, assembler, type, routine };
  struct Entry {
    std::uint32_t token = 0;
    std::uint32_t rounds = 0, squares = 0; // open brackets above the entry that is none
    std::uint32_t column = 0;              // of its line's first token
    Kind kind = none;
    Kind base = none;   // of a bracket: what it stands in, brackets apart
    bool fresh = false; // of a type: only its head was seen; of a routine: its directives
    bool bodyless = false;
    bool other_words = false;       // of a routine: declarations other than routines followed
    bool body = false;              // of a block: that of the routine below
    gPasWord part = gPasWord::none; // of a type: the word that its last section began with
  };
  struct Step {
    Entry entry;
    bool pushed;
  };

  std::string_view text_;
  std::vector<gPasToken> & tokens_;
  std::vector<gPasFault> & faults_;
  std::vector<Entry> stack_;
  std::vector<Step> log_;
  std::uint32_t marks_ = 0;
  std::uint32_t low_ = 0;
  gPascalContext::Section section_;
  bool ended_ = false;
  std::uint32_t closed_routine_ = gPasToken::no_partner; // the last one
  std::uint32_t line_first_ = 0;                         // the first token of the line

  std::uint32_t last() const { return static_cast<std::uint32_t>(tokens_.size() - 1); }
  gPasToken const & before(std::uint32_t count = 1) const;
  Kind top() const { return stack_.empty() ? none : stack_.back().kind; }
  Kind base() const;
  std::uint32_t column_of(std::uint32_t token) const;
  std::uint32_t line_column() const { return column_of(line_first_); }

  void push(Kind kind, std::uint32_t token);
  void pop();
  void close(std::uint32_t closer);
  void close_open(std::uint32_t at, char const * reason);
  void close_brackets(char const * reason);
  void close_bracket(Kind kind);
  void report(std::uint32_t token, char const * reason);
  bool holds_parameters(Entry const & square) const;
  void age_type();
  void word(gPasWord word);
  void type_word(gPasWord word);
  void routine_elsewhere();
  void section_word(gPasWord word);
  void head_name();
  void repair_at_head();
  void repair_at_entry();
  void repair_bases();
  bool holds_values(Entry const & bracket) const;
  void begin_routine(std::uint32_t token);
  void end_word();
  void last_end();
  void leave_all(char const * reason);
  bool heads_have_bodies() const { return section_ == gPascalContext::implementation; }
};

} // namespace Decl

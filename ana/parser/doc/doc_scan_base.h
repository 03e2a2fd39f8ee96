// The state of the text-unit scanner, and what its rules do. An operation named "..._or_reject"
// gives up before it has any effect if it doesn't apply.
#pragma once

#include <array>
#include <vector>

#include "ana/parser/doc/doc_text_pool.h"
#include "ana/parser/doc/doc_tokens.h"
#include "vlb/parse/scan_base.h"

class doc_scan_base : public gScanBase {
public:
  using Value = Doc::Value;

  explicit doc_scan_base(int size = 1024);

  void reset() override;

  // For the next text alone: it is a translated comment. No line head begins an item, and a keyword
  // has its "@": what the author wrote is no mark-up of ours.
  void read_translated();

  // The value of the last token; the parser takes it over.
  Value & token_value() { return value_; }
  // The type of the unit that is being read, which decides what is verbatim.
  void set_unit_type(gString const & type) { unit_type_ = type; }
  // The line of the last unit keyword: its match may begin with empty lines in front of it.
  int keyword_line() const { return keyword_line_; }
  // A shared string for a piece of intermediate code.
  cRef<gString> piece(std::string_view text) { return pool_.get(text); }

  // What the rules do, in the order of the table. Each answers as an action does.

  // Sets of keyword kinds.
  static constexpr unsigned units = 1u << gKwd::synt_unit | 1u << gKwd::text_unit;
  static constexpr unsigned subentries = 1u << gKwd::subentry_kwd;

  int drop() const { return scan_go_on; }
  // Goes to a condition and has the match read there.
  int leave_for(int condition);

  // Comments.
  int begin_comment();
  int end_comment();
  int begin_citation();
  int end_citation();
  int first_words(bool with_separator);
  int marked_comment(Doc::Keyword const & keyword);
  int unknown_keyword();
  int free_paragraph(bool with_separator);
  int free_empty_lines();

  // Keywords: the whole test. `separator_in_token`: a separator is part of the token.
  int keyword_or_reject(unsigned kinds, bool separator_in_token);
  int keyword_or_text();
  // At the beginning of a paragraph, where the option decides about keywords of units.
  int plain_keyword_or_reject(bool separator_in_token);

  // Heads of units.
  int choose_identifier();
  int plain_identifier();
  int missing_identifier();
  int behind_identifier();
  int head_keyword_or_reject(gLanguage language, Doc::Token token);
  int head_identifier(std::string_view text);
  int operator_symbol();
  int operator_words(std::string_view brackets);
  int head_separator_or_reject();
  int head_line_end();
  int begin_template();
  int template_bracket(int step);
  int bases_separator_or_reject();
  int bases_line_end();
  int text_unit_name();

  // The text of a unit.
  int end_unit();
  int command_or_reject(Doc::Token token, int condition);
  int body_word();
  int body_quote(Doc::Token token, int condition);
  int item_or_reject(bool is_head, bool enabled, Doc::Token token);
  int body_variable();
  int body_text();
  int empty_line();
  int further_empty_lines();
  int line_end();
  int blanks();

  // Code text, references, index entries, verbatim blocks.
  int verbatim_text();
  int escaped_text();
  int trimmed_escaped_text();
  int code_line_break();
  int index_line_break();
  int verbatim_line_end();
  // The last token of one of these: goes back to where it began.
  int last(int token);

  // Parameters.
  int enter(int condition);
  int escaped_bracket();
  int end_of_params();
  int word();
  int word_variable();
  int brace_text();
  int brace_word();
  int brace_variable();
  int nested(Doc::Token token, int condition);

  int text_token(std::string_view text);
  int variable_token(gString name);
  bool auto_num() const { return auto_num_; }
  bool auto_enum() const { return auto_enum_; }
  bool at_entry() const { return at_entry_; }
  Doc::Keyword const & star_keyword() const { return star_keyword_; }
  Doc::Keyword const & slash_keyword() const { return slash_keyword_; }

private:
  // Where to go back to behind a command.
  enum class Return : unsigned char { free = 1, body = 2, brace = 3 };
  struct Candidate;

  // How keywords begin: nearly all candidates fail here, without a look-up.
  struct KeywordIndex {
    std::array<unsigned char, 1024> kinds{}; // by first two characters, the kinds that begin so
    std::size_t longest = 0;                 // bytes
  };

  void index_keywords();
  bool may_be_keyword(std::string_view text, unsigned kinds) const;
  Candidate candidate() const;
  gKwd const * find_keyword(Candidate const & candidate, unsigned kinds) const;
  int take_keyword(gKwd const * keyword, Candidate const & found, bool separator_in_token);
  int open_unit(Doc::Keyword keyword);
  int open_subentry(Doc::Keyword keyword);

  // A subject line, and the text of a unit, with a subject line in front if its pattern has one.
  int begin_subject();
  int begin_text();
  bool in_slsep(char c) const;
  int max_subject_lines() const { return cur_pattern_ ? cur_pattern_->slspec : 0; }
  void push(Return place) { return_stack_.push_back(place); }
  void go_back();
  void check_variable();
  int end_subject();
  int own_text(); // the token as a piece
  int blank();
  int escaped_word();

  bool auto_num_ = false;     // "-. " makes a numbered item
  bool auto_enum_ = false;    // "- " makes an item
  bool start_on_par_ = false; // keywords without "@" open units behind an empty line
  bool translated_ = false;   // see read_translated

  bool in_table_ = false;      // between @b_table and @e_table: blanks and line ends are dropped
  bool at_entry_ = false;      // nothing of the subentry has been read yet
  bool verbatim_ = false;      // the subentry keeps its line breaks and takes no commands
  bool in_subject_ = false;    // in a subject line
  bool warn_linebreak_ = true; // cleared by the first line break in an index entry of the file
  int subject_lines_ = 0;      // lines of the subject line read so far
  int angle_depth_ = 0;        // nesting of < in a template head
  int keyword_line_ = 1;
  std::vector<Return> return_stack_;
  gString unit_type_;
  gUnitPattern const * cur_pattern_ = nullptr; // of the keyword that opened the unit

  KeywordIndex keywords_;
  Doc::Keyword star_keyword_, slash_keyword_; // for comments with a special opener; null if off

  Value value_;
  doc_text_pool pool_;
  cRef<gString> blank_; // shared by all the white space of all units
};

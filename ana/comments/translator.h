// A comment of another documentation system while it is read: its lines are parts, blocks and text;
// the text of each part is Markdown with tokens when the part ends.
#pragma once

#include "ana/comments/inline_commands.h"

class gCommentTranslator {
public:
  gCommentTranslator(std::string_view comment, gCommentHints const * hints,
                     gCommentOptions const & options);
  gTranslated read();

private:
  struct Line {
    std::string_view text; // without the blanks at both ends
    std::string_view whole;
    std::size_t indent = 0;
  };
  struct Part {
    std::string entry;
    gRichText text;
    bool listed = false; // a list of named items is open
  };

  struct Condition {
    bool around = true; // what stands around it is shown
    bool shown = false; // what stands there now
    bool held = false;  // one of its branches
  };

  void split();
  void measure();

  // Lines
  void read_line(std::size_t & i);
  void read_words(std::string_view words, Line const & line);
  bool read_rule(Line const & line);
  bool read_block(std::size_t & i);
  std::string_view brackets_in_front(std::string_view text);
  void read_pieces(Line const & line);
  void read_piece(std::string_view text, std::size_t indent);
  bool read_command(std::string_view text, std::size_t indent);
  bool read_described(std::string_view text, std::size_t indent);
  std::string_view described_name(std::string_view text) const;
  std::size_t behind_dash(std::string_view text) const;
  // translator_forms.cc
  bool read_form(std::string_view text, std::size_t indent);
  bool read_form_head(std::string_view text);
  bool read_form_parameter(std::string_view text, std::size_t indent);

  bool read_label(std::string_view text, std::size_t indent);
  std::string from_xml(std::string_view text) const;

  // What isn't for all readers
  void condition(std::string_view word, std::string_view rest);
  bool is_set(std::string_view condition) const;
  bool is_shown() const;
  std::string_view shown_of(std::string_view text);
  bool skip_hidden(gCommand const & command, std::size_t & i, std::size_t from,
                   std::size_t & depth);
  bool hide(std::size_t & i);

  // Commands
  void take_command(gCommand const & command, std::string_view rest, std::size_t indent);
  void take_topic(gCommand const & command, std::string_view rest);
  void take_group(gCommand const & command, std::string_view rest);
  void take_about(gCommand const & command, std::string_view rest);
  void take_title(gCommand const & command, std::string_view rest);
  void put_heading(int level, std::string_view words);
  void take_entry(gCommand const & command, std::string_view rest);
  std::string_view in_parblock(std::string_view text);
  void take_see(std::string_view word);
  void take_references(std::string_view rest);
  void take_file(gCommand const & command, std::string_view rest, std::size_t indent);
  std::string read_file(std::string_view name);
  std::string next_lines(std::string_view how, std::string_view rest);
  void add_text(std::string_view text, std::size_t indent);
  void take_image(gCommand const & command, std::string_view rest, std::size_t indent);
  std::string picture(std::string_view name);
  void take_heading(std::string_view level, std::string_view rest);
  void begin_or_end(gCommand const & command, std::string_view rest, std::size_t indent);

  // Text
  void open_part(std::string_view entry, std::size_t indent);
  void open_named(std::string_view entry, std::string_view rest, std::size_t indent);
  void add(std::string_view text, std::size_t indent);
  void add_token(gToken token, std::size_t indent);
  void add_block(std::string lines, std::string_view language, std::size_t indent);
  void flush();
  void set_running(std::string_view text, gRichText & out);
  bool in_table() const { return !opened_.empty() && opened_.back(); }
  Part & part() { return parts_[part_]; }
  bool has_text() const { return !parts_[part_].text.empty() || !blank_body(); }
  bool blank_body() const { return body_.find_first_not_of(" \n") == body_.npos; }

  std::string comment_;
  gCommentHints const * hints_;
  gCommentOptions const & options_;
  gTranslated result_;
  gTokens tokens_;
  gInlineCommands inline_;
  std::vector<Line> lines_;
  std::vector<Part> parts_;
  std::size_t part_ = 0;
  std::string body_;                            // Markdown of the part so far
  std::size_t body_indent_ = 0;                 // that its lines lose
  bool indent_known_ = false;                   // by the first line that goes on
  bool behind_brief_ = false;                   // in its paragraph: other lines may stand deeper
  std::set<std::string, std::less<>> unclosed_; // ends of blocks that don't come any more
  std::vector<Condition> conditions_;           // that are open
  bool other_language_ = false;                 // what comes isn't English
  std::deque<std::string> kept_;                // texts of lines that aren't shown wholly
  enum class gForm : unsigned char { none, heading, parts };
  gForm form_ = gForm::none;   // what of a form was read
  bool headed_ = false;        // by "name:", so that "Since:" is an entry
  bool break_pending_ = false; // an empty line came
  bool in_item_ = false;
  std::size_t part_indent_ = 0, item_indent_ = 0;
  std::vector<bool> opened_;  // lists and tables that commands opened; true for a table
  std::size_t parblocks_ = 0; // that are open: their paragraphs belong to the part
  bool sections_ = false;
  // The file that "\dontinclude" opened, and how far it was shown.
  std::string file_, file_name_;
  std::size_t file_at_ = 0;
  std::size_t file_steps_ = 0; // bytes that were searched
};

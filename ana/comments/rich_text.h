// Text with formats, links and blocks while it is made; the result is intermediate code. Whoever
// fills it may open and close what he likes in any order: what isn't open isn't closed, and what is
// left open ends with what it stands in. Time and memory are linear in what is put in.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// A stretch of the result: code as it stands, or the target of a reference, which the run resolves.
struct gRichPiece {
  enum Kind {
    code,
    reference, // the text of the reference follows in braces, as code
    guess,     // the same, and what isn't found is no reference and no fault
    copy_all,  // the text of another element; what the base of this one says where no name is given
    copy_brief,   // its first paragraph
    copy_details, // all but that
    anchor,       // the name of a place; nothing is shown there
  };
  Kind kind = code;
  std::string text;
};
using gRichPieces = std::vector<gRichPiece>;

class gRichText {
public:
  // `sections`: headlines are those of a text of its own, else titles within the text of a unit.
  explicit gRichText(bool sections = false) : sections_(sections) {}

  // Running text. White space counts as one blank; nothing in it is a command.
  void text(std::string_view words);
  void line_break();
  // Program text within a line.
  void code(std::string_view words);
  // "b", "em", "tt", "kbd", "dfn", "ul" or one of the named formats "del", "sup", "sub", "mark".
  void open_format(std::string_view format);
  void close_format(std::string_view format);
  void open_link(std::string_view address);
  void close_link();
  // A reference to a program element or anchor, with the text that is shown. A word of running text
  // that may be a name, and a name that may have no element, are shown all the same.
  enum class Sure { yes, word, name };
  void reference(std::string_view target, std::string_view shown, Sure sure = Sure::yes);
  void open_reference(std::string_view target);
  void image(std::string_view address, std::string_view shown);
  // A file of this machine that goes with the pages. `width` as style sheets have it, or empty.
  void picture(std::string_view path, std::string_view shown, bool in_line, std::string_view width);
  // In TeX.
  void formula(std::string_view source, bool display);
  // A place that references lead to.
  void anchor(std::string_view name);

  void end_paragraph();
  // The same, but behind join() the text goes on in its line.
  void begin_paragraph();
  void join() { joins_ = in_paragraph_; }
  // Lines with their line ends; `language` may be empty.
  void block(std::string_view lines, std::string_view language);
  void rule();
  void open_heading(int level);
  void close_heading();
  void open_list(bool numbered);
  void open_item(); // opens a list where none is open
  void close_item();
  void close_list();
  void open_quote();
  void close_quote();
  // A table's columns are counted by its first row.
  void open_table();
  // A paragraph in bold letters, in front of the table whose first row comes.
  void open_caption();
  void close_caption();
  // The innermost list or table is a table.
  bool in_table() const;
  void open_row(bool head);
  // Those of a first row make it a head.
  void open_cell(bool head = false);
  void close_cell();
  void close_table();
  // What another element says: a paragraph of its own but for the brief text. A cell of a table
  // gets no more than that, a headline nothing.
  void copy(std::string_view target, gRichPiece::Kind kind);

  // For the text of a file of its own: links to places in it and to files beside it are links, too,
  // and pictures, which lie elsewhere, are left out.
  void keep_places() { places_ = true; }

  // Nothing that would be seen was put in.
  bool empty() const { return !shows_; }
  // Whether the next text would begin a block.
  bool at_begin() const { return !in_paragraph_; }
  std::size_t depth() const { return blocks_.size(); }
  // Closes blocks until no more than `depth` are open.
  void close_to(std::size_t depth);
  // Closes all and takes the result.
  gRichPieces take();

private:
  enum class Block { list, item, quote, table, row, cell, heading };
  struct Open {
    Block block;
    bool numbered = false;
    bool any = false;        // it holds something
    std::size_t place = 0;   // of a table's head
    std::size_t piece = 0;   //
    std::size_t columns = 0; // of a table
    std::size_t cells = 0;   // of its row
    std::size_t formats = 0; // open in front of it
    bool head = false;       // the first row is a head
    bool first_row = true;
  };

  void put(std::string_view code) { out_ += code; }
  void put_escaped(std::string_view words, bool one_line);
  void put_param(std::string_view words);
  void begin_inline();
  void begin_block();
  void close_formats(std::size_t left);
  void close_top();
  bool close_blocks_to(Block block);
  void close_outer(Block block); // one that may have been too deep to be opened
  void target(std::string_view name, gRichPiece::Kind kind);
  bool nested_deep() const { return blocks_.size() >= 60; }
  bool in(Block block) const { return !blocks_.empty() && blocks_.back().block == block; }
  bool has_open(Block block) const;
  void finish_table(Open const & table);

  bool sections_;
  bool places_ = false;
  gRichPieces pieces_;
  std::string out_; // behind the last piece
  std::vector<Open> blocks_;
  std::vector<std::string> formats_;
  std::size_t lost_formats_ = 0; // deeper than is looked at
  std::size_t lost_blocks_ = 0;
  bool shows_ = false;
  bool in_paragraph_ = false;     // text was put behind the last begin or end of a block
  bool behind_paragraph_ = false; // a paragraph ended and no block came
  bool blank_pending_ = false;
  bool joins_ = false;
  bool in_caption_ = false; // of a table that begins behind it
  bool fresh_line_ = false; // nothing stands in the line
  bool exact_ = false;      // formats stand in each other
};

// Whether a link may lead there: none that runs a script.
bool is_web_address(std::string_view address);

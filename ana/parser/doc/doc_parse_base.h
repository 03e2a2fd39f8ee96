// What the grammar of the text units does. A unit joins the file's facts when it ends; nothing is
// resolved here: targets stay words, citations stay names.
#pragma once

#include <set>

#include "ana/anadat/gdocunit.h"
#include "ana/anadat/gfilefacts.h"
#include "ana/anadat/table_template.h"
#include "ana/cmdpar/gtextparsebase.h"
#include "ana/parser/doc/doc_scan.h"

class doc_parse_base : public gTextParseBase {
public:
  using Value = Doc::Value;

  explicit doc_parse_base(int stack_size = standard_stack_size) { set_stack_size(stack_size); }

  void reset() override;
  // To be called behind reset(): where the units go, the names that are taken already, and the
  // table templates of the script. All of them have to outlive the parse.
  void read_into(gTextFacts & facts, gTakenNames const & taken, gTableTemplates const & tables);
  doc_scan & scanner() override { return scanner_; }
  doc_scan const & scanner() const override { return scanner_; }

protected:
  // Text.
  cRef<gString> piece(std::string_view text) { return scanner_.piece(text); }
  // Both take what they join out of its place: text grows by a piece at a time.
  static gStrList joined(gStrList & text, gStrList & more);
  gStrList joined_text(gStrList & text, Doc::Text & more);
  void illegal(gMessage const & what) const { error(what); }

  // Units that document something. A name is a list: the separator of its parts, then the parts.
  void begin_unit(Doc::Keyword const & keyword);
  void enter_unit();
  void name_unit(gString const & separator, gStrList const & names);
  void name_unit(gStrList name);
  void leave_unnamed() const;
  static gStrList first_name(gString part);
  static gStrList scoped_name(gStrList name, gString const & separator, gString part);
  // Text of white space alone leaves no subentry.
  void add_text(gString const & subentry, gStrList text);
  void set_headline(gStrList const & text);
  void set_hierarchy(Doc::Levels levels);
  Doc::Levels class_levels(gParamList & params) const;
  void add_link(gStrList references);
  void set_style(gParamList & params);
  void set_attribute(gParamList & params);
  void clear_flag(gDocUnit::Flag flag);

  // Continuous texts: "@text\n" stands in front of the first text behind each headline.
  void begin_text_unit(gString const & name);
  void enter_text_unit(gStrList body);
  gStrList running_text(Doc::Text text);
  gStrList running_element(gStrList element);
  gStrList joined_head(gStrList body, gStrList head);
  gStrList section_head(int level, gParamList & params);
  gStrList subtitle(int level, gParamList & params);

  // One of the two kinds of lists.
  struct List {
    Doc::Token token; // of its items
    char const * begin;
    char const * item;
    char const * end;
    gString style = {}; // of the next list
    bool is_new = true; // the next item opens a list
  };
  void set_list_style(List & list, gParamList & params);
  gStrList item(List & list, gStrList text);
  gStrList verbatim(gStrList text);

  // Tables. One at a time: a table can't hold a table.
  struct Table {
    gString name; // of its template
    gString style;
    gStrList columns, markrows, markcolumns;
    gStrList rows; // that the template brings
  };
  bool open_table(gParamList & params);
  void missing_columns();
  void set_columns(gParamList & params);
  void set_table_style(gParamList & params);
  void set_marks(gString const & command, gStrList & marks, gParamList & params);
  void begin_row() { row_cells_ = 0; }
  gStrList joined_row(gStrList rows, gStrList cells);
  gStrList joined_cell(gStrList cells, gParamList & params);
  gStrList table(bool is_open, gStrList rows);
  void faulty_table() const;

  // Bookmarks and citations.
  gStrList bookmark(gString const & command, gString const & kind, gParamList & params);
  gStrList help_alias(gParamList & params);
  void mark_citation() { cite_line_ = cur_line(); }
  void begin_citation(gParamList & params);
  void end_citation();

  List enum_{Doc::ENUM, "@b_enum<", "@enum ", "@e_enum\n"};
  List num_{Doc::NUM, "@b_numbering<", "@numbering ", "@e_numbering\n"};
  Table table_;

private:
  void begin(bool is_text);
  void end_unit(bool is_named);
  // Takes the words that follow a word in its place: most of a text is words, and the parser need
  // not turn for each of them.
  template <class Use> void take_texts(Use use) {
    if (recovering())
      return;
    int token = scanner_.scan();
    for (; token == Doc::TEXT; token = scanner_.scan())
      use(scanner_.token_value().as<Doc::Text>());
    set_lookahead(token);
  }
  void add_running_text(gStrList & pieces, Doc::Text text);
  void read_table_template();
  static gStrList pieces_of(std::vector<gString> const & texts);
  int class_level(gParamList const & params, std::string_view option) const;

  doc_scan scanner_;
  gTextFacts * facts_ = nullptr;
  gTableTemplates const * table_templates_ = nullptr;
  std::set<gString, std::less<>> bookmarks_, citations_; // all names that are taken
  gUnitFacts cur_unit_;                                  // that the actions work on
  bool text_pending_ = false; // the next text of a continuous unit needs "@text\n" in front
  gString cite_name_;
  int cite_line_ = 0; // of the open citation's beginning; 0 for none
};

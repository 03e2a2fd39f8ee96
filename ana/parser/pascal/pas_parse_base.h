// The parser of Pascal declarations: leaves a code element for each thing that a file declares.
#pragma once

#include "ana/anadat/gfilefacts.h"
#include "ana/cmdpar/gvlparsebase.h"
#include "ana/parser/pascal/pas_scan.h"

class pas_parse_base : public gVLParseBase {
public:
  using Value = pas_value;

  explicit pas_parse_base(int stack_size);

  // Prepares parser and scanner for the next file.
  void reset() override;
  // To be called behind reset(): where elements, classes and all comments of the file go.
  void read_into(gCodeFacts & facts);
  pas_scan & scanner() override { return scanner_; }
  pas_scan const & scanner() const override { return scanner_; }

protected:
  // Skips (pas_skip.cc). What opens the stretch has just been shifted; the end of the file raises
  // gExcFatalErr. Texts have normalised white space, but for that of skip_until().
  //
  // Up to the closing bracket, which is part of the text.
  gString skip_balanced(char open, char close);
  // Up to the "end" that belongs to it, which is part of the text; or without a text, for bodies.
  gString skip_block();
  void drop_block();
  // Up to the first token of the set, which stays the look-ahead; `outside`: not in parentheses.
  using Tokens = std::initializer_list<int>;
  gString skip_until(Tokens set);
  gString skip_until_outside(int token);
  gString text_until_end(gString const & head); // the head and what goes on to the semicolon

  // Units, types and classes (pas_parse_base.cc).
  int begin_unit(gString const & name);
  void end_unit(gString const & name, int line, gStrList const & used);
  int begin_type(gString const & name);
  void end_type(gString const & name, int line, gString const & text);
  void begin_class(gBasesRef const & bases);
  gString end_class(gBasesRef & bases);
  void set_visibility(char const * word) { visibility_ = word; }
  void open_routine() { ++routine_depth_; }

  // Declarations (pas_elements.cc).
  void constant(gString const & name, int line, gString const & type, gString const & value);
  void variables(int type, gStrList const & names, int line, gString const & text);
  void property(gString const & name, int line, gString const & text);
  gCodeElemRef routine(gString const & word, int line, gStrList & names, gString const & rest);
  void declare_routine(gCodeElemRef const & element, gString const & end);
  void end_routine(gCodeElemRef const & element, gString const & tail);

  // Texts (pas_elements.cc).
  gString parameters(std::string_view kind, gStrList const & names, std::string_view type);
  // Of a subrange: a name at its head; the low bound from that name (or none) and the scanner's
  // token on; the whole text.
  gString low_name(gString & name) const;
  gString low_constant(gString const & name);
  gString subrange(gString const & low);
  // A list: gExcFatalErr beyond any sensible length.
  void check_length(std::size_t parts) const;

private:
  class Collecting;
  int next_skipped();
  template <class Use> void each_of_block(Use use);

  gCodeElemRef make_element(int type, gStrList && names, int line, gString && decl);
  // The name of something in the unit and class at hand.
  gStrList in_scope(gString const & name) const;
  // Keeps it unless it is local to a routine.
  void record_element(gCodeElemRef const & element);
  void count_text(std::size_t bytes);

  pas_scan scanner_;
  gCodeFacts * facts_ = nullptr;
  gString unit_name_;  // empty in a program and behind the unit
  gString type_name_;  // of the type declaration at hand
  gString class_name_; // of the class whose body is being read
  bool type_is_class_ = false;
  gBasesRef class_bases_; // of the class last read, null for none
  int routine_depth_ = 0; // open routines
  gString visibility_;    // of what is declared now
  std::size_t text_bytes_ = 0;
};

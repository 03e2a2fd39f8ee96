// What the four parsers share beyond the frame: the check of parameters and numbers.
#pragma once

#include "ana/cmdpar/gparam.h"
#include "vlb/parse/parse_base.h"

class gVLParseBase : public gParseBase {
public:
  // 0 if the input was accepted, 1 if parsing had to give up.
  virtual int parse() = 0;
  // Opens a file in the scanner; gExcFatalErr if it can't be read.
  virtual void set_input(gSrcFile const & file);
  void error(gMessage const & message, gString const & argument = gString()) const override;
  // Prepares for the next file.
  void reset() override;
  virtual gSrcFile const & cur_file() const { return scanner().cur_infile(); }
  virtual int cur_line() const { return scanner().line(); }
  gLoc cur_loc() const { return {cur_file(), cur_line()}; }

  // Checks the actual parameters of a command against gCmdDefs; a word where a list is asked for
  // becomes a list of one. Reports and answers false if they don't fit.
  bool check_params(gString const & name, gParamList & actual) const;
  // "10 cm" and "10cm" give {"10", "cm"}; both halves are empty if the text is no measure.
  static std::pair<gString, gString> read_measure(gString const & text);
  // Brings a font size to its printed form, such as "120%"; false if it is none.
  static bool read_font_size(gString & text);
  // The whole text as a decimal integer, brought into the range of int; false if it is none.
  static bool read_int(std::string_view text, int & value);
  // Report each member that is none; true if all are good.
  bool check_columns(gStrList const & list) const;
  bool check_marks(gStrList const & list) const;

protected:
  // For the productions of parameters.
  static gStrList option_pair(gString name, gString value);
  void add_option(gParamList & params, gStrList const & name_and_value) const;
  // Reports what is undefined and then gives an empty predicate.
  gPredicate make_predicate(gString const & attribute, gStrList const & values, bool equal) const;
  // False, with a report, if the project has no such attribute.
  bool check_attribute(gString const & name) const;

  int table_columns_ = 0; // columns of the table being read
  int row_cells_ = 0;     // cells read in its current row

private:
  bool check_positions(gFParList const & formal, gParamList & actual) const;
  bool check_options(gFParList const & formal, gParamList const & actual) const;
};

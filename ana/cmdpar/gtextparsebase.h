// The text elements that the script and the text units share.
#pragma once

#include "ana/cmdpar/gvlparsebase.h"
#include "vlb/messages.h"

// Each operation turns one command into its pieces of intermediate code. It begins with the check
// of the parameters; a command that fails gives no pieces.
class gTextParseBase : public gVLParseBase {
protected:
  // True where a variable may stand for a word in the head of a command: it is a piece of its own
  // then, and gets its value with the other pieces.
  virtual bool expands_words() const { return false; }

  // Commands that put their text between braces, by their name without "@": inline formats end
  // with a blank, notes with a line feed.
  gStrList format(gString const & name, gParamList & params);
  gStrList note(gString const & name, gParamList & params);
  gStrList definition(gParamList & params);
  gStrList underline(gParamList & params);
  gStrList font_size(gParamList & params);
  gStrList named_format(gParamList & params);
  gStrList code_text(gStrList pieces);
  // `name`: "ltab", "ctab" or "rtab".
  gStrList tab(gString const & name, gParamList & params);
  gStrList headline(gParamList & params);

  // A reference for each target. The text of a @cref can't hold another one.
  gStrList cross_reference(gParamList & params);
  gStrList link_reference(gParamList & params);
  static gStrList short_references(gStrList const & targets);
  void invalid_target() const { error(Msg::invalid_target); }

  // The fields of an index entry; always five of them in the end.
  static gStrList index_entry(std::initializer_list<gStrList *> fields);
  gStrList citation(gParamList & params);
  gStrList attribute_value(gParamList & params);
  // The levels of @classhierarchy; hier_all for one that isn't given. Both are 0 if it fails.
  std::pair<int, int> hierarchy_levels(gParamList & params);

private:
  gStrList with_word(char const * open, gString const & word, char const * close) const;
  gStrList references(gParamList const & params, gStrList const & text) const;
  int hierarchy_level(gParamList const & params, std::string_view option) const;
};

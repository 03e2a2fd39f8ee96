// Tokens, values and start conditions of the text-unit language. Single characters stand for
// themselves; the commands have the numbers of gDocCommands.
#pragma once

#include "ana/cmdpar/gparam.h"
#include "ana/cmdpar/keywords.h"
#include "vlb/parse/value.h"

namespace Doc {

enum Token : int {
  B_CITE = 257,
  B_TABLE = 260,
  B_VERBATIM = 261,
  E_CITE = 276,
  E_TABLE = 279,
  E_VERBATIM = 280,
  END = 283,
  ENDL = 284,
  ENDP = 286,
  ENUM = 287,
  NUM = 312,
  XE = 333,
  CODE_OPEN = 334,
  CODE_CLOSE = 335,
  XREF_QUOTE = 336,
  BCOM = 337,
  KW_CLASS = 338,
  SCOPE = 339,
  KW_CONSTRUCTOR = 340,
  KW_DESTRUCTOR = 341,
  ECOM = 342,
  OP_EQ = 343,
  KW_EXPORT = 344,
  KW_FUNCTION = 345,
  OP_NE = 346,
  KW_PROCEDURE = 347,
  SUBJECT_BEGIN = 348,
  SUBJECT_END = 349,
  KW_STRUCT = 350,
  KW_TEMPLATE = 351,
  KW_UNION = 352,
  HEAD_END = 353,
  PARENS = 354,
  TEMPLATE_END = 355,
  ID = 356,
  WORD = 357,
  TEXT = 358,
  PLAIN_ID = 359,
  SUBJECT_KW = 360,
  SUBENTRY_KW = 361,
  UNIT_KW = 362,
  TEXTUNIT_KW = 363
};

// What the scanner is in.
enum Condition : int {
  OUTSIDE = 0,    // outside marked comments
  XREF = 2,       // between the quotes of a short reference
  BASES = 4,      // in the base clause of a class head
  PARAMS = 6,     // directly behind a command, where parameters may follow
  FREE = 8,       // in a comment, outside any unit
  CODETEXT = 10,  // in code text
  FIRST = 12,     // at the beginning of a comment
  BODY = 14,      // in the text of a unit
  DECL = 16,      // in a declaration head behind a keyword
  IDSPEC = 18,    // directly behind a unit keyword
  IDENT = 20,     // looking for a plain identifier
  AFTERID = 22,   // behind a plain identifier
  ANGLE = 24,     // inside < and > of a parameter
  PARSTART = 26,  // behind an empty line in the text of a unit
  BRACE = 28,     // inside { and } of a parameter
  TEMPLATE = 30,  // inside a template head
  TEXTNAME = 32,  // behind the keyword of a continuous unit
  VERBATIM = 34,  // in a verbatim block
  INDEXENTRY = 36 // behind @xe
};

using Text = cRef<gString>; // of TEXT: a piece, perhaps shared

// The value of the keyword tokens. It borrows from the table of keywords: several threads read by
// the same table, which nobody may count.
struct Keyword {
  gKwd const * row = nullptr;
  gUnitPattern const * pattern = nullptr; // of units

  explicit operator bool() const { return row != nullptr; }
  gKwd const * operator->() const { return row; }
};
using Levels = std::pair<int, int>; // of a class hierarchy, up and down
using Value =
    gValue<gString, Text, Keyword, gStrList, gParamList, gParam, gPredicate, Levels, bool>;

} // namespace Doc

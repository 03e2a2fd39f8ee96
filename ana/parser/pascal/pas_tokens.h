// Token numbers of Pascal. Numbers below 256 are the characters themselves.
#pragma once

namespace Pas {

enum Token : int {
  // Keywords that the grammar knows.
  KW_ABSOLUTE = 257,
  KW_ABSTRACT,
  KW_ARRAY,
  KW_ASM,
  KW_ASSEMBLER,
  KW_BEGIN,
  KW_CDECL,
  KW_CLASS,
  KW_CONST,
  KW_CONSTRUCTOR,
  KW_DEFAULT,
  KW_DESTRUCTOR,
  KW_DYNAMIC,
  KW_END,
  KW_EXPORT,
  KW_EXPORTS,
  KW_EXTERNAL,
  KW_FAR,
  KW_FILE,
  KW_FORWARD,
  KW_FUNCTION,
  KW_IMPLEMENTATION,
  KW_INDEX,
  KW_INITIALIZATION,
  KW_INLINE,
  KW_INTERFACE,
  KW_LABEL,
  KW_MESSAGE,
  KW_NAME,
  KW_NEAR,
  KW_NODEFAULT,
  KW_OBJECT,
  KW_OF,
  KW_OVERRIDE,
  KW_PACKED,
  KW_PRIVATE,
  KW_PROCEDURE,
  KW_PROGRAM,
  KW_PROPERTY,
  KW_PROTECTED,
  KW_PUBLIC,
  KW_PUBLISHED,
  KW_READ,
  KW_RECORD,
  KW_RESIDENT,
  KW_SET,
  KW_STORED,
  KW_TYPE,
  KW_USES,
  KW_UNIT,
  KW_VAR,
  KW_VIRTUAL,
  KW_WRITE,

  DOTS = 310, // ".."
  IDENTIFIER = 311,
  NUMBER = 312,
  REAL = 313,
  STRING = 314,

  // 315 to 348: keywords of statements and expressions, which no declaration holds.
  KW_CASE = 318, // opens a block in what is skipped
  KW_TRY = 344,  // likewise
  PIECE = 350,   // a stretch of skipped source without a token that counts
};

} // namespace Pas

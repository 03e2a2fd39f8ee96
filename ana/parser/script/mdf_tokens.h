// Tokens of the script beside the commands, and the values that they and the rules carry.
#pragma once

#include "ana/cmdpar/gcmd.h"
#include "ana/cmdpar/gparam.h"
#include "vlb/parse/value.h"

struct mdf_token {
  enum : int {
    endl = 284,
    endp = 286,
    xe = 333,
    code_open = 334,
    ref_quote = 335,
    code_close = 336,
    outfiles = 337,
    outtree = 338,
    op_eq = 339,
    op_ne = 340,
    subentry = 341,
    text = 342,
  };
};

using mdf_value = gValue<gString, gStrList, gParam, gParamList, gPredicate, bool, gLoc, cRef<gCmd>,
                         cRef<gCmdSeq>>;

// What the script asks of the run: its stages and the writing of its document.
#pragma once

#include <set>

#include "vlb/gstring.h"

class gCmdSeq;

// ana/ implements it; tests of the script grammar have one of their own.
class gScriptStages {
public:
  virtual ~gScriptStages() = default;
  // All stages of the analysis, once, in their order.
  virtual void run() = 0;
  // Runs the commands and writes the intermediate code. `output`: the option of @document;
  // `outputs`: the output names of all sections, as written.
  virtual void generate(gCmdSeq & commands, std::set<gString> const & outputs,
                        gString const & output) = 0;
  // @document was refused: nothing is written and the run counts as failed.
  virtual void refused() = 0;
};

// A small project in memory, and runs of the script's machines over a text.
#pragma once

#include <string>

#include "ana/cmdpar/script_stages.h"
#include "support/test_outside.h"

// Options and tables as before a run; emptied again at the end.
class ScriptProject {
public:
  ScriptProject();
  ~ScriptProject();

  TestOutside outside;
  // The reports since the last call, one a line.
  std::string reports();
};

// Tells which stages a script calls, and what document its commands make.
class FakeStages : public gScriptStages {
public:
  void run() override;
  void generate(gCmdSeq & commands, std::set<gString> const & outputs,
                gString const & output) override;
  void refused() override { told += "refused\n"; }

  std::string told;
};

// The tokens of each line of the script, then the reports.
std::string tokens_of(std::string const & script);
// What the stages told, then the result if it isn't 0, then the reports.
std::string run_script(std::string const & script);
// All entries of the templates that the script defines, then the reports.
std::string templates_of(std::string const & script);
// The pieces of a template's body, then the reports.
std::string pieces_of(std::string const & body);
// Enters the units that "unit TABLE TYPE NAME FILE:LINE [ATTR=VALUE]" at the head of the input
// tell, a line or "; " behind each, and answers the rest.
std::string enter_units(std::string const & input);

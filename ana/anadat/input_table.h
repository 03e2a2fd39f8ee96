// The two ends of a run: what it was given, and what it found. Defined in tables.cc.
#pragma once

#include <memory>
#include <set>
#include <vector>

#include "app/options/run_input.h"
#include "store/gglobalobj.h"

// The options of the run; those of a new project while none is under way.
class gInputTable : public gGlobalObj {
public:
  void set(gRunInput input) { input_ = std::make_unique<gRunInput const>(std::move(input)); }
  gRunInput const & operator*() const { return input_ ? *input_ : Vapp::standard_run_input(); }
  gRunInput const * operator->() const { return &**this; }
  void reset() override { input_.reset(); }

private:
  std::unique_ptr<gRunInput const> input_;
};

// Lines of a source that no reader understood.
struct gSkippedLines {
  gPathstring path;
  int first = 0, last = 0;
  std::string reason; // for the user
  gString scope;      // the class or namespace that they stand in; empty for none
};

// What a run finds for its starter.
struct gRunFindings : gGlobalObj {
  gPathstring atc_file;             // the intermediate code; empty if none was begun
  std::set<gPathstring> incomplete; // sources that could not be read whole
  std::size_t declarations = 0;     // that the tolerant readers found
  std::vector<gSkippedLines> skipped;
  void reset() override {
    atc_file.clear();
    incomplete.clear();
    declarations = 0;
    skipped.clear();
  }
};

extern gInputTable gInput;
extern gRunFindings gFindings;

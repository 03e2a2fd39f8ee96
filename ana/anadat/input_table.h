// The two ends of a run: what it was given, and what it found. Defined in tables.cc.
#pragma once

#include <memory>
#include <set>

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

// What a run finds for its starter.
struct gRunFindings : gGlobalObj {
  gPathstring atc_file;             // the intermediate code; empty if none was begun
  std::set<gPathstring> incomplete; // sources that could not be read whole
  void reset() override {
    atc_file.clear();
    incomplete.clear();
  }
};

extern gInputTable gInput;
extern gRunFindings gFindings;

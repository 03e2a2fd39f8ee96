// The short way: a folder becomes pages, and the pages are shown.
#pragma once

#include "app/shell/run_handlers.h"

// Asks for a folder, makes a project of its sources, which has no file yet, and runs the analysis
// and the conversion to HTML.
class gVlpQuick : public cMenuHandlerBase {
public:
  // What would follow the run doesn't, where this goes before its end.
  ~gVlpQuick() override { start_.set_finished({}); }

  int OnCommand() override;
  int OnUpdateCommand() override;

private:
  void convert(bool success);

  gAnaStart start_;
  std::unique_ptr<cMenuHandlerBase> driver_;
};

// Shows the result of the last conversion.
class gOpenResult : public cMenuHandlerBase {
public:
  int OnCommand() override;
  int OnUpdateCommand() override;
};

// The short way: a folder becomes pages, and the pages are shown.
#pragma once

#include "app/shell/out_handlers.h"
#include "app/shell/quick_project.h"
#include "app/shell/run_handlers.h"

// Asks for a folder, makes a project of its sources, which has no file yet, and runs the analysis
// and the conversion to HTML.
class gVlpQuick : public cMenuHandlerBase {
public:
  // Waits for what is under way; what would follow the run doesn't, where this goes before its end.
  ~gVlpQuick() override;

  int OnCommand() override;
  int OnUpdateCommand() override;

private:
  std::unique_ptr<gQuickProject> find(gPathstring const & folder);
  void convert(bool success);
  void tell(gConversionResult const & result);

  std::unique_ptr<gQuickProject> quick_; // of the last run
  std::vector<std::string> notes_;       // on what it leaves out
  gAnaStart start_;
  gOutHTML driver_;
};

// Shows the result of the last conversion.
class gOpenResult : public cMenuHandlerBase {
public:
  int OnCommand() override;
  int OnUpdateCommand() override;
};

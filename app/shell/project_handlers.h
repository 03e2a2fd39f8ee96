// Commands for the project as a whole.
#pragma once

#include "app/shell/cmenu_handler.h"

class gVlpNew : public cMenuHandlerBase {
public:
  int OnCommand() override;
  int OnUpdateCommand() override;
  bool OnDialog() override;
};

class gVlpOpen : public cMenuHandlerBase {
public:
  int OnCommand() override;
  int OnUpdateCommand() override;
  // Loads a dropped project file; 0 for a file of another kind.
  int OnDropFile(char const * path, cPointT2<int> const & place) override;
};

class gVlpSave : public cMenuHandlerBase {
public:
  int OnCommand() override;
  int OnUpdateCommand() override;
};

class gVlpSaveAs : public cMenuHandlerBase {
public:
  int OnCommand() override;
  int OnUpdateCommand() override;
};

// Chooses the script.
class gOpenVLS : public cMenuHandlerBase {
public:
  int OnCommand() override;
  int OnUpdateCommand() override;
};

class gVappHelp : public cMenuHandlerBase {
public:
  int OnCommand() override;
  bool OnDialog() override;
};

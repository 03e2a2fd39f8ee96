// Commands that open a dialog for options.
#pragma once

#include "app/shell/cmenu_handler.h"

// Opens a dialog by the name that the port knows it by.
class gDialogHandler : public cMenuHandlerBase {
public:
  explicit gDialogHandler(char const * dialog) : dialog_(dialog) {}
  gString const & dialog() const { return dialog_; }

  int OnCommand() override;
  bool OnDialog() override;

private:
  gString dialog_;
};

// A dialog that stays open beside the main window. Its parameter names the page it opens on.
class gModelessHandler : public gDialogHandler {
public:
  using gDialogHandler::gDialogHandler;
  bool is_open() const { return *open_; }
  // The page by its number from 0; 0 without a parameter.
  int page() const { return page_; }

  bool OnDialog() override;
  void OnGetParam() override;

private:
  // Shared with the window, which tells that it is gone and may outlive the command.
  std::shared_ptr<bool> open_ = std::make_shared<bool>(false);
  int page_ = 0;
};

// A sheet of options for the analysis: closed to changes while one runs.
class gAnaSheetHandler : public gModelessHandler {
public:
  using gModelessHandler::gModelessHandler;
  int OnUpdateCommand() override;
};

class gDefSrc : public gModelessHandler {
public:
  gDefSrc() : gModelessHandler("gDefineSrc") {}
  int OnUpdateCommand() override;
};

class gDefAttr : public gModelessHandler {
public:
  gDefAttr() : gModelessHandler("gDefineAttr") {}
  int OnUpdateCommand() override;
};

class gDefOutdir : public gDialogHandler {
public:
  gDefOutdir() : gDialogHandler("gDefineOutdir") {}
  int OnUpdateCommand() override;
};

class fDefTitle : public gDialogHandler {
public:
  fDefTitle() : gDialogHandler("fDefineTitle") {}
  int OnUpdateCommand() override;
};

class gAnaPre : public gAnaSheetHandler {
public:
  gAnaPre() : gAnaSheetHandler("gAnaPre") {}
};

class gAnaopt : public gAnaSheetHandler {
public:
  gAnaopt() : gAnaSheetHandler("gDiaAnaopt") {}
};

class gAnaAlloc : public gAnaSheetHandler {
public:
  gAnaAlloc() : gAnaSheetHandler("gAnaAlloc") {}
};

class gAnaSrcpat : public gAnaSheetHandler {
public:
  gAnaSrcpat() : gAnaSheetHandler("gAnaSrcpat") {}
};

class gMsgOptions : public gDialogHandler {
public:
  gMsgOptions() : gDialogHandler("gDiaMsgoptions") {}
  int OnUpdateCommand() override;
};

class gOutOptions : public gModelessHandler {
public:
  gOutOptions() : gModelessHandler("gOutOptions") {}
  int OnUpdateCommand() override;
};

class gOutHM : public gDialogHandler {
public:
  gOutHM() : gDialogHandler("gDiaHM") {}
  int OnUpdateCommand() override;
};

class gExtraOpt : public gDialogHandler {
public:
  gExtraOpt() : gDialogHandler("gDiaExtraOpt") {}
};

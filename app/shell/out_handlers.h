// Commands that start and stop a conversion.
#pragma once

#include "app/shell/cmenu_handler.h"
#include "app/shell/run.h"

// Base of the target drivers: writes into the project's options what the converter reads, and
// starts it. Shell::wait_for_worker() waits for its end.
class gVappOutHandler : public cMenuHandlerBase {
public:
  int OnCommand() override;
  int OnUpdateCommand() override;
  // Called behind a conversion on the thread of the starter.
  void set_finished(gConversionRun::Finished finished) { finished_ = std::move(finished); }

protected:
  // The key of the target: "htm", "rtf" or "hlp".
  virtual char const * target() const = 0;
  virtual gConversionRun::Converter converter() const = 0;
  // Settles which scripts and templates the target uses.
  virtual void resolve_files() const = 0;

  // Sets "cur_" + key of the target: the default, a file of the ini folder, if the user wants that,
  // else the path under the key, absolute.
  void resolve(std::string const & key) const;

private:
  gConversionRun::Finished finished_;
};

class gOutHTML : public gVappOutHandler {
protected:
  char const * target() const override { return "htm"; }
  gConversionRun::Converter converter() const override;
  void resolve_files() const override;
};

class gOutRTF : public gVappOutHandler {
protected:
  char const * target() const override { return "rtf"; }
  gConversionRun::Converter converter() const override;
  void resolve_files() const override;
};

class gOutHLP : public gVappOutHandler {
protected:
  char const * target() const override { return "hlp"; }
  gConversionRun::Converter converter() const override;
  void resolve_files() const override;
};

// Stops a conversion.
class gOutBreakHandler : public cMenuHandlerBase {
public:
  int OnCommand() override;
  int OnUpdateCommand() override;
};

// What the tests of the option dialogs share: a project, and a dialog by its name with its user.
#pragma once

#include <gtest/gtest.h>

#include "app/options/options.h"
#include "app/options/project.h"
#include "app/shell/dialogs/make_dialog.h"
#include "store/json_text.h"
#include "support/test_dialogs.h"
#include "support/test_outside.h"

struct Sheet {
  explicit Sheet(char const * name, int page = 0)
      : dialog(Shell::make_dialog(name, page)),
        user(*dialog) {}
  std::unique_ptr<gDialog> dialog;
  DialogUser user;
};

class Sheets : public testing::Test {
protected:
  Sheets() {
    Vapp::project().load_defaults();
    Vapp::options_ini["warn_outdir"] = cat::make(true);
    outside.shown.clear();
  }
  // What was shown since the last call. "marked" stands for a title of the window: only a project
  // that was changed sets one.
  std::string shown() {
    std::string all;
    for (std::string const & one : std::exchange(outside.shown, {}))
      all += (all.empty() ? "" : "; ") + (one.starts_with("title: ") ? "marked" : one);
    return all;
  }
  static std::string stored(char const * path) {
    cRef<cObj> const value = Vapp::option(path);
    return value ? to_json(*value) : "(absent)";
  }

  TestOutside outside;
  TestHost host;
};

// A project with a folder, and the user in front of its dialogs.
#pragma once

#include <gtest/gtest.h>

#include "app/options/options.h"
#include "app/options/project.h"
#include "app/options/settings.h"
#include "app/shell/dialogs/make_dialog.h"
#include "support/temp_folder.h"
#include "support/test_dialogs.h"
#include "support/test_outside.h"

class DialogTest : public testing::Test {
protected:
  DialogTest() {
    Vapp::set_program_dir(gPathstring(VELLUMAR_SOURCE_DIR));
    Vapp::options_ini["warn_outdir"] = cat::make(true);
    Vapp::options_ini["vlp_dir"] = cat::make("");
    Vapp::project().load_defaults();
  }

  // A project that is saved in the test's folder.
  void open_project() {
    Vapp::project().set_project_name(gString(folder.path("p.vlp")));
    ASSERT_TRUE(Vapp::project().save());
    outside.shown.clear();
  }
  std::vector<std::string> shown() { return std::exchange(outside.shown, {}); }
  // What was shown but for the title of the window.
  std::string boxes() {
    std::string all;
    for (std::string const & one : shown())
      if (!one.starts_with("title: "))
        all += (all.empty() ? "" : "\n---\n") + one;
    return all;
  }
  static std::string value(char const * path) { return cat::as_string(Vapp::option(path)); }

  TempFolder folder;
  TestOutside outside;
  TestHost host;
};

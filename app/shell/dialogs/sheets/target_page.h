// What the pages of the target formats share: files that may be those that come with the program.
#pragma once

#include "app/shell/dialogs/sheets/option_page.h"

// A file field is a path, the box "Use default" and a button that chooses another path. With the
// box set the path counts for nothing.
class gTargetPage : public gOptionPage {
public:
  using gOptionPage::gOptionPage;

  bool exchange(bool store) override;
  bool rule(gField & field) override;
  void changed(gField & field) override;
  void pressed(gField & button) override;

protected:
  // A file with a title and a filter for its chooser; a folder without a filter.
  void file(Vapp::gTextName name, Vapp::gFlagName use_default, char const * title,
            char const * filter = "");

private:
  struct File {
    Vapp::gOptionRow const & row;
    gField & path;
    gField & use_default;
    gField & choose;
    std::string title, filter;

    bool is_folder() const { return filter.empty(); }
    void enable();
  };
  void choose(File & file);
  bool check_file(File & file);

  std::deque<File> files_;
};

// Paths that may be those of the files that come with the program.

#include "app/options/settings.h"
#include "sheet.h"
#include "support/temp_folder.h"

namespace {

class Targets : public Sheets {
protected:
  Targets() {
    Vapp::set_program_dir(gPathstring(VELLUMAR_SOURCE_DIR));
    Vapp::project().load_defaults();
    Vapp::project().set_project_name(folder.path("p.vlp"));
    folder.write("own/my.vlt");
    outside.shown.clear();
  }
  TempFolder folder;
};

TEST_F(Targets, a_file_of_the_users_own_has_to_exist) {
  Sheet sheet("gOutOptions");
  DialogUser & user = sheet.user;
  EXPECT_FALSE(user.at("htm/vlt").enabled || user.at("htm/vlt>>").enabled);
  user.check("htm/vlt_default", false);
  user.check("htm/helpers_dir_default", false);
  user.type("htm/vlt", "own/none.vlt");
  user.leave("htm/vlt", "htm/vlt>>");
  EXPECT_EQ(shown(), "") << "the button may give a better one";
  user.leave("htm/vlt", "htm/vlt_default");
  EXPECT_EQ(shown(), "box: File '" + folder.path("own/none.vlt") + "' does not exist.");
  EXPECT_EQ(user.focus(), "htm/vlt");
  user.type("htm/vlt", "own/my.vlt");
  user.type("htm/helpers_dir", "own/my.vlt");
  sheet.dialog->go_to(3);
  sheet.dialog->ok();
  EXPECT_EQ(shown(), "box: Folder '" + folder.path("own/my.vlt") + "' does not exist.");
  EXPECT_EQ(sheet.dialog->page(), 0);
  EXPECT_EQ(user.focus(), "htm/helpers_dir");
  user.type("htm/helpers_dir", "nowhere");
  user.check("htm/helpers_dir_default", true);
  sheet.dialog->ok();
  EXPECT_EQ(shown(), "marked") << "what isn't used need not exist";
  EXPECT_EQ(stored("htm/vlt") + stored("htm/vlt_default"), "\"own/my.vlt\"false");
  EXPECT_EQ(stored("htm/helpers_dir_default"), "true");
}

TEST_F(Targets, the_path_of_the_shipped_file_means_the_shipped_file) {
  Sheet sheet("gOutOptions", 2);
  DialogUser & user = sheet.user;
  user.check("hlp/hpj_default", false);
  EXPECT_TRUE(user.at("hlp/hpj").enabled);
  user.type("hlp/hpj", Vapp::ini_dir() + "/HLP.HP");
  EXPECT_FALSE(user.at("hlp/hpj_default").checked);
  user.type("hlp/hpj", Vapp::ini_dir() + "/HLP.HPJ");
  EXPECT_TRUE(user.at("hlp/hpj_default").checked);
  EXPECT_FALSE(user.at("hlp/hpj").enabled || user.at("hlp/hpj>>").enabled);
}

TEST_F(Targets, choosers_begin_where_the_path_leads) {
  struct {
    int page;
    char const *field, *title, *filter;
  } const rows[] = {
      {0, "htm/vlt", "Choose transformation script for HTML",
       "Vellumar Transformation Script (*.vlt)|*.vlt|All Files (*.*)|*.*||"},
      {1, "rtf/vlt", "Choose transformation script for RTF",
       "Vellumar Transformation Script (*.vlt)|*.vlt|All Files (*.*)|*.*||"},
      {1, "rtf/style", "Choose style sheet for RTF",
       "RTF Style Sheet (*.rtf)|*.rtf|All Files (*.*)|*.*||"},
      {2, "hlp/vlt", "Choose transformation script for WinHelp",
       "Vellumar Transformation Script (*.vlt)|*.vlt|All Files (*.*)|*.*||"},
      {2, "hlp/style", "Choose style sheet for WinHelp",
       "RTF Style Sheet (*.rtf)|*.rtf|All Files (*.*)|*.*||"},
      {2, "hlp/hpj", "Choose help project file for WinHelp",
       "Help Project Files (*.hpj)|*.hpj|All Files (*.*)|*.*||"},
      {0, "htm/helpers_dir", "HTML Auxiliary File Folder", ""},
  };
  for (auto const & [page, field, title, filter] : rows) {
    Sheet sheet("gOutOptions", page);
    std::string const id = field;
    bool const is_folder = std::string(filter).empty();
    sheet.user.check((id + "_default").c_str(), false);
    sheet.user.type(field, "own/none");
    outside.answers = {"cancel", folder.path(is_folder ? "own" : "own/my.vlt")};
    sheet.user.press((id + ">>").c_str());
    EXPECT_EQ(shown(), std::string("open: ") + title +
                           "; box: " + (is_folder ? "Folder '" : "File '") +
                           folder.path("own/none") + "' does not exist.");
    EXPECT_EQ(outside.last_choice.filter, filter);
    EXPECT_EQ(outside.last_choice.dir, folder.path(is_folder ? "own/none" : "own"));
    sheet.user.press((id + ">>").c_str());
    EXPECT_EQ(sheet.user.at(field).text, folder.path(is_folder ? "own" : "own/my.vlt"));
    EXPECT_EQ(shown(), std::string("open: ") + title);
    sheet.dialog->ok();
    EXPECT_EQ(shown(), "marked") << field;
  }
  Sheet other("gOutOptions", 3);
  other.user.type("indexsubst", "^");
  other.dialog->ok();
  EXPECT_EQ(stored("indexsubst"), "\"^\"");
}

} // namespace

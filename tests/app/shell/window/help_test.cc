// The way out of the window: help pages, the browser, the editor.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <regex>
#include <thread>

#include "app/options/options.h"
#include "app/shell/cmenu_handler.h"
#include "app/shell/file_url.h"
#include "app/shell/window/desktop_entry.h"
#include "app/shell/window/help_contexts.h"
#include "app/shell/window/source_link.h"
#include "store/cfactory.h"
#include "support/temp_folder.h"
#include "test_frame.h"

namespace {

// Sets a variable of the environment for its life.
class Variable {
public:
  Variable(char const * name, std::string const & value) : name_(name) {
    char const * const old = std::getenv(name);
    before_ = old ? std::optional<std::string>(old) : std::nullopt;
    setenv(name, value.c_str(), 1);
  }
  ~Variable() { before_ ? setenv(name_, before_->c_str(), 1) : unsetenv(name_); }

private:
  char const * name_;
  std::optional<std::string> before_;
};

std::string joined(std::vector<std::string> const & parts) {
  std::string text;
  for (std::string const & part : parts)
    text += "[" + part + "]";
  return text;
}

TEST(HelpMap, LeadsFromNumbersToPages) {
  TempFolder const folder;
  std::ostringstream errors;
  std::streambuf * const before = std::cerr.rdbuf(errors.rdbuf());
  gHelpMap map(folder.path("a b/help.map"));
  EXPECT_EQ(map.find(1234), "");
  folder.write("a b/help.map", "1234 page.htm\n"
                               "no number\n"
                               "\n"
                               "0x10\tsub\\x.htm#top rest\r\n"
                               "1234 other.htm\n"
                               "17 http://host/p.htm\n"
                               "18 c:\\p.htm\n"
                               "-1 last.htm");
  std::string const base = Shell::file_url(folder.path("a b/"));
  EXPECT_NE(base.find("a%20b/"), base.npos);
  EXPECT_EQ(map.find(1234), base + "page.htm") << "the file is tried again";
  EXPECT_EQ(map.find(16), base + "sub/x.htm#top");
  EXPECT_EQ(map.find(17), "http://host/p.htm");
  EXPECT_EQ(map.find(18), base + "c:/p.htm");
  EXPECT_EQ(map.find(-1), base + "last.htm");
  EXPECT_EQ(map.find(0), "");
  EXPECT_EQ(map.contents_page(), base + "index.htm");
  EXPECT_EQ(map.index_page(), base + "index.htm");
  folder.write("a b/help_idx.htm", "");
  EXPECT_EQ(map.index_page(), base + "help_idx.htm");
  std::cerr.rdbuf(before);
  EXPECT_EQ(errors.str(), "Cannot open HTM-mapfile: " + folder.path("a b/help.map") +
                              "\n5: ERROR: 1234 other.htm\n");
}

std::string text_of(std::string const & path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// A dialog that was added without a word in the help, and a page that has lost a part.
TEST(HelpMap, HasAPartOfAPageForEveryDialogAndCommand) {
  std::string const root = VELLUMAR_SOURCE_DIR "/";
  gHelpMap map(root + "doc/htm/vellmr.map");
  std::set<int> numbers;
  std::string const contexts = text_of(root + "app/shell/dialogs/context.h");
  std::regex const number("= (\\d+)");
  for (std::sregex_iterator at(contexts.begin(), contexts.end(), number), end; at != end; ++at)
    numbers.insert(std::stoi((*at)[1]));
  EXPECT_EQ(numbers.erase(0), 1u);
  for (cRepositoryEntry const & entry : cRepoImpl::get(typeid(cMenuHandlerBase)))
    numbers.insert(help_context(entry.name));
  EXPECT_GT(numbers.size(), 30u);
  for (int const context : numbers) {
    std::string const url = map.find(context);
    std::size_t const hash = url.find('#');
    ASSERT_TRUE(url.starts_with("file://") && hash != url.npos) << context;
    EXPECT_NE(text_of(url.substr(7, hash - 7)).find(" id=\"" + url.substr(hash + 1) + "\""),
              std::string::npos)
        << context << ": " << url;
  }
}

TEST(Help, FallsBackToTheContentsAndTellsWhenNothingCanShowIt) {
  TempFolder const folder;
  TestOutside outside;
  TestDesktop desktop;
  gHelp help(folder.write("x.map", "5 five.htm\n"), desktop);
  help.request(gHelp::Command::context, 5);
  help.request(gHelp::Command::context, 6);
  help.request(gHelp::Command::index);
  std::string const base = "browser|" + Shell::file_url(folder.path(""));
  EXPECT_EQ(desktop.started,
            (std::vector<std::string>{base + "five.htm", base + "index.htm", base + "index.htm"}));
  EXPECT_EQ(outside.shown.size(), 0u);
  desktop.programs.clear();
  help.request(gHelp::Command::contents);
  ASSERT_EQ(outside.shown.size(), 1u);
  EXPECT_NE(outside.shown[0].find("no browser could be started"), std::string::npos);
}

TEST(HelpBrowser, FillsTheCommandLineOfTheAssociation) {
  struct {
    char const *command, *expected;
  } const rows[] = {
      {"\"/opt/the browser\" \"%1\"", "[/opt/the browser][U]"},
      {"b", "[b][U]"},
      {"b -x=%1,%1 y", "[b][-x=%1,U][y]"},
      {"b 2 3 4 5 6 7 8 9 10 %1", "[b][2][3][4][5][6][7][8][9][10][U]"},
      {"  b\t\"\"  c\"d e\"f ", "[b][][cd ef][U]"},
      {"b \"open %1", "[b][open U]"},
      {"", ""},
  };
  for (auto const & row : rows)
    EXPECT_EQ(joined(Shell::filled_command(row.command, "U")), row.expected) << row.command;
}

// A page needs an address, since a browser takes "%" and "#" in it for its own.
TEST(OpenFile, GivesPagesToTheBrowserAndTheRestToItsProgram) {
  TestDesktop desktop;
  desktop.programs = {"browser", "writer"};
  EXPECT_TRUE(Shell::open_file("/a b/x.htm", desktop));
  desktop.association = "writer";
  EXPECT_TRUE(Shell::open_file("/a b/x.rtf", desktop));
  EXPECT_EQ(desktop.started,
            (std::vector<std::string>{"browser|file:///a%20b/x.htm", "writer|/a b/x.rtf"}));
  desktop.association = "";
  EXPECT_FALSE(Shell::open_file("/a b", desktop));
}

TEST(UserDesktop, FindsTheBrowserOfTheUser) {
  TempFolder const folder;
  Variable const config("XDG_CONFIG_HOME", folder.path("config"));
  Variable const data("XDG_DATA_HOME", folder.path("data"));
  Variable const shared("XDG_DATA_DIRS", folder.path("shared") + ":/nowhere");
  Variable const path("PATH", folder.path("bin"));
  Variable const none("BROWSER", "");
  gUserDesktop desktop;
  EXPECT_EQ(desktop.shell_command("open", ".htm"), "");
  std::filesystem::permissions(folder.write("bin/xdg-open", ""), std::filesystem::perms::owner_all);
  EXPECT_EQ(desktop.shell_command("open", ".htm"), "xdg-open \"%1\"");
  folder.write("shared/applications/mimeinfo.cache",
               "[MIME Cache]\ntext/html=gone.desktop;two.desktop;\n");
  folder.write("shared/applications/two.desktop",
               "[Desktop Entry]\nName=Two\nExec = two --class=%c %% %i \"%U\"\n"
               "[Desktop Action x]\nExec=wrong\n");
  EXPECT_EQ(desktop.shell_command("open", ".htm"), "two --class= %  \"%1\"");
  folder.write("config/mimeapps.list", "[Added Associations]\ntext/html=two.desktop\n"
                                       "[Default Applications]\r\ntext/html=one.desktop\r\n");
  folder.write("data/applications/one.desktop", "[Desktop Entry]\nExec=one %f\n");
  EXPECT_EQ(desktop.shell_command("open", ".html"), "one %1");
  EXPECT_EQ(desktop.shell_command("open", ".txt"), "xdg-open \"%1\"");
  EXPECT_EQ(desktop.shell_command("open", ".rtf"), "xdg-open \"%1\"");
  folder.write("config/mimeapps.list", "[Default Applications]\napplication/rtf=writer.desktop\n"
                                       "inode/directory=one.desktop\ntext/html=one.desktop\n");
  folder.write("data/applications/writer.desktop", "[Desktop Entry]\nExec=writer --new %U\n");
  EXPECT_EQ(desktop.shell_command("open", ".rtf"), "writer --new %1");
  EXPECT_EQ(desktop.shell_command("open", ""), "one %1");
  EXPECT_EQ(desktop.shell_command("print", ".rtf"), "");
  Variable const browser("BROWSER", "gone %s:xdg-open -n %s");
  EXPECT_EQ(desktop.shell_command("open", ".htm"), "xdg-open -n %1");
}

TEST(UserDesktop, StartsProgramsWithoutWaitingAndTellsWhenItCannot) {
  TempFolder const folder;
  gUserDesktop desktop;
  EXPECT_FALSE(desktop.start({}));
  EXPECT_FALSE(desktop.start({"no-such-program-anywhere", "x"}));
  EXPECT_FALSE(desktop.start({folder.path()})) << "a folder";
  std::string const script = folder.write("script", "#!/no/such/interpreter\n");
  std::filesystem::permissions(script, std::filesystem::perms::owner_all);
  EXPECT_FALSE(desktop.start({script})) << "found, and yet no program";
  std::string const done = folder.path("done");
  EXPECT_TRUE(desktop.start({"sh", "-c", "sleep 0.2; echo \"$1\" >\"$2\"", "sh", "a b", done}));
  EXPECT_FALSE(std::filesystem::exists(done));
  for (int i = 0; i < 500 && folder.read("done") != "a b\n"; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_EQ(folder.read("done"), "a b\n");
}

class SourceLink : public testing::Test {
protected:
  SourceLink() { settings("edit", "+$line \"$file\""); }
  ~SourceLink() override { settings("notepad.exe", "$file"); }

  static void settings(char const * program, char const * arguments) {
    Vapp::options_ini["srclink_editor_cmd"] = cat::make(program);
    Vapp::options_ini["srclink_editor_args"] = cat::make(arguments);
  }
  std::string command() { return joined(Shell::editor_command({"/s/a $line.h", 7}, desktop)); }

  TestDesktop desktop;
};

TEST_F(SourceLink, IsTheCommandOfTheSettings) {
  desktop.programs = {"edit", "/opt/my editor"};
  EXPECT_EQ(command(), "[edit][+7][/s/a $line.h]") << "the file's own name stays";
  EXPECT_EQ(joined(Shell::editor_command({"/s/a.h"}, desktop)), "[edit][+1][/s/a.h]");
  settings("/opt/my editor", "$file:$line");
  EXPECT_EQ(command(), "[/opt/my editor][/s/a $line.h:7]");
  settings("edit -w", "");
  EXPECT_EQ(command(), "[edit][-w]");
  settings("notepad.exe", "$file");
  EXPECT_EQ(command(), "[xdg-open][/s/a $line.h]");
  desktop.programs.insert("notepad.exe");
  EXPECT_EQ(command(), "[notepad.exe][/s/a $line.h]");
}

TEST_F(SourceLink, OpensFilesOfTheProjectAndTellsWhatIsMissing) {
  TempFolder const folder;
  TestOutside outside;
  Vapp::options_ini["vlp_dir"] = cat::make(folder.path());
  std::string const file = folder.write("src/a.h", "");
  EXPECT_FALSE(Shell::open_source({}, desktop));
  EXPECT_FALSE(Shell::open_source({"src/b.h", 1}, desktop));
  EXPECT_FALSE(Shell::open_source({"src/a.h", 1}, desktop));
  desktop.programs = {"edit"};
  EXPECT_TRUE(Shell::open_source({"src/a.h", 5}, desktop));
  EXPECT_EQ(desktop.started, std::vector<std::string>{"edit|+5|" + file});
  ASSERT_EQ(outside.shown.size(), 2u);
  EXPECT_EQ(outside.shown[0], "box: File '" + folder.path("src/b.h") + "' does not exist.");
  EXPECT_NE(outside.shown[1].find("editor 'edit' cannot be started"), std::string::npos);
}

} // namespace

// vellumar quick: documentation of any folder of sources, by the built-in project.

#include <filesystem>
#include <iostream>

#include "app/cli/exit_status.h"
#include "app/cli/run_options.h"
#include "app/cli/source_walk.h"
#include "app/options/options.h"
#include "app/options/settings.h"
#include "conv/conversion.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"

namespace fs = std::filesystem;

namespace {

struct Arguments {
  std::vector<std::string> folders;
  std::string out, title;
  gRunOptions run;
};

gPathstring absolute(std::string const & path) {
  gPathstring result(path);
  result.make_absolute(gFileSystem::get_curdir());
  return result.normalize(true);
}

std::string plural(std::size_t count, std::string const & one, std::string const & many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

// The styles of units in the built-in script.
struct Kind {
  char const *style, *one, *many;
};
constexpr Kind kinds[] = {{"class", "class", "classes"},
                          {"function", "function", "functions"},
                          {"method", "method", "methods"},
                          {"member", "member", "members"},
                          {"type", "type", "types"},
                          {"var", "variable", "variables"},
                          {"property", "property", "properties"},
                          {"event", "event", "events"},
                          {"unit", "unit", "units"}};

// "src" says nothing about what the sources are, but the folder around it does.
std::string title_of(gPathstring const & folder) {
  static std::set<std::string> const common = {"src", "source", "sources", "include", "inc", "lib"};
  fs::path const path(folder.c_str());
  std::string const name = path.filename().string();
  std::string const parent = path.parent_path().filename().string();
  return common.contains(name) && !parent.empty() ? parent : name;
}

class Quick {
public:
  Quick(Arguments const & arguments, gCommandContext & context)
      : arguments_(arguments),
        context_(context),
        out_(absolute(arguments.out)) {}

  int run() {
    if (!load_built_in() || !find_sources())
      return exit_refused;
    fill_project();
    int const status = run_project(arguments_.run, {"htm"}, context_);
    if (status == exit_ok || status == exit_reports)
      print_result();
    else if (status == exit_failed)
      context_.outside.tell("No documentation was written. The log tells why: " + failed_log());
    return status;
  }

private:
  bool refuse(std::string const & text) {
    context_.outside.tell(text);
    return false;
  }

  bool load_built_in() {
    gPathstring project = Vapp::ini_dir();
    return load_project(project.append("quick.vlp"), context_) ||
           refuse("The folder 'ini' that comes with the program belongs beside it.");
  }

  bool find_sources() {
    std::string const extensions =
        Vapp::option_string("ana/cpp_ext") + "; " + Vapp::option_string("ana/pas_ext");
    for (std::string const & name : arguments_.folders) {
      gPathstring const folder = absolute(name);
      if (gFileSystem::file_exists(folder))
        return refuse("'" + name + "' is a file. Name the folder that holds it.");
      if (!gFileSystem::dir_exists(folder))
        return refuse("Folder does not exist: " + name);
      roots_.push_back(folder);
      walk_sources(folder, out_, extensions, sources_);
    }
    for (gPathstring const & folder : sources_.left_out)
      context_.outside.tell(
          "Left out because of ';', '*', '?', a line feed or a blank at the end of its name: '" +
          folder + "'");
    for (gPathstring const & folder : sources_.unreadable)
      context_.outside.tell("Left out because it cannot be read: '" + folder + "'");
    return !sources_.folders.empty() ||
           refuse("No source file found. Sources have the extensions " + extensions +
                  "; hidden folders and build folders are left out.");
  }

  void fill_project() {
    std::string paths, files;
    for (gPathstring const & folder : sources_.folders)
      paths += (paths.empty() ? "" : ";") + folder;
    for (std::string const & extension : sources_.extensions)
      files += (files.empty() ? "*." : ";*.") + extension;
    auto group = make_ref<cMapObj>();
    group->set("path", cat::make(paths));
    group->set("files", cat::make(files));
    group->set("outgrp", cat::make(""));
    group->set("count", cat::make(static_cast<int>(sources_.files)));
    auto groups = make_ref<cMapObj>();
    groups->set("1", group);
    Vapp::options["inputfiles"] = cRef<cObj>(groups);
    Vapp::options["inputcurdir"] = cat::make(roots_.front());
    Vapp::options["out_dir"] = cat::make(out_);
    Vapp::options["atc_title"] = cat::make(title());
  }

  std::string title() const {
    if (!arguments_.title.empty())
      return arguments_.title;
    std::string text;
    for (gPathstring const & root : roots_)
      text += (text.empty() ? "" : ", ") + title_of(root);
    return text;
  }

  void print_result() const {
    gConversionResult const & result = Conv::last_result();
    std::size_t const cut = Vapp::incomplete_files().size();
    gString start;
    Vlb::add_shown(start, result.start);
    std::cout << "Start page: " << start
              << "\nSources:    " << plural(sources_.files, "file", "files");
    if (cut > 0)
      std::cout << ", " << cut << " of them not read whole (the log tells why)";
    std::cout << "\nDocumented: " << units(result) << "\nPages:      " << result.pages;
    gString shown;
    Vlb::add_shown(shown, log());
    std::cout << "\nLog:        " << shown << "\n";
  }

  // Where the run has put it: a question may have led to another folder.
  static gPathstring log() { return Vapp::option_path("out_dir").append("ana.log"); }

  // The log of the part that failed.
  static gPathstring failed_log() {
    return Vapp::ana_success ? Vapp::option_path("out_dir").append("htm.log") : log();
  }

  static std::string units(gConversionResult const & result) {
    std::string text;
    for (Kind const & kind : kinds) {
      auto const found = result.units.find(kind.style);
      if (found != result.units.end())
        text += (text.empty() ? "" : ", ") + plural(found->second, kind.one, kind.many);
    }
    return text.empty() ? "nothing" : text;
  }

  Arguments const & arguments_;
  gCommandContext & context_;
  gPathstring out_;
  std::vector<gPathstring> roots_;
  gSourceWalk sources_;
};

} // namespace

void add_quick(CLI::App & app, gCommandContext & context) {
  auto const arguments = std::make_shared<Arguments>();
  CLI::App * command =
      app.add_subcommand("quick", "Make HTML of folders of sources, without a project");
  // An empty name, as of a variable that isn't set, would be the current folder.
  CLI::Validator const named(
      [](std::string & text) { return std::string(text.empty() ? "The name is empty" : ""); }, "");
  command->add_option("SOURCE_DIR", arguments->folders, "A folder of sources")
      ->required()
      ->check(named);
  command->add_option("-o,--out", arguments->out, "The output folder")
      ->required()
      ->check(named)
      ->allow_extra_args(false);
  command->add_option("--title", arguments->title, "The title; the folder's name without it")
      ->allow_extra_args(false);
  arguments->run.add_to(*command);
  command->callback([arguments, &context] { context.status = Quick(*arguments, context).run(); });
}

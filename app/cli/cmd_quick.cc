// vellumar quick: documentation of any folder of sources, by the built-in project.

#include <filesystem>
#include <iostream>

#include "app/cli/exit_status.h"
#include "app/cli/run_options.h"
#include "app/cli/source_walk.h"
#include "app/options/options.h"
#include "app/options/settings.h"
#include "app/shell/run.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"

namespace fs = std::filesystem;

namespace {

struct Arguments {
  std::vector<std::string> sources;
  std::string title;
  gRunOptions run;
};

constexpr char const * default_out = "site";

gPathstring resolved(gPathstring const & path) {
  std::error_code error;
  return gPathstring(fs::weakly_canonical(path.c_str(), error).string());
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
        out_(gRunOptions::absolute(arguments.run.out.empty() ? default_out : arguments.run.out)) {}

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
    for (std::string const & name : arguments_.sources)
      roots_.push_back(gRunOptions::absolute(name));
    for (gPathstring const & root : roots_)
      sources_.roots.push_back(resolved(root));
    for (std::size_t i = 0; i < roots_.size(); ++i) {
      if (!take(roots_[i], arguments_.sources[i], extensions))
        return false;
    }
    tell_left_out(sources_.left_out,
                  "of ';', '*', '?', a line feed or a blank at an end of its name");
    tell_left_out(sources_.outside, "the link leads out of the folders");
    tell_left_out(sources_.unreadable, "it cannot be read");
    if (sources_.folders.empty())
      return refuse("No source file found. Sources have the extensions " + extensions +
                    "; hidden folders and build folders are left out.");
    return !holds_sources(out_, extensions);
  }

  bool take(gPathstring const & root, std::string const & name, std::string const & extensions) {
    if (gFileSystem::file_exists(root))
      return take_source(root, extensions, sources_) ||
             refuse("'" + name + "' is no source. Sources have the extensions " + extensions + ".");
    if (!gFileSystem::dir_exists(root))
      return refuse("Folder does not exist: " + name);
    walk_sources(root, out_, extensions, sources_);
    return true;
  }

  void tell_left_out(std::vector<gPathstring> const & paths, std::string const & reason) {
    for (gPathstring const & path : paths) {
      gString shown;
      Vlb::add_shown(shown, path);
      context_.outside.tell("Left out because " + reason + ": '" + shown + "'");
    }
  }

  // The walk leaves the output folder out, so sources in it have to be looked for.
  bool holds_sources(gPathstring const & folder, std::string const & extensions) {
    gSourceWalk found;
    if (gFileSystem::dir_exists(folder) && lies_below(sources_.roots, folder))
      walk_sources(folder, "", extensions, found);
    return !found.folders.empty() &&
           !refuse("Folder '" + folder + "' holds input files: " + found.folders.front().path +
                   ". Choose another output folder.");
  }

  static cRef<cObj> group(std::string const & paths, std::string const & files, std::size_t count) {
    auto group = make_ref<cMapObj>();
    group->set("path", cat::make(paths));
    group->set("files", cat::make(files));
    group->set("outgrp", cat::make(""));
    group->set("count", cat::make(static_cast<int>(count)));
    return group;
  }

  template <class List> static std::string joined(List const & parts, std::string const & begin) {
    std::string text;
    for (std::string const & part : parts)
      text += (text.empty() ? "" : ";") + begin + part;
    return text;
  }

  void fill_project() {
    auto groups = make_ref<cMapObj>();
    std::vector<std::string> whole;
    for (gSourceFolder const & folder : sources_.folders) {
      if (folder.chosen.empty())
        whole.push_back(folder.path);
      else
        groups->set(std::to_string(groups->size() + 1),
                    group(folder.path, joined(folder.chosen, ""), folder.chosen.size()));
    }
    if (!whole.empty())
      groups->set(std::to_string(groups->size() + 1),
                  group(joined(whole, ""), joined(sources_.extensions, "*."), sources_.files));
    Vapp::options["inputfiles"] = cRef<cObj>(groups);
    gPathstring const & root = roots_.front();
    Vapp::options["inputcurdir"] =
        cat::make(gFileSystem::dir_exists(root) ? root : gPathstring(root.dir_name()));
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
    gConversionResult const & result = gConversionRun::last_result();
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
  command->add_option("SOURCE", arguments->sources, "A folder of sources, or a source")
      ->required()
      ->check(not_empty());
  command->add_option("--title", arguments->title, "The title; the folder's name without it")
      ->allow_extra_args(false);
  arguments->run.add_to(*command);
  command->get_option("--out")->description("The output folder, 'site' without it");
  command->callback([arguments, &context] { context.status = Quick(*arguments, context).run(); });
}

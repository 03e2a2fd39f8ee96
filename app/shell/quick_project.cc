// Folders that hold nothing but sources make one group together; one where a source is left out has
// a group of its own, with the names of the others.

#include "app/shell/quick_project.h"

#include <filesystem>

#include "app/options/options.h"
#include "app/options/settings.h"
#include "app/shell/doxyfile_options.h"
#include "app/shell/run.h"
#include "store/text_form.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"

namespace fs = std::filesystem;

namespace {

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

std::string units(gConversionResult const & result) {
  std::string text;
  for (Kind const & kind : kinds) {
    auto const found = result.units.find(kind.style);
    if (found != result.units.end())
      text += (text.empty() ? "" : ", ") + plural(found->second, kind.one, kind.many);
  }
  return text.empty() ? "nothing" : text;
}

// "src" says nothing about what the sources are, but the folder around it does.
std::string title_of(gPathstring const & folder) {
  static std::set<std::string> const common = {"src", "source", "sources", "include", "inc", "lib"};
  fs::path const path(folder.c_str());
  std::string const name = path.filename().string();
  std::string const parent = path.parent_path().filename().string();
  return common.contains(name) && !parent.empty() ? parent : name;
}

cRef<cObj> group(std::string const & paths, std::string const & files, std::size_t count) {
  auto group = make_ref<cMapObj>();
  group->set("path", cat::make(paths));
  group->set("files", cat::make(files));
  group->set("outgrp", cat::make(""));
  group->set("count", cat::make(static_cast<int>(count)));
  return group;
}

// What the folder says about itself.
gPathstring start_text(gPathstring const & folder) {
  if (!gFileSystem::dir_exists(folder))
    return {};
  for (char const * name : {"README.md", "Readme.md", "readme.md", "README.markdown"}) {
    gPathstring path = folder;
    path.append(name);
    if (gFileSystem::file_exists(path))
      return path;
  }
  return {};
}

template <class List> std::string joined(List const & parts, std::string const & begin) {
  std::string text;
  for (std::string const & part : parts)
    text += (text.empty() ? "" : ";") + begin + part;
  return text;
}

std::string shown(std::string const & path) {
  gString text;
  Vlb::add_shown(text, path);
  return text;
}

} // namespace

gQuickProject::gQuickProject(std::vector<Source> sources, gPathstring out, std::string title,
                             Listener listener)
    : sources_(std::move(sources)),
      out_(std::move(out)),
      title_(std::move(title)),
      listener_(std::move(listener)) {}

void gQuickProject::take_doxyfile(gDoxyfile file) {
  found_.filter = Shell::doxyfile_filter(file);
  if (title_.empty())
    title_ = file.text("PROJECT_NAME");
  doxyfile_ = std::move(file);
}

gPathstring gQuickProject::file() {
  gPathstring folder = Vapp::ini_dir();
  return folder.append("quick.vlp");
}

std::string gQuickProject::extensions() const {
  cMapObj project;
  std::string reason;
  if (!file2map(file().c_str(), project, &reason)) {
    refuse(reason);
    return "";
  }
  cMapObj & ana = project.submap("ana");
  return cat::as_string(ana.at("cpp_ext")) + "; " + cat::as_string(ana.at("pas_ext"));
}

bool gQuickProject::refuse(std::string const & text) const {
  listener_.refuse(text);
  return false;
}

bool gQuickProject::find_sources(std::string const & extensions) {
  for (Source const & source : sources_)
    found_.roots.push_back(resolved(source.path));
  for (Source const & source : sources_) {
    if (!take(source, extensions))
      return false;
  }
  tell_left_out(found_.left_out, "of ';', '*', '?', a line feed or a blank at an end of its name");
  tell_left_out(found_.outside, "the link leads out of the folders");
  tell_left_out(found_.unreadable, "it cannot be read");
  if (found_.folders.empty())
    return refuse("No source file found. Sources have the extensions " + extensions +
                  "; hidden folders and build folders are left out.");
  return !holds_sources(out_, extensions);
}

bool gQuickProject::take(Source const & source, std::string const & extensions) {
  if (gFileSystem::file_exists(source.path)) {
    // A Doxyfile lists texts among its sources.
    return take_source(source.path, extensions, found_) || doxyfile_ ||
           refuse("'" + source.name + "' is no source. Sources have the extensions " + extensions +
                  ".");
  }
  if (!gFileSystem::dir_exists(source.path))
    return refuse("Folder does not exist: " + source.name);
  walk_sources(source.path, out_, extensions, found_);
  return true;
}

void gQuickProject::tell_left_out(std::vector<gPathstring> const & paths,
                                  std::string const & reason) const {
  for (gPathstring const & path : paths)
    listener_.note("Left out because " + reason + ": '" + shown(path) + "'");
}

// The walk leaves the output folder out, so sources in it have to be looked for.
bool gQuickProject::holds_sources(gPathstring const & folder,
                                  std::string const & extensions) const {
  gSourceWalk found;
  if (gFileSystem::dir_exists(folder) && lies_below(found_.roots, folder))
    walk_sources(folder, "", extensions, found);
  return !found.folders.empty() &&
         !refuse("Folder '" + folder + "' holds input files: " + found.folders.front().path +
                 ". Choose another output folder.");
}

void gQuickProject::fill_project() const {
  auto groups = make_ref<cMapObj>();
  std::vector<std::string> whole;
  for (gSourceFolder const & folder : found_.folders) {
    if (folder.chosen.empty())
      whole.push_back(folder.path);
    else
      groups->set(std::to_string(groups->size() + 1),
                  group(folder.path, joined(folder.chosen, ""), folder.chosen.size()));
  }
  if (!whole.empty())
    groups->set(std::to_string(groups->size() + 1),
                group(joined(whole, ""), joined(found_.extensions, "*."), found_.files));
  Vapp::options["inputfiles"] = cRef<cObj>(groups);
  gPathstring const & root = sources_.front().path;
  Vapp::options["inputcurdir"] =
      cat::make(gFileSystem::dir_exists(root) ? root : gPathstring(root.dir_name()));
  gPathstring text = start_text(root);
  if (text.empty() && doxyfile_)
    text = start_text(doxyfile_->folder());
  if (!text.empty())
    Vapp::options.submap("htm")["start_text"] = cat::make(text);
  if (doxyfile_)
    Shell::take_doxyfile_options(*doxyfile_);
  Vapp::options["out_dir"] = cat::make(out_);
  Vapp::options["atc_title"] = cat::make(title());
}

std::string gQuickProject::title() const {
  if (!title_.empty())
    return title_;
  std::string text;
  for (Source const & source : sources_)
    text += (text.empty() ? "" : ", ") + title_of(source.path);
  return text;
}

std::string gQuickProject::summary() const {
  gConversionResult const & result = gConversionRun::last_result();
  std::size_t const cut = Vapp::incomplete_files().size();
  std::string text = "Start page: " + shown(result.start) +
                     "\nSources:    " + plural(found_.files, "file", "files");
  if (cut > 0)
    text += ", " + std::to_string(cut) + " of them not read whole (the log tells why)";
  text += "\nRead:       " + gRun::last_result().read;
  text += "\nDocumented: " + units(result) +
          "\nOnly named: " + plural(result.without_text, "unit", "units") +
          "\nPages:      " + std::to_string(result.pages);
  // Where the run has put it: a question may have led to another folder.
  return text + "\nLog:        " + shown(Vapp::option_path("out_dir").append("ana.log")) + "\n";
}

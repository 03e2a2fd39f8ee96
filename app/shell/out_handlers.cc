// The driver leaves in the project's options what it settled, and starts the converter with a copy.

#include "app/shell/out_handlers.h"

#include "app/options/options.h"
#include "app/shell/facts.h"
#include "app/shell/run.h"
#include "vlb/outside.h"

namespace {

void set_option(std::string const & target, std::string const & key, cRef<cObj> const & value) {
  Vapp::options.submap(target).set(key, value);
}

void set_output_folder(char const * target) {
  gPathstring folder = Vapp::option_path("out_dir");
  folder.append(target);
  set_option(target, "out_dir", cat::make(folder));
}

} // namespace

void gVappOutHandler::resolve(std::string const & key) const {
  std::string const path = std::string(target()) + "/" + key;
  Vapp::gOptionRow const & row = *Vapp::find_row(path);
  bool const use_default = Vapp::flag_in(Vapp::options, *Vapp::find_row(path + "_default"));
  std::string file = cat::as_string(use_default ? default_of(row) : entry_of(Vapp::options, row));
  set_option(target(), "cur_" + key, cat::make(Vapp::make_absolute_vlp(file)));
}

int gVappOutHandler::OnCommand() {
  Vapp::options["target"] = cat::make(target());
  set_output_folder(target());
  resolve_files();
  show_msgwindow(true);
  gConversionRun::start(Vapp::conversion_input(target()), converter(), finished_);
  return 1;
}

int gVappOutHandler::OnUpdateCommand() {
  return Vapp::ana_success && Shell::idle();
}

gConversionRun::Converter gOutHTML::converter() const {
  return Htm::make_manual;
}

void gOutHTML::resolve_files() const {
  resolve("vlt");
  resolve("helpers_dir");
}

gConversionRun::Converter gOutRTF::converter() const {
  return RTF::make_manual;
}

void gOutRTF::resolve_files() const {
  resolve("vlt");
  resolve("style");
}

gConversionRun::Converter gOutHLP::converter() const {
  return RTF::make_manual;
}

void gOutHLP::resolve_files() const {
  resolve("vlt");
  resolve("style");
  resolve("hpj");
}

int gOutBreakHandler::OnCommand() {
  Vapp::user_break = true;
  return 1;
}

int gOutBreakHandler::OnUpdateCommand() {
  return Vapp::output_active && !Vapp::user_break;
}

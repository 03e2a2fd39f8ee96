// A converter has no parameters: the driver leaves all that it needs in the project's options
// before the thread starts, and nobody changes them while it runs.

#include "app/shell/out_handlers.h"

#include "app/options/settings.h"
#include "app/shell/facts.h"
#include "app/shell/worker.h"
#include "conv/conversion.h"
#include "vlb/outside.h"

namespace {

void set_option(char const * target, std::string const & key, cRef<cObj> const & value) {
  Vapp::options.submap(target).set(key, value);
}

std::string option_key(char const * target, std::string const & key) {
  return std::string(target) + "/" + key;
}

void set_output_folder(char const * target) {
  gPathstring folder = Vapp::option_path("out_dir");
  folder.append(Vapp::option_string("target"));
  set_option(target, "out_dir", cat::make(folder));
}

} // namespace

void gVappOutHandler::resolve(char const * key, char const * default_file) const {
  bool const use_default =
      Vapp::option_bool(option_key(target(), std::string(key) + "_default"), false);
  gPathstring const path = use_default ? Vapp::ini_dir().append(default_file)
                                       : Vapp::option_path(option_key(target(), key));
  set_option(target(), std::string("cur_") + key, cat::make(path));
}

int gVappOutHandler::OnCommand() {
  Vapp::options["target"] = cat::make(target());
  set_output_folder(target());
  resolve_files();
  Conv::open_log();
  Vapp::user_break = false;
  show_msgwindow(true);
  Shell::start_worker(converter(), nullptr);
  return 1;
}

int gVappOutHandler::OnUpdateCommand() {
  return Vapp::ana_success && Shell::idle();
}

gVappOutHandler::gConverter gOutHTML::converter() const {
  return Htm::make_manual;
}

void gOutHTML::resolve_files() const {
  resolve("vlt", "htm.vlt");
  // A folder of the user's own is passed on as it was written.
  bool const use_default = Vapp::option_bool("htm/helpers_dir_default", false);
  set_option("htm", "cur_helpers_dir",
             cat::make(use_default ? gString(Vapp::ini_dir().append("htm_helpers"))
                                   : Vapp::option_string("htm/helpers_dir")));
}

gVappOutHandler::gConverter gOutRTF::converter() const {
  return RTF::make_manual;
}

void gOutRTF::resolve_files() const {
  resolve("vlt", "rtf.vlt");
  resolve("style", "rtfstyle.rtf");
}

gVappOutHandler::gConverter gOutHLP::converter() const {
  return RTF::make_manual;
}

void gOutHLP::resolve_files() const {
  resolve("vlt", "hlp.vlt");
  resolve("style", "hlpstyle.rtf");
  resolve("hpj", "hlp.hpj");
}

int gOutBreakHandler::OnCommand() {
  Vapp::user_break = true;
  return 1;
}

int gOutBreakHandler::OnUpdateCommand() {
  return Vapp::output_active && !Vapp::user_break;
}

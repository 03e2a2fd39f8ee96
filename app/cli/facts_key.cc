#include "app/cli/facts_key.h"

#include <set>

#include "app/options/options.h"
#include "store/json_text.h"
#include "vlb/content_hash.h"
#include "vlb/gfilesystem.h"
#include "vlb/random_name.h"

// The bytes of the program stand for its version: they are the same on every machine that it was
// copied to. Without them nothing fits.
std::string key_of_reading() {
  static std::set<std::string> const left_out = {"inputfiles", "inputcurdir", "out_dir", "atc_file",
                                                 "atc_title",  "target",      "htm",     "rtf",
                                                 "hlp",        "msg",         "vls_file"};
  std::string program;
  if (!gFileSystem::read_file(gPathstring("/proc/self/exe"), program))
    program = Vlb::random_name();
  gContentHash hash = Vlb::content_hash(program);
  for (cIterObj option = Vapp::options.begin(); option.valid(); option++)
    if (std::string const name = cat::as_string(option.key()); !left_out.contains(name))
      hash = Vlb::content_hash(name + "=" + to_json(*option), hash);
  return hash.text();
}

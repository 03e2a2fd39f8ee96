// What every fuzz target needs: a project with its defaults, and tables emptied after each input.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "app/options/completion.h"
#include "app/options/defaults.h"
#include "app/options/options.h"
#include "store/gglobalobj.h"
#include "vlb/gexception.h"
#include "vlb/gsrcfile.h"

inline std::string_view fuzz_text(std::uint8_t const * data, std::size_t size) {
  return {reinterpret_cast<char const *>(data), size};
}

inline void set_up_project() {
  Vapp::build_defaults(Vapp::options);
  Vapp::complete_options(Vapp::options);
  Global::objects().init_all();
}

// Runs `work` the way a stage does: a fatal error costs the file, and nothing stays behind.
template <class Work> void fuzz_one(Work work) {
  static bool const ready = (set_up_project(), true);
  (void)ready;
  try {
    work();
  } catch (gExcFatalErr const &) {
  }
  Global::objects().reset_all();
}

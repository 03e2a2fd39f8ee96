// What the macros of a text stand for where the target has no fields of its own.

#include <cstdlib>
#include <ctime>

#include "conv/set/setter.h"

namespace {

// A stated time makes the result reproducible; it is then that of Greenwich.
std::tm moment() {
  std::tm parts{};
  if (char const * const stated = std::getenv("SOURCE_DATE_EPOCH")) {
    std::time_t const seconds = std::strtoll(stated, nullptr, 10);
    gmtime_r(&seconds, &parts);
  } else {
    std::time_t const now = std::time(nullptr);
    localtime_r(&now, &parts);
  }
  return parts;
}

std::string formatted(char const * form) {
  std::tm const parts = moment();
  char text[64];
  return std::string(text, std::strftime(text, sizeof text, form, &parts));
}

} // namespace

std::string gSetter::macro_text(std::string_view name) {
  if (name == "cur_file")
    return document_.name;
  if (name == "cur_date")
    return formatted("%Y-%m-%d");
  if (name == "cur_time")
    return formatted("%H:%M");
  return {};
}

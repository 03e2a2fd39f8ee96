#include "vlb/messages.h"

namespace Msg {

std::span<gMessage const * const> catalogue() {
  static gMessage const * const rows[] = {
#define VLB_MESSAGE(name, number, severity, text, advice) &name,
#define VLB_FATAL(name, number, text, advice) &name,
#include "vlb/messages.def"
#undef VLB_MESSAGE
#undef VLB_FATAL
  };
  return rows;
}

} // namespace Msg

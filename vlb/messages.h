// The catalogue of all reports; its rows stand in messages.def.
#pragma once

#include <span>

#include "vlb/gmessage.h"

namespace Msg {

#define VLB_MESSAGE(name, number, severity, text, advice)                                          \
  inline constexpr gMessage name(number, Msg::severity, text, advice);
#define VLB_FATAL(name, number, text, advice)                                                      \
  inline constexpr gMessage name(number, Msg::error, text, advice, gMessage::Form::bare);
#include "vlb/messages.def"
#undef VLB_MESSAGE
#undef VLB_FATAL

// All rows, in their order.
std::span<gMessage const * const> catalogue();

} // namespace Msg

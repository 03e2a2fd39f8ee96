// Each command has the page of the dialog that it opens; the others a part of the page about the
// window.

#include "app/shell/window/help_contexts.h"

#include <string>

namespace {

struct Row {
  std::string_view name;
  int context;
};

constexpr Row rows[] = {{"gVlpNew", 100},          {"gDefOutdir", 101},       {"gDefSrc", 102},
                        {"fDefTitle", 104},        {"gOutHM", 105},           {"about", 114},
                        {"gAnaPre", 200},          {"gAnaopt", 210},          {"gAnaAlloc", 220},
                        {"gAnaSrcpat", 230},       {"gOutOptions", 240},      {"gMsgOptions", 250},
                        {"gExtraOpt", 260},        {"gDefAttr", 270},         {"gVlpQuick", 301},
                        {"gVlpOpen", 302},         {"gVlpSave", 303},         {"gVlpSaveAs", 303},
                        {"gOpenVLS", 304},         {"gAnaStart", 310},        {"gOutHTML", 311},
                        {"gOutRTF", 311},          {"gOutHLP", 311},          {"gOpenResult", 312},
                        {"gAnaBreakHandler", 313}, {"gOutBreakHandler", 313}, {"messages", 320}};

} // namespace

int help_context(std::string_view command) {
  for (Row const & row : rows)
    if (row.name == command)
      return row.context;
  return main_window_context;
}

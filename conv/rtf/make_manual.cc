// Both targets are RTF; they differ in what stands around the texts.

#include <algorithm>

#include "app/options/options.h"
#include "conv/conversion.h"
#include "conv/rtf/help.h"
#include "conv/rtf/rtf_document.h"

namespace {

bool make_document(gConversion & conversion) {
  if (!conversion.start())
    return false;
  gRtfTemplate style;
  style.load(gString(conversion.option_string("cur_style")));
  // The name comes from a file: it must not lead out of the folder.
  std::string name = conversion.document().name + ".rtf";
  std::ranges::replace(name, '/', '_');
  conversion.write(name, gRtfDocument(conversion, style).text());
  return conversion.finish(name);
}

} // namespace

void RTF::make_manual(void *) {
  if (Vapp::option_string("target") == "hlp")
    Conv::run("hlp", make_help);
  else
    Conv::run("rtf", make_document);
}

// Both targets are RTF; they differ in what stands around the texts.

#include <algorithm>

#include "conv/conversion.h"
#include "conv/rtf/help.h"
#include "conv/rtf/rtf_document.h"
#include "conv/rtf/rtf_links.h"

namespace {

bool make_document(gConversion & conversion) {
  if (!conversion.start())
    return false;
  gRtfTemplate style;
  style.load(conversion.input().style);
  // The name comes from a file: it must not lead out of the folder.
  std::string name = conversion.document().name + ".rtf";
  std::ranges::replace(name, '/', '_');
  std::string const text = gRtfDocument(conversion, style).text();
  Rtf::report_dead_links(text, gPathstring(conversion.input().folder).append(name));
  conversion.write(name, text);
  return conversion.finish(name);
}

} // namespace

gConversionResult RTF::make_manual(gConversionInput const & input) {
  return Conv::run(input, input.target == "hlp" ? make_help : make_document);
}

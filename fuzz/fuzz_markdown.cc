// A text in Markdown: any bytes become nodes, none of them deep.

#include <cstdlib>

#include "conv/set/markdown.h"
#include "quiet_run.h"

namespace {

int depth_of(gNodeList const & nodes) {
  int depth = 0;
  for (gNode const & node : nodes)
    depth = std::max(depth, 1 + depth_of(node.children));
  return depth;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] {
    if (depth_of(read_markdown(fuzz_text(data, size)).body) > 120)
      std::abort();
  });
  return 0;
}

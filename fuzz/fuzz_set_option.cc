// Assignments as they come from the command line, one a line: refused without a trace, or taken so
// that a run can read its input from the result and the result survives being saved.

#include <cstdlib>
#include <sstream>

#include "app/options/run_input.h"
#include "app/options/set_option.h"
#include "quiet_run.h"
#include "store/text_form.h"

namespace {

std::vector<std::string> lines_of(std::string_view text) {
  std::vector<std::string> lines;
  std::istringstream in{std::string(text)};
  for (std::string line; std::getline(in, line);)
    lines.push_back(line);
  return lines;
}

void wants(bool condition) {
  if (!condition)
    std::abort();
}

void save_and_load(cMapObj const & tree) {
  std::ostringstream written;
  cMapObj again;
  if (tree.writeobj(written))
    wants(text2map(written.str(), "again.vlp", again) && again.equal(tree));
}

void assign(std::vector<std::string> const & assignments) {
  cMapObj before;
  before.assign(Vapp::options);
  if (Vapp::gSetRefusal const refusal = Vapp::set_options(assignments)) {
    wants(refusal->index < assignments.size() && !refusal->reason.empty());
    wants(Vapp::options.equal(before));
    return;
  }
  Vapp::run_input();
  save_and_load(Vapp::options);
  Vapp::options.assign(before);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] { assign(lines_of(fuzz_text(data, size))); });
  return 0;
}

// Transformation scripts: any text gives rules, and using them ends.

#include <cstdlib>

#include "conv/vlt/rules.h"
#include "quiet_run.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  gVltRules rules;
  rules.parse(fuzz_text(data, size), "fuzz.vlt");
  gVltValues values;
  std::size_t longest = 1;
  for (std::size_t i = 0; i < vlt_value_count; i += 2) // every second one is empty
    values.set(static_cast<gVltValue>(i), "value");
  for (std::size_t i = 0; i < vlt_rule_count; ++i) {
    std::string out;
    rules.apply(static_cast<gVltRule>(i), "x", values, out);
    longest = std::max(longest, out.size());
  }
  // Each value takes a "$" and at least two letters, so a use can't outgrow its script by much.
  if (longest > 10 + 5 * size)
    std::abort();
  return 0;
}

// The reader of Pascal declarations, from any place that a file is included at: whatever the bytes
// are, its answer is consistent.

#include <cstdlib>

#include "ana/decl/readers.h"

namespace {

using namespace Decl;

void expect(bool good) {
  if (!good)
    std::abort();
}

void check(gFileDeclarations const & file, std::uint32_t size) {
  auto const inside = [&](gRange range) { expect(range.begin <= size && range.end <= size); };
  auto const count = static_cast<std::int32_t>(file.items.size());
  for (std::int32_t at = 0; at < count; ++at) {
    gDeclaration const & one = file.items[static_cast<std::size_t>(at)];
    expect(one.kind != gKind::none && one.line > 0 && one.column > 0 && one.end_line >= one.line);
    expect(one.scope < at && one.statement <= at && one.statement >= 0);
    expect(one.condition < static_cast<std::int32_t>(file.conditions.size()));
    expect(one.first_param + one.params <= file.parameters.size());
    expect(!one.name.empty() && one.whole.begin <= one.name.begin && one.name.end <= one.whole.end);
    for (gRange const range :
         {one.whole, one.text, one.template_head, one.qualifier, one.name, one.parameter_list,
          one.result, one.bases, one.initialiser, one.attributes, one.trailing, one.body})
      inside(range);
    if (one.scope >= 0) {
      gDeclaration const & outer = file.items[static_cast<std::size_t>(one.scope)];
      expect(outer.body.begin <= one.name.begin && one.name.end <= outer.body.end);
    }
  }
  for (gParam const & one : file.parameters)
    expect(!one.name.empty() && one.whole.begin <= one.name.begin && one.name.end <= one.whole.end);
  std::uint32_t last = 0;
  for (gComment const & one : file.comments) {
    expect(one.whole.begin >= last && one.whole.end > one.whole.begin && one.whole.end <= size);
    expect(one.scope < count && one.declaration < count && one.code_behind <= size);
    last = one.whole.end;
  }
  for (gSkipped const & one : file.skipped) {
    inside(one.whole);
    expect(one.line > 0 && one.end_line >= one.line && one.scope < count);
  }
  for (gInclude const & one : file.includes) {
    inside(one.name);
    expect(one.scope < count);
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  if (size == 0)
    return 0;
  gPascalContext context;
  context.section = static_cast<gPascalContext::Section>(data[0] % 6);
  context.block = static_cast<gPascalContext::Block>(data[0] / 6 % 6);
  std::string_view const text(reinterpret_cast<char const *>(data) + 1, size - 1);
  check(read_pascal(text, context), static_cast<std::uint32_t>(text.size()));
  return 0;
}

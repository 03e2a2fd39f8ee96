// The reader of C and C++ declarations: any bytes give ranges within the text, scopes in front of
// their members, and indices that exist.

#include <cstdlib>

#include "ana/decl/readers.h"

namespace {

void check(bool holds) {
  if (!holds)
    std::abort();
}

void check_range(Decl::gRange range, std::size_t size) {
  check(range.empty() || range.end <= size);
}

void check_declarations(std::string_view text, Decl::gFileDeclarations const & file) {
  auto const size = text.size();
  for (std::size_t at = 0; at < file.items.size(); ++at) {
    Decl::gDeclaration const & one = file.items[at];
    for (Decl::gRange range : {one.whole, one.text, one.template_head, one.qualifier, one.name,
                               one.parameter_list, one.result, one.bases, one.initialiser,
                               one.attributes, one.trailing, one.body, one.arguments})
      check_range(range, size);
    check(one.scope < static_cast<std::int32_t>(at) &&
          one.statement <= static_cast<std::int32_t>(at));
    check(one.condition < static_cast<std::int32_t>(file.conditions.size()));
    check(one.first_param + one.params <= file.parameters.size());
    check(one.line > 0 && one.column > 0);
    Decl::shown_name(text, file, one);
    Decl::one_line(text, one.text);
  }
  for (Decl::gComment const & one : file.comments) {
    check(one.code_before <= one.whole.begin && one.whole.end <= one.code_behind);
    check(one.scope < static_cast<std::int32_t>(file.items.size()));
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  std::string_view const text(reinterpret_cast<char const *>(data), size);
  Decl::gMacroTable macros;
  macros.collect(text);
  check_declarations(text, Decl::read_cpp(text, macros));
  return 0;
}

// The numbers of enumerations: a case a line, "source => name written number, ..."; Pascal begins
// with "type".
#include "ana/decl/enum_values.h"

#include <gtest/gtest.h>

#include "decl_text.h"

namespace Decl {

namespace {

std::string values_of(std::string const & source) {
  bool const pascal = source.starts_with("type ");
  gSyntax const syntax = pascal ? gSyntax::pascal : gSyntax::cpp;
  std::string const text = pascal ? "unit u; interface " + source + " implementation end." : source;
  gFileDeclarations const file = pascal ? read_pascal(text, {}) : read_cpp(text, {});
  std::string all;
  for (std::size_t i = 0; i < file.items.size(); ++i)
    if (file.items[i].kind == gKind::enum_ || file.items[i].kind == gKind::enum_class ||
        file.items[i].kind == gKind::enumeration)
      for (gEnumValue const & value : enum_values(text, file, i, syntax))
        all += (all.empty() ? "" : ", ") + value.name +
               (value.written.empty() ? "" : " " + value.written) + " " +
               (value.number.empty() ? "?" : value.number);
  return all;
}

TEST(EnumValues, OneLineCases) {
  check_lines("enum_values.cases", values_of);
}

} // namespace

} // namespace Decl

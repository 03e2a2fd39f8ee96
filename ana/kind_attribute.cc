#include "ana/kind_attribute.h"

#include "ana/decl/declaration.h"
#include "app/options/run_input.h"

void add_kind_attribute(gRunInput & input) {
  auto const [values, added] = input.attributes.try_emplace("KIND");
  input.has_kinds = added;
  if (!added)
    return;
  values->second["undefined"] = gString();
  constexpr int last = static_cast<int>(Decl::gKind::type);
  for (int kind = static_cast<int>(Decl::gKind::none) + 1; kind <= last; ++kind) {
    gString const word(Decl::kind_word(static_cast<Decl::gKind>(kind)));
    values->second[word] = word;
  }
  for (gString const word : {"topic", "page", "mainpage", "file"}) // texts of their own
    values->second[word] = word;
}

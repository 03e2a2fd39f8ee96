#include "fuzz/planted/planted.h"

#include <climits>
#include <memory>

namespace {

// Byte by byte: a comparison as a whole could be guessed without any coverage.
bool begins(std::string_view text, std::string_view with) {
  if (text.size() < with.size())
    return false;
  for (std::size_t i = 0; i < with.size(); ++i)
    if (text[i] != with[i])
      return false;
  return true;
}

} // namespace

int planted_overrun(std::string_view text) {
  if (!begins(text, "FUZZ!"))
    return 0;
  auto const copy = std::make_unique<char[]>(text.size());
  text.copy(copy.get(), text.size());
  return copy[text.size()];
}

int planted_overflow(std::string_view text) {
  if (!begins(text, "ADD") || text.size() < 5)
    return 0;
  return text[3] == '9' && text[4] == '9' ? INT_MAX - 98 + text[3] + text[4] : 0;
}

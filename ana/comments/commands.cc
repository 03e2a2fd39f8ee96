// The table is small and sorted but for case; a copy in plain order is searched.
#include "ana/comments/commands.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

constexpr gCommand rows[] = {
#define VLB_COMMAND(name, kind, target, where) {name, gCommandKind::kind, target, where},
#include "ana/comments/commands.def"
#undef VLB_COMMAND
};

using Rows = std::array<gCommand, std::size(rows)>;

Rows sorted() {
  Rows all{};
  std::copy(std::begin(rows), std::end(rows), all.begin());
  std::sort(all.begin(), all.end(),
            [](gCommand const & a, gCommand const & b) { return a.name < b.name; });
  return all;
}

} // namespace

std::span<gCommand const> Commands::all() {
  static Rows const table = sorted();
  return table;
}

gCommand Commands::find(std::string_view name) {
  auto const table = all();
  auto const at = std::lower_bound(
      table.begin(), table.end(), name,
      [](gCommand const & row, std::string_view wanted) { return row.name < wanted; });
  return at != table.end() && at->name == name ? *at : gCommand();
}

gCommand Commands::at(std::string_view text, std::size_t & length) {
  length = 1;
  if (text.size() < 2 || (text[0] != '@' && text[0] != '\\'))
    return {};
  while (length < text.size() && is_letter(text[length]))
    ++length;
  if (length == 2 && text[1] == 'f' && length < text.size() && is_one_of(text[2], "[{("))
    ++length;
  else
    while (length > 1 && length < text.size() && Vlb::is_digit(text[length]))
      ++length;
  if (length < text.size() && Vlb::is_word(text[length]))
    return {};
  return find(text.substr(1, length - 1));
}

bool Commands::begins_part(gCommandKind kind) {
  return kind == gCommandKind::entry || kind == gCommandKind::named || kind == gCommandKind::refs;
}

// A program is compiled with the numbers of one day, and the help file comes later; so no number
// may change its meaning.

#include "conv/rtf/help_map.h"

#include <charconv>
#include <optional>
#include <set>

#include "vlb/gstring.h"

namespace {

// Programs keep these numbers with a sign.
constexpr std::uint32_t last = INT32_MAX;

std::string_view next_word(std::string_view & line) {
  std::size_t begin = 0;
  while (begin < line.size() && Vlb::is_space(line[begin]))
    ++begin;
  std::size_t end = begin;
  while (end < line.size() && !Vlb::is_space(line[end]))
    ++end;
  std::string_view const word = line.substr(begin, end - begin);
  line.remove_prefix(end);
  return word;
}

std::optional<std::uint32_t> number_in(std::string_view word) {
  bool const hex = word.starts_with("0x") || word.starts_with("0X");
  word.remove_prefix(hex ? 2 : 0);
  std::uint32_t number = 0;
  char const * const end = word.data() + word.size();
  auto const [rest, error] = std::from_chars(word.data(), end, number, hex ? 16 : 10);
  bool const whole = rest == end || *rest == 'u' || *rest == 'U' || *rest == 'l' || *rest == 'L';
  if (error != std::errc() || !whole)
    return std::nullopt;
  return number;
}

bool is_name(std::string_view word) {
  for (char const c : word)
    if (!Vlb::is_word(c) && c != '.')
      return false;
  return !word.empty();
}

} // namespace

namespace {

// Hands the words of each line that has some to `take`: a name, maybe behind "#define", and a
// number.
template <class Take> void for_each_line(std::string_view text, Take take) {
  while (!text.empty()) {
    std::size_t const end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    std::string_view name = next_word(line);
    if (name == "#define")
      name = next_word(line);
    if (!name.empty())
      take(name, is_name(name) ? number_in(next_word(line)) : std::nullopt);
  }
}

} // namespace

Help::gNumbers Help::read_map(std::string_view text) {
  gNumbers numbers;
  for_each_line(text, [&](std::string_view name, std::optional<std::uint32_t> number) {
    if (number)
      numbers.try_emplace(Vlb::to_upper(name), *number);
  });
  return numbers;
}

bool Help::is_map(std::string_view text) {
  std::size_t entries = 0, others = 0;
  for_each_line(text, [&](std::string_view, std::optional<std::uint32_t> number) {
    ++(number ? entries : others);
  });
  return entries > others || others == 0;
}

Help::gNumbers Help::number(std::vector<std::string> const & names, gNumbers const & before,
                            gNumbers const & others, std::uint32_t base) {
  std::set<std::uint32_t> taken;
  for (auto const & [name, number] : others)
    taken.insert(number);
  std::uint32_t next = base;
  gNumbers kept, numbers;
  for (auto const & [name, number] : before) {
    if (number >= next && number < last)
      next = number + 1;
    if (taken.insert(number).second)
      kept[name] = number;
  }
  for (std::string const & name : names) {
    if (others.contains(name) || numbers.contains(name))
      continue;
    auto const old = kept.find(name);
    while (old == kept.end() && !taken.insert(next).second)
      next = next < last ? next + 1 : 1;
    numbers[name] = old != kept.end() ? old->second : next;
  }
  return numbers;
}

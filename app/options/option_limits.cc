// One test for each kind of row; a refusal names the last key, since windows and commands tell the
// rest of the path themselves.
#include "app/options/option_limits.h"

#include <algorithm>

#include "app/options/option_rows.h"

namespace Vapp {

namespace {

constexpr std::string_view not_in_file_names = "\\/:*?<>|\"";

gCheck refuse(gOptionRow const & row, std::string const & limit) {
  return gRefusal{field_none, std::string(key_of(row)) + limit};
}

gCheck check_number(gOptionRow const & row, int number) {
  auto const [low, high] = row.limits;
  if (number >= low && number <= high)
    return std::nullopt;
  return refuse(row, " is a number from " + std::to_string(low) +
                         (high == INT_MAX ? " on" : " to " + std::to_string(high)));
}

gCheck check_list(gOptionRow const & row, cObj const & list) {
  std::size_t const wanted = row.numbers.size();
  if (static_cast<std::size_t>(list.size()) != wanted)
    return refuse(row, " has " + std::to_string(wanted) + " elements");
  for (cIterObj it = list.begin(); it.valid(); it++) {
    int number = row.limits.low;
    cat::read(it.valref(), number);
    if (gCheck const refusal = check_number(row, number))
      return refusal;
  }
  return std::nullopt;
}

gCheck check_choice(gOptionRow const & row, std::string_view text) {
  std::vector<std::string> names;
  for (gChoice const & choice : row.choices) {
    if (choice.value == text)
      return std::nullopt;
    names.push_back('"' + std::string(choice.value) + '"');
  }
  return refuse(row, " is one of " + join(names));
}

gCheck check_text(gOptionRow const & row, std::string const & text) {
  if (row.rule == gTextRule::report_numbers && text.find_first_not_of("0123456789, ") != text.npos)
    return refuse(row, " holds numbers, separated by commas");
  if (row.rule == gTextRule::extensions && text.find_first_of(not_in_file_names) != text.npos)
    return gRefusal{field_none,
                    "File names cannot contain the following characters:\n\\ / : * ? < > \" |"};
  return row.choices.empty() ? std::nullopt : check_choice(row, text);
}

std::string once_each(std::string const & text) {
  std::string kept;
  for (char c : text)
    if (!Vlb::is_space(c) && !Vlb::is_letter(c) && !Vlb::is_digit(c) && kept.find(c) == kept.npos)
      kept += c;
  return kept;
}

} // namespace

gCheck check_limits(gOptionRow const & row, cObj const & value) {
  switch (row.type) {
  case gOptionType::number: {
    int const * number = cat::value_of<int>(value);
    return number ? check_number(row, *number) : std::nullopt;
  }
  case gOptionType::numbers:
    return check_list(row, value);
  case gOptionType::text: {
    std::string const * text = cat::value_of<std::string>(value);
    return text ? check_text(row, *text) : std::nullopt;
  }
  default:
    return std::nullopt;
  }
}

gCheck check_limits(cObj const & before, cObj const & after) {
  for (gOptionRow const & row : option_rows()) {
    if (row.tree != gOptionTree::project)
      continue;
    cRef<cObj> const now = entry_of(after, row);
    cRef<cObj> const old = entry_of(before, row);
    if (!now || (old && old->equal(*now)))
      continue;
    if (gCheck const refusal = check_limits(row, *now))
      return refusal;
  }
  return std::nullopt;
}

std::string cleaned(gTextRule rule, std::string const & text) {
  if (rule == gTextRule::frame_characters)
    return once_each(text);
  std::string kept = text;
  if (rule == gTextRule::extensions)
    std::erase_if(kept, [](char c) { return not_in_file_names.find(c) != std::string_view::npos; });
  return kept;
}

} // namespace Vapp

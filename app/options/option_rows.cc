// Values by their rows.
#include "app/options/option_rows.h"

#include "app/options/settings.h"

namespace Vapp {

namespace {

cRef<cObj> list_of(std::span<int const> numbers) {
  auto list = make_ref<cVectorObj>();
  for (int number : numbers)
    list->append(cat::make(number));
  return list;
}

template <class Value> Value value_in(cObj const & tree, gOptionRow const & row) {
  Value value{};
  if (!cat::read(entry_of(tree, row), value))
    cat::read(default_of(row), value);
  return value;
}

} // namespace

cRef<cObj> default_of(gOptionRow const & row) {
  switch (row.type) {
  case gOptionType::flag:
    return cat::make(row.number != 0);
  case gOptionType::number:
    return cat::make(row.number);
  case gOptionType::numbers:
    return list_of(row.numbers);
  case gOptionType::text:
    return cat::make(row.text);
  case gOptionType::shipped:
    return cat::make(ini_dir().append(std::string(row.text)));
  case gOptionType::texts:
    return make_ref<cVectorObj>();
  case gOptionType::map:
    break;
  }
  return make_ref<cMapObj>();
}

cRef<cObj> entry_of(cObj const & tree, gOptionRow const & row) {
  std::string_view path = row.path;
  cRef<cObj> at;
  for (std::size_t end = 0; end != path.npos; path.remove_prefix(end + 1)) {
    end = path.find('/');
    at = at ? at->at(path.substr(0, end)) : tree.at(path.substr(0, end));
    if (cat::is_nil(at) || end == path.npos)
      break;
  }
  return cat::is_nil(at) ? nullptr : at;
}

cMapObj & holder_of(cMapObj & tree, gOptionRow const & row) {
  std::string_view path = row.path;
  cMapObj * at = &tree;
  for (std::size_t end; (end = path.find('/')) != path.npos; path.remove_prefix(end + 1))
    at = &at->submap(std::string(path.substr(0, end)));
  return *at;
}

std::string_view key_of(gOptionRow const & row) {
  return row.path.substr(row.path.rfind('/') + 1);
}

bool flag_in(cObj const & tree, gOptionRow const & row) {
  return value_in<bool>(tree, row);
}

int number_in(cObj const & tree, gOptionRow const & row) {
  return value_in<int>(tree, row);
}

gString text_in(cObj const & tree, gOptionRow const & row) {
  return gString(value_in<std::string>(tree, row));
}

std::vector<int> numbers_in(cObj const & tree, gOptionRow const & row) {
  cRef<cObj> const list = entry_of(tree, row);
  if (!list || !list->map())
    return {row.numbers.begin(), row.numbers.end()};
  std::vector<int> numbers;
  for (cIterObj it = list->begin(); it.valid(); it++) {
    int number = 0;
    cat::read(it.valref(), number);
    numbers.push_back(number);
  }
  return numbers;
}

} // namespace Vapp

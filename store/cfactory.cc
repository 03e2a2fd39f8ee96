#include "store/cfactory.h"

cRepositoryEntry * cRepoImpl::create(cRepositoryList & list, std::string_view name,
                                     cNewBase const & factory, std::type_info const & base_type,
                                     std::type_info const & concrete_type,
                                     std::string_view description) {
  if (find(list, name))
    return nullptr;
  list.push_back({std::string(name), &factory, base_type, concrete_type, std::string(description)});
  return &list.back();
}

cRepositoryEntry * cRepoImpl::find(cRepositoryList & list, std::string_view name) {
  for (cRepositoryEntry & entry : list)
    if (entry.name == name)
      return &entry;
  return nullptr;
}

void cRepoImpl::release(cRepositoryEntry * entry) {
  if (!entry)
    return;
  std::type_index const base = entry->base_type;
  get(base).remove_if([&](cRepositoryEntry const & e) { return &e == entry; });
}

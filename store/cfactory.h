// Classes that a text file can name: factories in a repository, by base class and name.
#pragma once

#include <list>
#include <string>
#include <string_view>
#include <typeindex>

class cNewBase {
public:
  virtual ~cNewBase() = default;
};

// Makes objects of a class derived from B; the caller owns them.
template <class B> class cNew : public cNewBase {
public:
  virtual B * create() const = 0;
};

template <class B, class D> class cStdNew : public cNew<B> {
public:
  B * create() const override { return new D; }
};

struct cRepositoryEntry {
  std::string name;
  cNewBase const * factory;
  std::type_index base_type;
  std::type_index concrete_type;
  std::string description;
};

// The factories of one base class, in the order of entry.
using cRepositoryList = std::list<cRepositoryEntry>;

class cRepoImpl {
public:
  static cRepositoryList & get(std::type_index base_type);
  // Null if the name is taken.
  static cRepositoryEntry * create(cRepositoryList & list, std::string_view name,
                                   cNewBase const & factory, std::type_info const & base_type,
                                   std::type_info const & concrete_type,
                                   std::string_view description);
  static cRepositoryEntry * find(cRepositoryList & list, std::string_view name);
  static void release(cRepositoryEntry * entry);
};

// A static object of this class in the file of D enters D's factory at the start.
template <class B, class D> class cFactoryEntry {
public:
  cFactoryEntry(std::string_view name, std::string_view description)
      : entry_(cRepoImpl::create(cRepoImpl::get(typeid(B)), name, factory_, typeid(B), typeid(D),
                                 description)) {}
  cFactoryEntry(cFactoryEntry const &) = delete;
  cFactoryEntry & operator=(cFactoryEntry const &) = delete;
  ~cFactoryEntry() { cRepoImpl::release(entry_); }

private:
  cStdNew<B, D> factory_;
  cRepositoryEntry * entry_;
};

namespace cat {
// A new object of the class with that name; null if there is none. The caller owns it.
template <class B> B * create_by_name(std::string_view name) {
  cRepositoryEntry * entry = cRepoImpl::find(cRepoImpl::get(typeid(B)), name);
  return entry ? static_cast<cNew<B> const *>(entry->factory)->create() : nullptr;
}
} // namespace cat

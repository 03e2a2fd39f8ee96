// Run-time types: a name, a parent, named methods, and for choices the labels.
#pragma once

#include <map>
#include <string>

#include "store/cmapobj.h"

// Something that can be run. What a class doesn't support answers null or false.
class cExeObj : public cObj {
public:
  virtual cRef<cObj> oexecute() { return nullptr; }
  virtual cRef<cObj> oexecute(cRef<cObj> const &) { return nullptr; }
  virtual cRef<cObj> oexecute(cRef<cObj> const &, cRef<cObj> const &) { return nullptr; }
  virtual cRef<cObj> oexecute(cRef<cObj> const &, cRef<cObj> const &, cRef<cObj> const &) {
    return nullptr;
  }
  virtual bool pexecute(cObj &) { return false; }
  virtual bool pexecute(cObj &, cRef<cObj> &) { return false; }
  virtual bool pexecute(cObj &, cRef<cObj> &, cRef<cObj> &) { return false; }
  virtual bool validate_exe() const { return true; }

  bool assign(cObj const &) override { return false; }
  bool equal(cObj const & other) const override { return this == &other; }
  bool is_void() const override { return !validate_exe(); }

protected:
  cExeObj() : cObj(&cat::type_nil()) {}
};

// Holds a function over an object and an argument or result.
class cExeFunction final : public cExeObj {
public:
  using Function = bool (*)(cObj &, cRef<cObj> &);
  explicit cExeFunction(Function function) : function_(function) {}

  using cExeObj::pexecute;
  bool pexecute(cObj & object) override;
  bool pexecute(cObj & object, cRef<cObj> & argument) override;
  bool validate_exe() const override { return function_ != nullptr; }
  cRef<cObj> clone() const override { return make_ref<cExeFunction>(function_); }

private:
  Function function_;
};

// Holds a function from one or two references to a reference.
class cExeMember final : public cExeObj {
public:
  using Unary = cRef<cObj> (*)(cRef<cObj>);
  using Binary = cRef<cObj> (*)(cRef<cObj>, cRef<cObj>);
  explicit cExeMember(Unary function) : unary_(function) {}
  explicit cExeMember(Binary function) : binary_(function) {}

  using cExeObj::oexecute;
  cRef<cObj> oexecute(cRef<cObj> const & a) override { return unary_ ? unary_(a) : nullptr; }
  cRef<cObj> oexecute(cRef<cObj> const & a, cRef<cObj> const & b) override {
    return binary_ ? binary_(a, b) : nullptr;
  }
  bool validate_exe() const override { return unary_ || binary_; }
  cRef<cObj> clone() const override { return make_ref<cExeMember>(*this); }

private:
  Unary unary_ = nullptr;
  Binary binary_ = nullptr;
};

class cTypeObj {
public:
  // `init` runs once, at the end of the construction; it may be null.
  cTypeObj(char const * name, void (*init)(cTypeObj &));
  cTypeObj(cTypeObj * parent, char const * name, void (*init)(cTypeObj &));
  cTypeObj(cTypeObj const &) = delete;
  cTypeObj & operator=(cTypeObj const &) = delete;

  std::string const & name() const { return name_; }
  cTypeObj * parent() const { return parent_; }
  // True for the type itself and what descends from it.
  bool is_a(cTypeObj const & other) const;

  void set_tmember(std::string const & method, cRef<cObj> function);
  void remove_tmember(std::string const & method) { members_.erase(method); }
  // The member of the type or of the nearest parent that has it; null if there is none.
  cRef<cObj> tmember(std::string const & method) const;
  // The labels of a choice type by their keys.
  cMapObj & choices();

  std::uint32_t hashfun(cRef<cObj> const & key) const;
  bool hasheq(cRef<cObj> const & a, cRef<cObj> const & b) const;

private:
  friend class cObj;
  enum method_id { method_create };
  bool pexec(method_id method, cObj & object) const;

  std::string name_;
  cTypeObj * parent_;
  std::map<std::string, cRef<cObj>, std::less<>> members_;
  cRef<cMapObj> choices_; // made when asked for
};

// Adds a method to a type for the length of its life; then the one before is back.
class cTypeModifier {
public:
  cTypeModifier(cTypeObj & type, std::string const & name, cRef<cObj> member);
  cTypeModifier(cTypeModifier const &) = delete;
  cTypeModifier & operator=(cTypeModifier const &) = delete;
  ~cTypeModifier();

private:
  cTypeObj & type_;
  std::string name_;
  cRef<cObj> before_;
};

// Enters a type in the global table for the length of its life. A name that is taken stays with
// its first owner.
class cTypeInsert {
public:
  explicit cTypeInsert(cTypeObj & type);
  cTypeInsert(cTypeInsert const &) = delete;
  cTypeInsert & operator=(cTypeInsert const &) = delete;
  ~cTypeInsert();

private:
  cTypeObj & type_;
  bool entered_;
};

// Functions over maps.
struct cTomMap {
  static cRef<cObj> getattr(cRef<cObj> const & map, cRef<cObj> const & key);
  // Makes a missing entry, with a nil value.
  static cRef<cObj> getattr_insert(cRef<cObj> const & map, cRef<cObj> const & key);
  // Equal values in the same order, whatever their keys: so a list can equal a map.
  static bool equal_sorted(cObj & map, cRef<cObj> & other);
};

namespace cat {
// Null if there is none.
cTypeObj * find_type(std::string const & name);
// A new empty value of one of the types of the store; nil for any other type.
cRef<cObj> new_of(cTypeObj const & type);
} // namespace cat

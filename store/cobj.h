// The base of all stored values: counted objects that know their type at run time.
#pragma once

#include <atomic>
#include <iosfwd>
#include <string>
#include <string_view>

#include "store/gcppmacro.h"
#include "vlb/gstrlist.h"
#include "vlb/shared.h"

class cAttr;
class cIterObj;
class cMapObj;
class cObj;
class cTypeObj;

namespace cat {

// Types of the store. An object that stands for nothing has type_nil().
cTypeObj & type_nil();
cTypeObj & type_bool();
cTypeObj & type_int();
cTypeObj & type_string();
cTypeObj & type_strlist();
cTypeObj & type_cppmacro();
cTypeObj & type_map();
cTypeObj & type_vector();
cTypeObj & type_set();
cTypeObj & typetype_choice();

template <class T> cTypeObj & type_of();
template <> inline cTypeObj & type_of<bool>() {
  return type_bool();
}
template <> inline cTypeObj & type_of<int>() {
  return type_int();
}
template <> inline cTypeObj & type_of<std::string>() {
  return type_string();
}
template <> inline cTypeObj & type_of<gStrList>() {
  return type_strlist();
}
template <> inline cTypeObj & type_of<gCppMacro>() {
  return type_cppmacro();
}

// Conversions between types; false, and no change of `to`, if there is none.
bool convert_value(cObj const & from, bool & to);
bool convert_value(cObj const & from, int & to);
bool convert_value(cObj const & from, std::string & to);
bool convert_value(cObj const & from, gStrList & to);
bool convert_value(cObj const & from, gCppMacro & to);

} // namespace cat

class cObjBase : public cShared {
public:
  cObjBase() { ++ob_count; }
  cObjBase(cObjBase const &) : cObjBase() {}
  cObjBase & operator=(cObjBase const &) { return *this; }
  ~cObjBase() override { obid(0); }

  // Sets the object's id. Id 0 takes an object that only serves a conversion out of the count.
  void obid(unsigned id);

  static std::atomic<int> ob_count; // objects that have an id

private:
  unsigned id_ = 1;
};

// A value with its type. What makes no sense for a type answers false, null or an empty range.
// Not for use by two threads while one of them writes.
class cObj : public cObjBase {
public:
  cTypeObj & type() const { return *type_; }
  // The value in memory; its C++ type follows from type().
  void * value_pointer() const { return value_; }
  // True if the value lies outside the object.
  virtual bool is_ObjDR() const { return false; }

  // A proxy for an entry; no entry is made until something is assigned.
  cAttr operator[](char const * key);
  cAttr operator[](std::string const & key);
  cAttr operator[](cRef<cObj> const & key);
  cAttr operator[](int key);
  // The value under a key; null if there is none.
  cRef<cObj> operator/(std::string const & key) const { return at(key); }
  cRef<cObj> at(std::string_view key) const;
  cRef<cObj> at(int key) const;
  cRef<cObj> getattr(cRef<cObj> const & key) const;
  // The entries in their order.
  cIterObj begin() const;
  cIterObj end() const;
  // Number of entries; 0 for what is no container.
  int size() const;
  // Adds at the next number key; false if the object is no container.
  bool append(cRef<cObj> const & value);
  // Removes an entry; false if there is none.
  bool erase(std::string_view key);

  // The object as a container, or null.
  virtual cMapObj * map() { return nullptr; }
  cMapObj const * map() const { return const_cast<cObj *>(this)->map(); }

  // A private copy, deep.
  virtual cRef<cObj> clone() const = 0;
  // Deep copy of the value of an object of the same type.
  virtual bool assign(cObj const & other) = 0;
  // Adds the entries of another container to this one; present keys get the other's value.
  virtual bool add(cObj const &) { return false; }
  // Assigns with conversion between types; a failure changes nothing.
  virtual bool convert(cObj const & other) { return assign(other); }
  // Deep comparison.
  virtual bool equal(cObj const & other) const = 0;
  virtual bool less(cObj const &) const { return false; }
  // True if the object is empty or nil.
  virtual bool is_void() const = 0;

  // Tells the observers of the object.
  virtual void changed() const {}
  // Runs the type's method for new objects, unless the type is nil; returns the object.
  cObj * create();
  // Runs a named method of the type; null if there is none.
  cRef<cObj> call(std::string const & method);
  // Writes the object in the text form; true if the stream is good.
  bool writeobj(std::ostream & out) const;

protected:
  explicit cObj(cTypeObj * type, void * value = nullptr) : type_(type), value_(value) {}
  cObj(cObj const &) = default;
  cObj & operator=(cObj const &) { return *this; }
  void set_type(cTypeObj * type) { type_ = type; }

private:
  cTypeObj * type_;
  void * value_;
};

inline cRef<cObj> operator/(cRef<cObj> const & object, std::string const & key) {
  return object ? object->at(key) : nullptr;
}

// Stands for nothing.
class cNilObj final : public cObj {
public:
  cNilObj() : cObj(&cat::type_nil()) {}
  cRef<cObj> clone() const override { return make_ref<cNilObj>(); }
  bool assign(cObj const & other) override { return &other.type() == &type(); }
  bool equal(cObj const & other) const override { return &other.type() == &type(); }
  bool is_void() const override { return true; }
};

namespace cat {

// The value of an object whose type is exactly that of T, else null.
template <class T> T * value_of(cObj const & object) {
  return &object.type() == &type_of<T>() ? static_cast<T *>(object.value_pointer()) : nullptr;
}

inline bool is_nil(cRef<cObj> const & object) {
  return !object || &object->type() == &type_nil();
}

} // namespace cat

template <class T> class cObjD;

// A value that lies elsewhere: lets convert() write into a local variable.
template <class T> class cObjDR : public cObj {
public:
  explicit cObjDR(T & target) : cObj(&cat::type_of<T>(), &target) {}
  cObjDR(cObjDR const &) = delete;
  cObjDR & operator=(cObjDR const &) = delete;

  T & value() const { return *static_cast<T *>(value_pointer()); }
  bool is_ObjDR() const override { return true; }

  cRef<cObj> clone() const override { return make_ref<cObjD<T>>(value()); }
  bool assign(cObj const & other) override {
    T const * from = cat::value_of<T>(other);
    if (from)
      value() = *from;
    return from != nullptr;
  }
  bool convert(cObj const & other) override {
    return assign(other) || cat::convert_value(other, value());
  }
  bool equal(cObj const & other) const override {
    T const * from = cat::value_of<T>(other);
    return from && *from == value();
  }
  bool less(cObj const & other) const override {
    T const * from = cat::value_of<T>(other);
    if constexpr (requires { value() < *from; })
      return from && value() < *from;
    return false;
  }
  bool is_void() const override {
    if constexpr (requires { value().empty(); })
      return value().empty();
    return false;
  }
};

// A value inside the object.
template <class T> class cObjD final : public cObjDR<T> {
public:
  explicit cObjD(T value = T()) : cObjDR<T>(stored_), stored_(std::move(value)) {}
  bool is_ObjDR() const override { return false; }

private:
  T stored_;
};

namespace cat {

cRef<cObj> make(bool value);
cRef<cObj> make(int value);
cRef<cObj> make(std::string const & value);
cRef<cObj> make(std::string_view value);
cRef<cObj> make(char const * value);
cRef<cObj> make(gStrList const & value);
cRef<cObj> make(gCppMacro const & value);
cRef<cObj> make_nil();

// Reads a value, with conversion. False, and no change of `out`, for null, nil and what can't be
// converted.
template <class T> bool read(cRef<cObj> const & object, T & out) {
  if (is_nil(object))
    return false;
  if (T const * value = value_of<T>(*object)) {
    out = *value;
    return true;
  }
  cObjDR<T> target(out);
  target.obid(0);
  return target.convert(*object);
}
inline bool read(cRef<cObj> const & object, gString & out) {
  return read(object, static_cast<std::string &>(out));
}

// The number of a key; negative if the key isn't one.
int as_index(cRef<cObj> const & key);
// The value as text; empty for what has none.
std::string as_string(cRef<cObj> const & object);
// A letter or "_", then letters, digits or "_".
bool is_ident(std::string const & text);
// Removes white space at both ends and reduces each run inside to one blank.
void wsp_normalize(std::string & text);

} // namespace cat

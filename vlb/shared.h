// Reference counting: everything that is shared derives from cShared and is held by cRef.
#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <type_traits>
#include <utility>

// Base of everything counted. A new object has the count 1, which the first cRef takes over.
// Several threads may hold an object, and take and drop references to it; what it holds must not
// change then.
class cShared {
public:
  cShared() = default;
  cShared(cShared const &) noexcept {}
  cShared & operator=(cShared const &) noexcept { return *this; }
  virtual ~cShared() = default;

  void incref() const { count_.fetch_add(1, std::memory_order_relaxed); }
  // Drops a reference; true if it was the last one and the object has to be deleted. Whoever holds
  // the only one shares it with nobody, so that there is no need to lock the bus.
  bool decref() const {
    return count_.load(std::memory_order_acquire) == 1 ||
           count_.fetch_sub(1, std::memory_order_acq_rel) == 1;
  }
  unsigned refcount() const { return count_.load(std::memory_order_acquire); }

private:
  mutable std::atomic<unsigned> count_ = 1;
};

// Takes and drops a reference through an untyped pointer to a cShared.
inline void cGetShared(void * object) {
  static_cast<cShared *>(object)->incref();
}
inline void cPutShared(void * object) {
  auto * shared = static_cast<cShared *>(object);
  if (shared->decref())
    delete shared;
}

template <class T> struct cRefTraits {
  static void get(T * object) { object->incref(); }
  static void put(T * object) {
    if (object->decref())
      delete object;
  }
};

// The pointer below every cRef.
template <class T> class cRefBase {
protected:
  cRefBase() = default;
  explicit cRefBase(T * object) : object_(object) {}
  T * object_ = nullptr;
};

// A counted pointer; may be null. The constructor from a plain pointer takes over the reference
// that the object was born with; use share() for an object that someone else holds too.
template <class T> class cRef : public cRefBase<T> {
  using cRefBase<T>::object_;

public:
  cRef() = default;
  cRef(std::nullptr_t) {}
  explicit cRef(T * object) : cRefBase<T>(object) {}
  cRef(cRef const & other) : cRefBase<T>(other.object_) { take(); }
  cRef(cRef && other) noexcept : cRefBase<T>(std::exchange(other.object_, nullptr)) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
  cRef(cRef<U> const & other) : cRefBase<T>(other.get()) {
    take();
  }
  template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
  cRef(cRef<U> && other) noexcept : cRefBase<T>(other.release()) {}
  ~cRef() { drop(); }

  cRef & operator=(cRef other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  static cRef share(T * object) {
    if (object)
      cRefTraits<T>::get(object);
    return cRef(object);
  }

  T * get() const { return object_; }
  T & operator*() const { return *object_; }
  T * operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  // Gives the reference away; the caller owns it.
  T * release() { return std::exchange(object_, nullptr); }

  friend bool operator==(cRef const & a, cRef const & b) { return a.object_ == b.object_; }
  friend bool operator==(cRef const & a, std::nullptr_t) { return a.object_ == nullptr; }

private:
  void take() {
    if (object_)
      cRefTraits<T>::get(object_);
  }
  void drop() {
    if (object_)
      cRefTraits<T>::put(object_);
  }
};

template <class T, class... Args> cRef<T> make_ref(Args &&... args) {
  return cRef<T>(new T(std::forward<Args>(args)...));
}

// Signals and slots: one-way calls between objects that don't know each other.
#pragma once

#include <functional>
#include <vector>

#include "vlb/shared.h"

class cSSBase;

// One link between a signal and a slot. The two ends hold it; a delivery holds it too, so that a
// slot may disconnect, or delete either end, while it is called.
class cConnection : public cShared {
public:
  cConnection(cSSBase const * from, cSSBase const * to) : from_(from), to_(to) {}

  void lock_delete() const { incref(); }
  void unlock_delete() const { cPutShared(const_cast<cConnection *>(this)); }
  bool alive() const { return from_ != nullptr; }
  bool blocked() const;
  cSSBase const * from() const { return from_; }
  cSSBase const * to() const { return to_; }
  // Takes the link away from both ends.
  void disconnect();

private:
  cSSBase const * from_;
  cSSBase const * to_;
};

// Both ends of a connection. Connecting is no change of the object, so everything here is const.
class cSSBase {
public:
  cSSBase() = default;
  // A copy has no connections.
  cSSBase(cSSBase const &) {}
  cSSBase & operator=(cSSBase const &) { return *this; }
  virtual ~cSSBase() { disconnect(); }

  void disconnect(cSSBase const & other, bool = false) const;
  void disconnect() const;
  bool isconnected() const { return !connections_.empty(); }
  // While a reference to the result lives, nothing goes through this end.
  cRef<cShared> block() const;
  bool is_blocked() const { return block_count_ && block_count_->count > 0; }

protected:
  void connect(cSSBase const & other, bool, cConnection *, cConnection *) const;
  using Links = std::vector<cRef<cConnection>>;
  Links const & links() const { return connections_; }

private:
  friend class cConnection;
  // Outlives the end while a block is held.
  struct BlockCount : cShared {
    int count = 0;
  };
  struct Block;

  mutable Links connections_;
  mutable cRef<BlockCount> block_count_;
};

// Ends with the arguments A.
template <class... A> class cSSBaseN : public cSSBase {
public:
  // Calls this end: a slot runs its function, a signal passes the call on.
  virtual void deliver(A... arguments) const = 0;
};
using cSSBase0 = cSSBaseN<>;
template <class A> using cSSBase1 = cSSBaseN<A>;
template <class A, class B> using cSSBase2 = cSSBaseN<A, B>;

// Slots connected during a delivery are called from the next one on.
template <class... A> class cSignalN : public cSSBaseN<A...> {
public:
  void connect(cSSBaseN<A...> const & other, bool = false, cConnection * = nullptr,
               cConnection * = nullptr) const {
    cSSBase::connect(other, false, nullptr, nullptr);
  }
  void operator()(A... arguments) const {
    if (!this->isconnected())
      return;
    auto const links = this->links();
    for (cRef<cConnection> const & link : links)
      if (link->alive() && link->from() == this && !link->blocked())
        static_cast<cSSBaseN<A...> const *>(link->to())->deliver(arguments...);
  }
  void deliver(A... arguments) const override { (*this)(arguments...); }
};
using cSignal = cSignalN<>;
template <class A> using cSignal1 = cSignalN<A>;
template <class A, class B> using cSignal2 = cSignalN<A, B>;

// Calls a member function of an object, which must outlive the slot.
template <class T, class... A> class cSlotN : public cSSBaseN<A...> {
public:
  cSlotN(T & object, void (T::*function)(A...)) : object_(object), function_(function) {}
  void deliver(A... arguments) const override { (object_.*function_)(arguments...); }

private:
  T & object_;
  void (T::*function_)(A...);
};
template <class T> using cSlot = cSlotN<T>;
template <class T, class A> using cSlot1 = cSlotN<T, A>;
template <class T, class A, class B> using cSlot2 = cSlotN<T, A, B>;

// Calls a plain function or another callable thing.
template <class F, class... A> class cFunctionSlotN : public cSSBaseN<A...> {
public:
  explicit cFunctionSlotN(F function) : function_(std::move(function)) {}
  void deliver(A... arguments) const override { function_(arguments...); }

private:
  F function_;
};
template <class F> using cFunctionSlot = cFunctionSlotN<F>;
template <class A, class F> using cFunctionSlot1 = cFunctionSlotN<F, A>;

// Is raised when it is destroyed, together with the object that has it as a member.
class cDeleteSignal : public cSignal {
public:
  ~cDeleteSignal() override { (*this)(); }
};

// Points to an object without keeping it alive; null as soon as the object is gone. T has an
// operation `cDeleteSignal const & delete_signal() const`.
template <class T> class cGuardedRef {
public:
  cGuardedRef() : gone_([this] { object_ = nullptr; }) {}
  explicit cGuardedRef(T * object) : cGuardedRef() { set(object); }
  cGuardedRef(cGuardedRef const &) = delete;
  cGuardedRef & operator=(cGuardedRef const &) = delete;

  void set(T * object) {
    gone_.disconnect();
    object_ = object;
    if (object)
      object->delete_signal().connect(gone_);
  }
  T * get() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

private:
  T * object_ = nullptr;
  cFunctionSlot<std::function<void()>> gone_;
};

// Base of a class that blocks signals of its own while it makes a change.
class cBlockState {
protected:
  void block(cSSBase const & end) { blocks_.push_back(end.block()); }
  void unblock() { blocks_.clear(); }
  bool blocking() const { return !blocks_.empty(); }

private:
  std::vector<cRef<cShared>> blocks_;
};

// The value of a symbol on the parser's stack.
#pragma once

#include <utility>
#include <variant>

// Empty, or one of the types. Moving a value away leaves it empty only through take().
template <class... Ts> class gValue {
public:
  gValue() = default;

  bool empty() const { return held_.index() == 0; }
  void clear() {
    if (!empty())
      held_.template emplace<0>();
  }
  template <class T> bool holds() const { return std::holds_alternative<T>(held_); }
  // The value as a T; what isn't one becomes an empty T first.
  template <class T> T & as() {
    if (T * value = std::get_if<T>(&held_))
      return *value;
    return held_.template emplace<T>();
  }
  template <class T> void set(T value) { held_.template emplace<T>(std::move(value)); }
  gValue take() {
    gValue taken = std::move(*this);
    clear();
    return taken;
  }

private:
  std::variant<std::monostate, Ts...> held_;
};

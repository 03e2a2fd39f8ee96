enum class E : int {
  A,
  B [[deprecated]] = f(1, 2),
  C = 1 << 2,
};
enum { X };
using A = int (*)(int);
template <class T> using B = C<T>;
using D::e, F::g;
using enum H;
using typename I<T>::type;
typedef int A;
typedef void (*B)(int);
typedef struct S T, *U;
typedef A C[3];
template <class T>
concept C = requires(T t) {
  t.x();
}
&&D<T>;
template <C T>
requires(sizeof(T) > 1) && D<T> void f(T t) requires E<T> {}
A(int)->A<int>;
template <class T> explicit A(T) -> A<T>;
export module a.b:part;
import std;
export int x;
export {
  int y;
}
export namespace n {}
auto f(auto x, std::integral auto... y) -> decltype(x) {}
auto [a, b] = g();
int h = [](int i) { return i; }(3);
[[nodiscard]] int f();
int g [[x]] ();
__attribute__((x)) int h() __attribute__((y));
alignas(8) int i;
__declspec(dllexport) int j();
template <typename... T, int N = (3 > 2), bool B = (a < b)> void f(T &&... args, int (&x)[N], ...);
template class A<int>;
extern template class A<long>;
template void f<int>(int);
extern "C" int g(void);
extern "C" {
int h;
}
constexpr int a = 1'000, b = R"x(;{)x"[0];
constinit thread_local int c{3};
inline constexpr auto d = e<int, 3>;
consteval int f();
struct A {
  void f(this A const & self, int x);
  static_assert(true, ";{");
  template <class T> explicit(sizeof(T) > 1) A(T);
};

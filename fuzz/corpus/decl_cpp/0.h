namespace a::b {
namespace {
int x;
}
inline namespace v1 {
void f();
}
} // namespace a::b
namespace n = a::b;
using namespace n;
class A;
struct B final : public C<int, D>, private E {};
enum class F : unsigned char;
union G {
  int i;
};
template <class T, template <class> class U = V> class A : B<T>::type {};
template <> struct A<int, X> {};
struct A {
  A();
  explicit A(int a, std::map<int, T> b = {}) noexcept : a_(a), b{1} { f(); }
  ~A() = default;
  A(A const &) = delete ("why");
};
struct A {
  virtual int f(int a, char const * b = "x") const override = 0;
  void g() &&;
  void h() volatile & noexcept(true) final;
};
struct A {
  operator bool() const;
  operator std::vector<int> *();
  A & operator=(A const &);
  T operator()(int) const;
  T operator[](int);
};
bool operator<(A, B);
auto operator<=>(A const &, B const &) = default;
A operator""_x(char c);
A operator"" _y(char c);
void * operator new[](size_t);
A::A(int a) : b(a), c{a} {}
A::~A() {}
template <class T> int A<T>::f(T x) const {
  return 1;
}
int A::n = 0;
A::operator bool() const {}
struct A {
  int a = 1, *b{nullptr}, c[3];
  unsigned d : 3, : 0, e : 4 {1};
  static constexpr int f = 2;
  mutable T<int, 2> g;
};
struct A {
  union {
    int a;
    struct {
      int b;
    };
  };
  struct {
    int c;
  } d;
  enum { E, F = 2 };
};
struct A {
  friend class B;
  friend void f(A &);
  friend std::ostream & operator<<(std::ostream & o, A const & a) { return o; }
  friend C;
};

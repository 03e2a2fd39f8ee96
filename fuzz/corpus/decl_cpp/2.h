struct A {
  int (*f)(int a);
  void (A::*g)(int) const;
  int (&h())[3];
  int (*i(int))(char);
  std::function<void(int)> j;
};
int f(int a = g<1, 2>(3), std::map<int, int> b = std::map<int, int>{}, int c[] = {});
struct A::B {
  int c;
};
template <class T> struct A<T>::B : C {};
template <class T> struct A<T *, 3> {};
A a(1), b("x"), c(d.e);
A f(B), g(B b), h();
void f() try : a(1) {
} catch (...) {
}
int g;
class A {
public:
  int a;

protected:
  int b;
private slots:
  void c();
signals:
  void d(int);
Q_SIGNALS:
  void e();
};
class A : public QObject {
  Q_OBJECT
  Q_PROPERTY(QMap<int, int> w READ w)
public:
  Q_DISABLE_COPY(A)
  int x;
};
__global__ void f(float * x) {
  f<<<1, 2>>>(x);
}
__device__ int g;
int __stdcall h(int);
struct A {
  auto f() -> int;
  int g() const->std::vector<int> { return {1}; }
};
int f(void), g(int a, ...), *h;
static inline unsigned long i(struct S * s) {
  return 0;
}
typedef struct {
  int a, b;
} A, *B;
typedef struct T {
  int c;
} T;
typedef enum { X, Y = 2 } E;
typedef union U {
  int d;
} V;
struct S {
  int a : 3;
  int b[];
  struct T * c;
  int (*d)(int, char *);
  int (*e[4])(void);
} s1, *s2 = 0;

DEPRECATED("x") void f();
DEPRECATED_FOR(g)
int g();
PUSH(4251)
class A {};
POP()
int b;
typedef A B DEPRECATED(1);
typedef struct {
  int a;
} C PACKED_T;
struct D {
  int b;
} __attribute__((packed));
struct A {
  PRIVATE_UNLESS_TESTED : int b;
  PUBLIC_X : int c;
  unsigned : 3;
};
A(x)
B(y)
static int c;
STATIC_ASSERT(1 < 2) int d;
LOG("}")
template <TEMPLATE_ARGS> class A {};
TEMPLATE(T) void f(T t);
template <class T> REQUIRES(C<T>) void g(T);
#ifndef G_H
#define G_H
int a;
#endif

#if 0
int a; }
#else
int b;
#endif
#if 1
int c;
#else
int d;
#endif
#ifdef A
int f(int);
int g;
#else
int f(int);
long h;
#endif
int f(
#if A
    int a
#else
    long a, int b
#endif
);
int g;
#ifdef __cplusplus
extern "C" {
#endif
int f(void);
#ifdef __cplusplus
}
#endif
int g;
#if A
class B : C {
#else
class B : D {
#endif
  int e;
};
int f;
void f() {
#ifdef A
  if (a) {
#else
  if (b) {
#endif
  }
}
int g;

#ifndef A
struct B {
#else
#if C
struct D {
#else
struct E {
#endif
#endif
  int f;
};
int g;
enum E {
  A,
#ifdef X
  B,
#else
  C,
#endif
  D
};
int a;
}
int b;
namespace n {
int c;
}
void f() {
  g(;
}
int h;
void i() {
  if (a) {
  }
  int j;
  class A {
  public:
    void f() {
      g();

      void h();
    };
    int i;
    namespace n {
    int a;
    void f() g();
    }
    int b;
  } // namespace n
  int c;
  namespace n {
  class A {
    {
      int b;
    };
    int c;
  } int d;
int f(int a;
int g;
int h(int (b);
int i;
char a = 'x; int b;
char * c = "d; int e;
int f;
/* a
 * b
int c;
/* d */
int e;
@interface A : B
- (void)f;
@end
int c;
int a int b; static int c
static int d; class E { } class F { };

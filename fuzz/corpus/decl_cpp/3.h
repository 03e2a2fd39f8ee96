int f(a, b)
int a;
char * b;
{ return a; }
int g;
int (*f(int a))(char b);
int (*g)(int), (*h[3])(void);
void (*signal(int s, void (*fn)(int)))(int);
struct S a = {.x = 1, .y = {2, 3}}, b[] = {{1}, {2}};
int c[3] = {[1] = 2};
extern int a;
extern const char * const b[];
register int c;
_Thread_local int d;
_Noreturn void e(void);
_Alignas(8) int f;
main() {}
static g(x) {}
int(h)(int a) {
  return 1;
}
enum E { A, B };
enum E e;
enum E f(enum E);
struct S * g(void);
struct S;
union U u;
int a asm("x") = 3;
asm("nop");
__extension__ typedef long long b;
typeof(a) c;
_Static_assert(1, "x");
_BitInt(7) d;
#define A 1
#define B(x, ...) ((x) + 1) /* c */
#define C
int d;
#include "b.h"
#include <a.h>
int restrict_(char * __restrict a, int n, int b[n]);
class API A {};
class MY_EXPORT B : public C {};
class Q(1) D {};
class A B(x) C : E {};
class F FINAL {};
class API A;
struct EXPORT_X B;
class LIB_FWD c;
class lib_API_t d;
API class E;
EXPORT template <class T> class F {};
int f() MACRO;
int g(int a) NOEXCEPT_X(1) {
  return 1;
}
void h() const MACRO(a, b);
int i() ATTR1 ATTR2;

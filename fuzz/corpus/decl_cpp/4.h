API int f(int);
API_CALL(int) g(int a);
static INLINE void h() {}
extern API const char * i(void);
EXPORT A j;
int CALL f(int);
int(CALL * g)(int);
typedef int(CALLBACK_T * h)(char);
A * WINAPI_X i(B * b);
f OF((int a));
int g OF((int a, char b));
int h P_((void));
typedef int(*i) OF((int));
int NAME(f)(int a);
int(g)(int a);
DECLARE(x);
DECLARE(y)
int z;
REGISTER(a)
REGISTER(b)
int c;
class A {
  Q_OBJECT_LIKE
public:
  DECLARE_THINGS(A)
  A();
  DISALLOW(A)
  ~A();
  FOO(x);
  int b;
};
BEGIN_NS
int a;
END_NS
MY_NAMESPACE_BEGIN
class B {};
MY_NAMESPACE_END

#define NS_BEGIN                                                                                   \
  namespace a {                                                                                    \
  inline namespace v1 {
#define NS_END                                                                                     \
  }                                                                                                \
  }
NS_BEGIN
int x;
NS_END
int y;
#define API __attribute__((visibility("default")))
#define T_ unsigned int
#define NOTHING
API T_ f(NOTHING int a) NOTHING;
NOTHING class API B {};
TEST(A, B) {
  int x;
}
TEST_F(C, D) {}
int y;
MACRO(a, { int z; }) int w;
enum E {
  A MACRO,
  B DEPRECATED("x") = 2,
  X(c) D,
  LIST(q),
  E,
};
void f(int a UNUSED, IN OUT char * b, ATTR(1) long c, int d = MAX(1, 2));
class A : public BASE(x) {
  MEMBER(int, x);
  int y GUARDED_BY(m);
  int z ALIGNED;
};

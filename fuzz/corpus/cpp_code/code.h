@_vlbcom  x @_vlecom namespace N { class A : public virtual B<int>, C { public: A() : x(1) { } ~A();
template<class T> void f(T const & t = T(1, 2)) const throw (E); operator bool() const; int a : 3;
private: static int const v[] ; enum E { a, b = 2, }; virtual void g() = 0; using B::h; }; }
extern "C" { void f(); } extern "C" int i; typedef unsigned long (*fp)(int); int v[] = { {1}, {2} };
int A::*p; void ::g(); template<> class X<int> { }; template class Y<int>; namespace M = N;
using namespace N; asm("nop"); struct S; union U { int a; } u; int f() try : x(1) { } catch (...) { }
bool operator==(A, A); void * operator new[](unsigned); typename T::x y; const volatile int z;

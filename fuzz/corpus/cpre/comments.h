/**
 * star
 *****
 */
/// slash
// plain
/* box   |
 | text  */ int a; /* after */ // more
#if A
#define B(x) \
  x
#else \
 skipped
#endif
char const * s = "/* no */ // \" \x41"; char c = '\''; L"w"
// last

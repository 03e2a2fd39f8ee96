#include "shapes.h"
namespace shapes {

/** Described where it is defined. \sa Shape */
void Shape::undocumented() {
  // a comment of the body
}

// static void old();
static int helper(int n) { return n; } // for total()

/** The sum of the first numbers. \param n how many */
int total(int n) {
  return n < 2 ? n : helper(n) + total(n - 1);
}
} // namespace shapes

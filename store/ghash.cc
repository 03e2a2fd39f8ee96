// Primes that roughly double, so that the cost of growing is spread over the inserts.
#include "store/ghash.h"

#include <algorithm>
#include <array>

std::size_t hash_new_size(std::size_t n) {
  static constexpr std::array<std::uint32_t, 27> primes = {
      101u,       211u,       431u,       863u,        1733u,       3467u,      6947u,
      13901u,     27803u,     55609u,     111227u,     222461u,     444929u,    889871u,
      1779761u,   3559537u,   7119103u,   14238221u,   28476473u,   56952947u,  113905901u,
      227811809u, 455623621u, 911247257u, 1822494581u, 3644989199u, 4294967291u};
  auto const it = std::lower_bound(primes.begin(), primes.end(), n);
  return it == primes.end() ? primes.back() : *it;
}

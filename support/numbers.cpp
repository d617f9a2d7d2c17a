#include "support/numbers.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace qvx {

std::int32_t ParseInteger(const char* text) {
  using Limits = std::numeric_limits<std::int32_t>;
  constexpr int kDecimal = 10;
  return static_cast<std::int32_t>(
      std::clamp<long long>(std::strtoll(text, nullptr, kDecimal), Limits::min(), Limits::max()));
}

double ParseDecimal(const char* text) { return std::strtod(text, nullptr); }

}  // namespace qvx

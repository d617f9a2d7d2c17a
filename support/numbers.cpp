#include "support/numbers.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

namespace qvx {

std::int32_t ParseInteger(const char* text) {
  using Limits = std::numeric_limits<std::int32_t>;
  constexpr int kDecimal = 10;
  return static_cast<std::int32_t>(
      std::clamp<long long>(std::strtoll(text, nullptr, kDecimal), Limits::min(), Limits::max()));
}

// strtod alone would also read hexadecimal numbers, infinities and NaN.
double ParseDecimal(const char* text) {
  const std::string decimal(text, std::strspn(text, " \t+-.0123456789eE"));
  return std::strtod(decimal.c_str(), nullptr);
}

}  // namespace qvx

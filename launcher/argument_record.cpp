#include "launcher/argument_record.h"

#include <algorithm>
#include <cstddef>

#include "support/fault.h"

namespace qvx {

std::span<double> AllocateWeights(QVXRunSettings& record, std::int32_t count) {
  const auto size = static_cast<std::size_t>(std::max(count, 0));
  record.weights =
      AllocateCounted("process weights", size, [](std::size_t n) { return new double[n](); });
  return {record.weights, size};
}

}  // namespace qvx

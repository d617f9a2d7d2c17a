#include "launcher/argument_record.h"

#include <cstddef>

#include "support/fault.h"

namespace qvx {

std::span<double> GiveWeights(QVXRunSettings& record) {
  if (record.processCount < 1) return {};
  const auto count = static_cast<std::size_t>(record.processCount);
  record.weights =
      AllocateCounted("process weights", count, [](std::size_t n) { return new double[n](); });
  return {record.weights, count};
}

}  // namespace qvx

#include "launcher/launcher_context.h"

#include "support/fault.h"

namespace qvx {

std::span<double> AddWeights(LauncherContext& context, std::size_t count) {
  return context.weightArrays.emplace_back(AllocateCounted<double>("process weights", count));
}

}  // namespace qvx

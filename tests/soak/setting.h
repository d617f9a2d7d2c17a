// What script/soak sets in the environment.
#pragma once

#include <cstdlib>
#include <string>

namespace qvx::test {

inline unsigned Setting(const char* name, unsigned otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : static_cast<unsigned>(std::stoul(text));
}

/// All that is random in the soak follows from it.
inline unsigned Seed() { return Setting("QVX_SOAK_SEED", 20261121); }

}  // namespace qvx::test

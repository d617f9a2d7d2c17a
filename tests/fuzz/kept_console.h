// What the product prints while a fuzzer runs.
#pragma once

#include <string>

namespace qvx::fuzz {

/// Printed since it was cleared.
inline std::string shown;

}  // namespace qvx::fuzz

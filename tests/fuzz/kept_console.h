// What the product prints while a fuzzer runs.
#pragma once

#include <string_view>

namespace qvx::fuzz {

/// Printed since it was cleared.
std::string_view Shown();
void ClearShown();

}  // namespace qvx::fuzz

// The one file that the readers find, under any name, while a fuzzer runs: kept in memory.
#pragma once

#include <string_view>

namespace qvx::fuzz {

/// `bytes` as they lie on the disk; the readers see them in text mode.
void ServeFile(std::string_view bytes);

}  // namespace qvx::fuzz

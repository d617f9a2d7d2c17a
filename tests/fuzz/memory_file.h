// The one file that the readers find, under any name, while a fuzzer runs: kept in memory.
#pragma once

#include <string>

namespace qvx::fuzz {

/// `bytes` as they lie on the disk; the readers see them in text mode.
void ServeFile(const std::string& bytes);

/// In text mode a carriage return directly before a line feed is dropped, and a Ctrl-Z ends the
/// file.
std::string InTextMode(const std::string& bytes);

}  // namespace qvx::fuzz

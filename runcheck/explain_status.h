// What an exit status of the launcher means.
#pragma once

#include <optional>
#include <string>

namespace qvx::runcheck {

/// Reads a status as people write it: -1, 4294967295, 0xC0000005. Nothing for what is no 32-bit
/// number.
std::optional<int> ParseStatus(const std::string& text);

/// Sentences, without a line feed at their end. `systemText`: the system's own text for a status,
/// empty when it has none.
std::string ExplainStatus(int status, std::string (*systemText)(int status));

/// From the system's tables, in the ANSI code page: that of the NTSTATUS, or of the error code that
/// it stands for.
std::string SystemTextOf(int status);

}  // namespace qvx::runcheck

// What every fuzz target does with its bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qvx::fuzz {

/// Runs one input; compares the product with the plain formulation.
void RunInput(std::string_view input);

/// Takes up to `most` lines off the front of `text`, at least one; what follows a zero byte in a
/// line is lost.
std::vector<std::string> TakeLines(std::string_view& text, std::size_t most);

/// One input of four is run with the debug trace.
inline bool IsTraced(std::string_view input) { return input.size() % 4 == 0; }

}  // namespace qvx::fuzz

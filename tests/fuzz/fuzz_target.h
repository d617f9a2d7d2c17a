// What every fuzz target does with its bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace qvx::fuzz {

/// Runs one input; compares the product with the plain formulation.
void RunInput(const std::string& input);

/// Takes up to `most` lines off the front of `text`, at least one; what follows a zero byte in a
/// line is lost.
std::vector<std::string> TakeLines(std::string& text, std::size_t most);

}  // namespace qvx::fuzz

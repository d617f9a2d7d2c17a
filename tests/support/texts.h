// Turns a run's texts into what tests expect.
#pragma once

#include <string>
#include <string_view>

namespace qvx::test {

constexpr const char* kCountdown = "\r4   \r3   \r2   \r1   \r0   ";

/// Replaces every `from` in `text` by `to`.
inline std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
  return text;
}

/// `text` with "<time>" for every timestamp of a log name.
std::string WithoutTimestamps(const std::string& text);

}  // namespace qvx::test

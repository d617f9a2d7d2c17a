#include "tests/fuzz/fuzz_target.h"

#include <cstdio>

namespace qvx::fuzz {

std::vector<std::string> TakeLines(std::string& text, std::size_t most) {
  std::vector<std::string> lines;
  while (lines.size() < most && (lines.empty() || !text.empty())) {
    const std::size_t end = text.find('\n');
    const std::string line = text.substr(0, end);
    lines.push_back(line.substr(0, line.find('\0')));
    text.erase(0, end == std::string::npos ? end : end + 1);
  }
  return lines;
}

}  // namespace qvx::fuzz

extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*arguments*/) {
  // The launcher's own lines.
  return std::freopen("/dev/null", "w", stdout) == nullptr ? 1 : 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qvx::fuzz::RunInput({reinterpret_cast<const char*>(data), size});
  return 0;
}

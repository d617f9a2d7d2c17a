#include "tests/fuzz/fuzz_target.h"

#include <algorithm>
#include <cstdint>

#include "tests/fuzz/input_memory.h"

namespace qvx::fuzz {

std::vector<std::string> TakeLines(std::string_view& text, std::size_t most) {
  std::vector<std::string> lines;
  lines.reserve(std::min<std::size_t>(most, 8));
  while (lines.size() < most && (lines.empty() || !text.empty())) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    lines.emplace_back(line.substr(0, line.find('\0')));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace qvx::fuzz

/// Long call stacks and a long quarantine find nothing more, now that an input's memory is its own;
/// of a stack of less than two frames no leak is reported.
extern "C" const char* __asan_default_options() {
  return "malloc_context_size=2:quarantine_size_mb=1:thread_local_quarantine_size_kb=64";
}

/// Linked in place of the sanitizer's (--wrap), behind which libFuzzer keeps a table of all that is
/// compared. What is compared has a length of its own.
extern "C" __attribute__((no_sanitize("address"))) int __wrap_memcmp(const void* left,
                                                                     const void* right,
                                                                     std::size_t size) {
  const auto* const l = static_cast<const unsigned char*>(left);
  const auto* const r = static_cast<const unsigned char*>(right);
  std::size_t i = 0;
  while (i < size && l[i] == r[i]) ++i;
  return i == size ? 0 : l[i] - r[i];
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const qvx::fuzz::InputMemory memory;
  qvx::fuzz::RunInput({reinterpret_cast<const char*>(data), size});
  return 0;
}

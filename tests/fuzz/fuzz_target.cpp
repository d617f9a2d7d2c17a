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
/// of a stack of less than two frames no leak is reported. memcmp only compares what has a length
/// of its own, and libFuzzer keeps a table of what it compares.
extern "C" const char* __asan_default_options() {
  return "malloc_context_size=2:quarantine_size_mb=1:thread_local_quarantine_size_kb=64:"
         "intercept_memcmp=0";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const qvx::fuzz::InputMemory memory;
  qvx::fuzz::RunInput({reinterpret_cast<const char*>(data), size});
  return 0;
}

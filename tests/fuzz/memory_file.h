// The one file that the readers find, under any name, while a fuzzer runs: kept in memory.
#pragma once

#include <string>
#include <string_view>

namespace qvx::fuzz {

class MemoryFile {
 public:
  /// `bytes` as they lie on the disk; the readers see them in text mode, while this lives.
  explicit MemoryFile(std::string_view bytes);
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

 private:
  std::string text_;
};

}  // namespace qvx::fuzz

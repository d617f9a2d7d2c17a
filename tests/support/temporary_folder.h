// A folder of a test's own, removed with everything in it at the end of the test.
#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace qvx::test {

class TemporaryFolder {
 public:
  /// `parent`: by default the system's place for such folders.
  explicit TemporaryFolder(
      const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
    static std::atomic<int> count = 0;
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    path_ = parent / ("qvx" + std::to_string(now) + "_" + std::to_string(count++));
    std::filesystem::create_directories(path_);
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string Path() const { return path_.string(); }
  std::string Path(std::string_view relative) const { return (path_ / relative).string(); }

  /// Writes `bytes` as they stand, creating missing folders, and returns the file's path.
  std::string Write(std::string_view relative, std::string_view bytes) const {
    const std::filesystem::path file = path_ / relative;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file.string();
  }

  /// The file's bytes; empty when there is no such file.
  std::string Read(std::string_view relative) const {
    std::ifstream file(path_ / relative, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::filesystem::path path_;
};

}  // namespace qvx::test

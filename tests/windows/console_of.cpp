#include "tests/windows/console_of.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>

namespace qvx::test {
namespace {

constexpr int kStandardOutput = 1;

HANDLE HandleOf(int file) { return reinterpret_cast<HANDLE>(_get_osfhandle(file)); }

int OpenTemporaryFile() {
  const std::string folder = std::filesystem::temp_directory_path().string();
  std::array<char, MAX_PATH> path;
  GetTempFileNameA(folder.c_str(), "qvx", 0, path.data());
  const HANDLE file = CreateFileA(path.data(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                  CREATE_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  return _open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_TEXT);
}

void LeadStandardOutputTo(int file) {
  std::fflush(stdout);
  _dup2(file, kStandardOutput);
  SetStdHandle(STD_OUTPUT_HANDLE, HandleOf(kStandardOutput));
}

/// Ends at the end of the file, where the next one to write finds the position that all share.
std::string ReadWhole(HANDLE file) {
  std::string bytes(GetFileSize(file, nullptr), '\0');
  DWORD read = 0;
  SetFilePointer(file, 0, nullptr, FILE_BEGIN);
  ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
  return bytes;
}

}  // namespace

ConsoleCapture::ConsoleCapture()
    : file_(OpenTemporaryFile()), standardOutput_(_dup(kStandardOutput)) {
  LeadStandardOutputTo(file_);
}

ConsoleCapture::~ConsoleCapture() {
  LeadStandardOutputTo(standardOutput_);
  _close(standardOutput_);
  _close(file_);
}

Console ConsoleCapture::Take() const {
  const std::string written = ReadWhole(HandleOf(file_));
  std::fflush(stdout);
  return {written, ReadWhole(HandleOf(file_)).substr(written.size())};
}

}  // namespace qvx::test

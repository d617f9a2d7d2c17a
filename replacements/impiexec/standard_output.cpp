// Writes straight to the handle: the C runtime would buffer, and would translate line ends.
#include "replacements/impiexec/standard_output.h"

#include <windows.h>

#include <mutex>
#include <string>

namespace impiexec {

void WriteOutput(std::string_view bytes) {
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  while (!bytes.empty()) {
    DWORD written = 0;
    // With the reader gone the bytes are dropped, and the solvers can go on.
    if (WriteFile(output, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) == 0) {
      return;
    }
    bytes.remove_prefix(written);
  }
}

void WriteOutputLine(std::string_view text) { WriteOutput(std::string(text) + "\r\n"); }

}  // namespace impiexec

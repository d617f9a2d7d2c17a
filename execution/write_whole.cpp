#include "execution/write_whole.h"

namespace qvx {

BOOL WriteWhole(HANDLE file, const char* text, DWORD length) {
  DWORD written = 0;
  BOOL success = WriteFile(file, text, length, &written, nullptr);
  for (DWORD total = written; success != 0 && written > 0 && total < length; total += written) {
    // A console takes everything at once and may count characters instead of bytes.
    if (GetFileType(file) == FILE_TYPE_CHAR) break;
    success = WriteFile(file, text + total, length - total, &written, nullptr);
  }
  return success;
}

}  // namespace qvx

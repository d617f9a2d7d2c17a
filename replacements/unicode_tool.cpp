// Replacement for QVXUnicodeTool.dll: the conversions of the system itself. A text that has no
// exact conversion counts as a failure, since a file name with a substituted character names
// another file.
#include <windows.h>

#include "platform/qvx_unicode_tool.h"

namespace {

constexpr int kFailed = -1;

}  // namespace

CQVXUnicodeTool::CQVXUnicodeTool() = default;
CQVXUnicodeTool::~CQVXUnicodeTool() = default;

int CQVXUnicodeTool::AnsiToUtf16(const char* ansi, wchar_t* utf16, int capacity) {
  // Capacity 0 would only ask the system for the length.
  if (capacity <= 0) return kFailed;
  if (MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, ansi, -1, utf16, capacity) > 0) return 0;
  utf16[0] = L'\0';
  return kFailed;
}

int CQVXUnicodeTool::Utf16ToAnsi(const wchar_t* utf16, char* ansi, int capacity) {
  if (capacity <= 0) return kFailed;
  // The system refuses to report substitutions when the ANSI code page is UTF-8.
  const bool isUtf8 = GetACP() == CP_UTF8;
  BOOL substituted = FALSE;
  const int length =
      WideCharToMultiByte(CP_ACP, isUtf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS, utf16, -1,
                          ansi, capacity, nullptr, isUtf8 ? nullptr : &substituted);
  if (length > 0 && substituted == FALSE) return 0;
  ansi[0] = '\0';
  return kFailed;
}

int CQVXUnicodeTool::Utf16ToUtf8(const wchar_t* utf16, char*& utf8) {
  const auto convert = [utf16](char* output, int capacity) {
    return WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, utf16, -1, output, capacity, nullptr,
                               nullptr);
  };
  const int size = convert(nullptr, 0);
  if (size <= 0) {
    utf8 = new char[1]{};
    return kFailed;
  }
  utf8 = new char[static_cast<unsigned>(size)];
  convert(utf8, size);
  return 0;
}

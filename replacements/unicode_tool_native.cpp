// Stands in for QVXUnicodeTool.dll where the launcher's portable code is tested natively, under the
// sanitizers. Bytes 0 to 255 are the code points of the same numbers (Latin-1). wchar_t has 32 bits
// here, so each one is a whole code point and there are no surrogates.
#include <cstring>
#include <cwchar>
#include <string>

#include "platform/qvx_unicode_tool.h"

namespace {

constexpr int kFailed = -1;

bool IsCodePoint(char32_t value) { return value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF); }

void AppendUtf8(char32_t value, std::string& utf8) {
  const auto append = [&utf8](char32_t byte) { utf8 += static_cast<char>(byte); };
  const auto appendTrail = [&](int shift) { append(0x80 | (value >> shift & 0x3F)); };
  if (value < 0x80) {
    append(value);
  } else if (value < 0x800) {
    append(0xC0 | value >> 6);
    appendTrail(0);
  } else if (value < 0x10000) {
    append(0xE0 | value >> 12);
    appendTrail(6);
    appendTrail(0);
  } else {
    append(0xF0 | value >> 18);
    appendTrail(12);
    appendTrail(6);
    appendTrail(0);
  }
}

}  // namespace

CQVXUnicodeTool::CQVXUnicodeTool() = default;
CQVXUnicodeTool::~CQVXUnicodeTool() = default;

int CQVXUnicodeTool::AnsiToUtf16(const char* ansi, wchar_t* utf16, int capacity) {
  if (capacity <= 0) return kFailed;
  const std::size_t length = std::strlen(ansi);
  if (length >= static_cast<std::size_t>(capacity)) {
    utf16[0] = L'\0';
    return kFailed;
  }
  for (std::size_t i = 0; i <= length; ++i) utf16[i] = static_cast<unsigned char>(ansi[i]);
  return 0;
}

int CQVXUnicodeTool::Utf16ToAnsi(const wchar_t* utf16, char* ansi, int capacity) {
  if (capacity <= 0) return kFailed;
  const std::size_t length = std::wcslen(utf16);
  bool fits = length < static_cast<std::size_t>(capacity);
  for (std::size_t i = 0; fits && i <= length; ++i) {
    fits = static_cast<char32_t>(utf16[i]) <= 0xFF;
    ansi[i] = static_cast<char>(utf16[i]);
  }
  if (fits) return 0;
  ansi[0] = '\0';
  return kFailed;
}

int CQVXUnicodeTool::Utf16ToUtf8(const wchar_t* utf16, char*& utf8) {
  std::string converted;
  int result = 0;
  for (; *utf16 != L'\0' && result == 0; ++utf16) {
    const auto value = static_cast<char32_t>(*utf16);
    if (IsCodePoint(value)) {
      AppendUtf8(value, converted);
    } else {
      converted.clear();
      result = kFailed;
    }
  }
  utf8 = new char[converted.size() + 1];
  std::memcpy(utf8, converted.c_str(), converted.size() + 1);
  return result;
}

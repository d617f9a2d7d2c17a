// QVXUnicodeTool.dll of the transcripts. Its ANSI code page is ISO 8859-1, so that no machine's
// setting shows in a transcript; but on its way back a letter becomes two, for texts can change
// their length there.
#include <algorithm>
#include <cstring>
#include <cwchar>
#include <string>

#include "platform/qvx_unicode_tool.h"
#include "tests/transcripts/libraries/attached_host.h"

using qvx::test::host;
using qvx::test::Operation;

namespace {

std::string Utf8(const wchar_t* utf16) {
  std::string utf8;
  for (; *utf16 != 0; ++utf16) {
    const unsigned unit = *utf16;
    if (unit < 0x80) {
      utf8 += static_cast<char>(unit);
    } else if (unit < 0x800) {
      utf8 += static_cast<char>(0xC0 | unit >> 6);
      utf8 += static_cast<char>(0x80 | (unit & 0x3F));
    } else {
      utf8 += static_cast<char>(0xE0 | unit >> 12);
      utf8 += static_cast<char>(0x80 | (unit >> 6 & 0x3F));
      utf8 += static_cast<char>(0x80 | (unit & 0x3F));
    }
  }
  return utf8;
}

std::string Result(int result) { return " = " + std::to_string(result); }

}  // namespace

CQVXUnicodeTool::CQVXUnicodeTool() { host->construct(this, "Unicode tool #"); }
CQVXUnicodeTool::~CQVXUnicodeTool() { host->destroy(this); }

int CQVXUnicodeTool::AnsiToUtf16(const char* ansi, wchar_t* utf16, int capacity) {
  Operation operation(this, "AnsiToUtf16");
  operation.Add(std::string("(") + host->quote(ansi) + ", " + std::to_string(capacity) + " units)");
  const auto length = static_cast<int>(std::strlen(ansi));
  if (length >= capacity) {
    *utf16 = 0;
    operation.Add(Result(-1));
    return -1;
  }
  std::transform(ansi, ansi + length + 1, utf16,
                 [](char character) { return static_cast<unsigned char>(character); });
  operation.Add(Result(host->answers->conversionResult) + ", " + host->quoteWide(utf16));
  return host->answers->conversionResult;
}

int CQVXUnicodeTool::Utf16ToAnsi(const wchar_t* utf16, char* ansi, int capacity) {
  Operation operation(this, "Utf16ToAnsi");
  operation.Add(std::string("(") + host->quoteWide(utf16) + ", " + std::to_string(capacity) +
                " bytes)");
  std::string text;
  for (; *utf16 != 0; ++utf16) {
    if (*utf16 == L'\u00E4') {
      text += "ae";
    } else {
      text += static_cast<char>(*utf16);
    }
  }
  if (text.size() >= static_cast<std::size_t>(capacity)) {
    *ansi = 0;
    operation.Add(Result(-1));
    return -1;
  }
  std::strcpy(ansi, text.c_str());
  operation.Add(Result(host->answers->conversionResult) + ", " + host->quote(ansi));
  return host->answers->conversionResult;
}

int CQVXUnicodeTool::Utf16ToUtf8(const wchar_t* utf16, char*& utf8) {
  Operation operation(this, "Utf16ToUtf8");
  operation.Add(std::string("(") + host->quoteWide(utf16) + ")");
  const std::string text = Utf8(utf16);
  utf8 = new char[text.size() + 1];
  std::memcpy(utf8, text.c_str(), text.size() + 1);
  host->watch(utf8, "the UTF-8 text");
  operation.Add(Result(host->answers->utf8Result) + ", " + host->quote(utf8));
  return host->answers->utf8Result;
}

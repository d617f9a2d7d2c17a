// The text conversions of the unicode tool's replacement: exact or refused, with an empty text left
// behind.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/qvx_unicode_tool.h"

namespace qvx {
namespace {

constexpr int kWidth = 8;

struct Converted {
  int result;
  std::string utf8;
};

Converted ToUtf8(const std::wstring& utf16) {
  char* utf8 = nullptr;
  const int result = CQVXUnicodeTool().Utf16ToUtf8(utf16.c_str(), utf8);
  const std::unique_ptr<char[]> owner(utf8);
  return {result, utf8};
}

TEST(UnicodeTool, ConvertsAnsiToUtf16) {
  wchar_t utf16[kWidth];
  EXPECT_EQ(CQVXUnicodeTool().AnsiToUtf16("Part\xE4", utf16, kWidth), 0);
  EXPECT_STREQ(utf16, L"Part\u00E4");
}

TEST(UnicodeTool, ConvertsUtf16ToAnsi) {
  char ansi[kWidth];
  EXPECT_EQ(CQVXUnicodeTool().Utf16ToAnsi(L"Part\u00E4", ansi, kWidth), 0);
  EXPECT_STREQ(ansi, "Part\xE4");
}

TEST(UnicodeTool, FillsABufferToItsLastCharacter) {
  wchar_t utf16[kWidth];
  EXPECT_EQ(CQVXUnicodeTool().AnsiToUtf16("1234567", utf16, kWidth), 0);
  EXPECT_STREQ(utf16, L"1234567");
  char ansi[kWidth];
  EXPECT_EQ(CQVXUnicodeTool().Utf16ToAnsi(L"1234567", ansi, kWidth), 0);
  EXPECT_STREQ(ansi, "1234567");
}

TEST(UnicodeTool, RefusesATextOfTheBuffersWidth) {
  wchar_t utf16[kWidth] = L"before";
  EXPECT_LT(CQVXUnicodeTool().AnsiToUtf16("12345678", utf16, kWidth), 0);
  EXPECT_STREQ(utf16, L"");
  char ansi[kWidth] = "before";
  EXPECT_LT(CQVXUnicodeTool().Utf16ToAnsi(L"12345678", ansi, kWidth), 0);
  EXPECT_STREQ(ansi, "");
}

TEST(UnicodeTool, RefusesABufferWithoutRoom) {
  wchar_t utf16[] = L"before";
  EXPECT_LT(CQVXUnicodeTool().AnsiToUtf16("", utf16, 0), 0);
  EXPECT_STREQ(utf16, L"before");
  char ansi[] = "before";
  EXPECT_LT(CQVXUnicodeTool().Utf16ToAnsi(L"", ansi, 0), 0);
  EXPECT_STREQ(ansi, "before");
}

TEST(UnicodeTool, RefusesLettersThatTheCodePageLacks) {
  for (const wchar_t* text : {L"a\u4E2D", L"\u0100"}) {
    char ansi[kWidth] = "before";
    EXPECT_LT(CQVXUnicodeTool().Utf16ToAnsi(text, ansi, kWidth), 0);
    EXPECT_STREQ(ansi, "");
  }
}

TEST(UnicodeTool, ConvertsUtf16ToUtf8OfEveryLength) {
  const Converted converted = ToUtf8(L"a\u00E4\u4E2D\U0001F600");
  EXPECT_EQ(converted.result, 0);
  EXPECT_EQ(converted.utf8, "a\xC3\xA4\xE4\xB8\xAD\xF0\x9F\x98\x80");
}

TEST(UnicodeTool, ConvertsAnEmptyTextToUtf8) {
  const Converted converted = ToUtf8(L"");
  EXPECT_EQ(converted.result, 0);
  EXPECT_EQ(converted.utf8, "");
}

TEST(UnicodeTool, RefusesHalfASurrogatePair) {
  const Converted converted = ToUtf8({L'a', wchar_t{0xD800}, L'b'});
  EXPECT_LT(converted.result, 0);
  EXPECT_EQ(converted.utf8, "");
}

}  // namespace
}  // namespace qvx

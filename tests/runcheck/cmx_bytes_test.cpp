// What the bytes of a CMX file hide from the launcher: marks, zero bytes, line ends, long lines. A
// near miss stands beside what it comes near to, here and in the files beside this one.
#include <gtest/gtest.h>

#include <string>

#include "tests/runcheck/cmx_found.h"

namespace qvx::runcheck {
namespace {

using namespace std::string_literals;

std::string Utf16(const std::string& text) {
  std::string wide;
  for (const char character : text) (wide += character) += '\0';
  return wide;
}

std::string Utf32(const std::string& text, bool bigEndian) {
  std::string wide;
  for (const char character : text) {
    wide += bigEndian ? "\0\0\0"s + character : character + "\0\0\0"s;
  }
  return wide;
}

TEST(CmxBytes, AByteOrderMarkHidesTheFirstTag) {
  EXPECT_EQ(
      Found(Local("<TASKMANAGER>", "\357\273\277<TASKMANAGER>")),
      "Sample03.cmx:1:1: error: the file begins with a byte-order mark (EF BB BF), which hides "
      "<TASKMANAGER>: the launcher would not recognise the first line [cmx-byte-order-mark]\n"
      "    1 | \357\273\277<TASKMANAGER>\n"
      "      | ^~~ help: the file is saved without it\n");
}

TEST(CmxBytes, AByteOrderMarkBeforeAnotherLineIsAWarning) {
  EXPECT_EQ(Found("\357\273\277\n" + Local()),
            "Sample03.cmx:1:1: warning: the file begins with a byte-order mark (EF BB BF) "
            "[cmx-byte-order-mark]\n"
            "    1 | \357\273\277\n"
            "      | ^~~ help: the file is saved without it\n");
}

TEST(CmxBytes, TheBytesOfAMarkWithinTheFileAreInOrder) {
  EXPECT_EQ(Found(Local() + "<NOTE>\n\357\273\277text\n</NOTE>\n"), "");
}

TEST(CmxBytes, Utf16IsNotRead) {
  EXPECT_EQ(Found("\377\376" + Utf16(Local())),
            "error: the file is UTF-16: the launcher would read nothing of it and run distributed "
            "[cmx-utf-16]\n"
            "    help: the file is saved in the ANSI code page\n");
}

TEST(CmxBytes, Utf16WithoutAMarkIsNotRead) {
  EXPECT_EQ(Found(Utf16(Local())),
            "error: the file is UTF-16: the launcher would read nothing of it and run distributed "
            "[cmx-utf-16]\n"
            "    help: the file is saved in the ANSI code page\n");
}

TEST(CmxBytes, Utf32IsNotRead) {
  const std::string told =
      "error cmx-utf-16: the file is UTF-32: the launcher would read nothing of it and run "
      "distributed\n"
      "  the file is saved in the ANSI code page\n";
  EXPECT_EQ(FoundInShort("\377\376\0\0"s + Utf32(Local(), false)), told);
  EXPECT_EQ(FoundInShort("\0\0\376\377"s + Utf32(Local(), true)), told);
}

TEST(CmxBytes, LettersBeyondAsciiAreNoUtf16) {
  EXPECT_EQ(Found("<NOTE>\n\377\376 \344\366\n</NOTE>\n" + Local()), "");
}

TEST(CmxBytes, AZeroByteCutsItsLine) {
  EXPECT_EQ(Found(Local("ValueNoTask = 1", "ValueNoTask\0 = 1"s)),
            "Sample03.cmx:3:12: error: the line holds a zero byte: the launcher would read the "
            "line up to it [cmx-zero-byte]\n"
            "    3 | ValueNoTask  = 1\n"
            "      |            ^ help: the byte is removed\n");
}

TEST(CmxBytes, AZeroByteInAForeignSectionIsANote) {
  EXPECT_EQ(Found(Local() + "<MESH>\nab\0c\n</MESH>\n"s),
            "Sample03.cmx:7:3: note: the line holds a zero byte [cmx-zero-byte]\n"
            "    7 | ab c\n"
            "      |   ^ help: the byte is removed\n");
}

TEST(CmxBytes, AZeroByteAfterTheLastTagIsInOrder) { EXPECT_EQ(Found(Local() + "\032\0\0\0"s), ""); }

TEST(CmxBytes, ACtrlZHidesWhatFollows) {
  EXPECT_EQ(Found("Title\032\n" + Local()),
            "Sample03.cmx:1:6: error: a Ctrl-Z (1A) stands before the end of the file: the "
            "launcher would read the file up to it [cmx-control-z]\n"
            "    1 | Title \n"
            "      |      ^ help: the byte is removed\n");
}

TEST(CmxBytes, ACtrlZAtTheEndIsInOrder) { EXPECT_EQ(Found(Local() + "\032\0\0"s), ""); }

TEST(CmxBytes, LoneCarriageReturnsMakeOneLine) {
  EXPECT_EQ(Found(Local("\n", "\r")),
            "error: the lines end in lone carriage returns: the launcher would take the whole file "
            "as one line [cmx-line-ends]\n"
            "    help: a line ends in one carriage return and one line feed\n");
}

TEST(CmxBytes, DoubledCarriageReturnsHideTheTags) {
  EXPECT_EQ(Found(Local("\n", "\r\r\n")),
            "Sample03.cmx:1:14: error: the line ends in more than one carriage return: the "
            "launcher would not recognise tags and values [cmx-line-ends]\n"
            "    1 | <TASKMANAGER> \n"
            "      |              ^ help: a line ends in one carriage return and one line feed\n");
}

TEST(CmxBytes, CarriageReturnsBehindTheLineFeedsHideTheTags) {
  const std::string told =
      "error cmx-line-ends: the lines end in a line feed before a carriage return: the launcher "
      "would not recognise tags and values\n"
      "  a line ends in one carriage return and one line feed\n";
  EXPECT_EQ(FoundInShort(Local("\n", "\n\r")), told);
  const std::string file = Distributed("\n", "\n\r");
  EXPECT_EQ(FoundInShort(file.substr(0, file.size() - 1)), told);
}

TEST(CmxBytes, EmptyLinesWithCarriageReturnsAreInOrder) {
  EXPECT_EQ(Found("\r\n\r\n" + Local("\n", "\r\n\r\n")), "");
  EXPECT_EQ(Found("\n\r\n" + Local("\n", "\r\n")), "");
}

TEST(CmxBytes, OneCarriageReturnIsInOrder) { EXPECT_EQ(Found(Local("\n", "\r\n")), ""); }

TEST(CmxBytes, ALongLineOfASectionIsCutInPieces) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "<TASKMANAGER>\n" + std::string(1100, 'x'))),
            "Sample03.cmx:2:1: error: CMX key is too long: width 260, length 1023: the launcher "
            "would end with -2 [text-too-long]\n"
            "    2 | " +
                std::string(160, 'x') +
                "\n"
                "      | ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: it is "
                "shortened to less than the width\n"
                "Sample03.cmx:2:1024: warning: the line has more than 1023 bytes [cmx-long-line]\n"
                "    2 | " +
                std::string(77, 'x') +
                "\n"
                "      |          ^ help: it is written shorter\n");
}

TEST(CmxBytes, ALongLineElsewhereIsInOrder) {
  EXPECT_EQ(Found("<MESH>\n" + std::string(3000, 'm') + "\n</MESH>\n" + Local()), "");
}

TEST(CmxBytes, LastLettersOfOtherCodePagesAreVisible) {
  // The last byte of Greek and Russian names is one of a byte-order mark.
  for (const char* name : {"\xC5\xF1\xE3\xEF", "\xD2\xE8\xEF", "C:\\\xC4\xBF", "C:\\x\xBB",
                           "\xCF\xC2", "\xC5\xE2\x80", "\x80\x8B"}) {
    EXPECT_EQ(TrimmedOfInvisible(name), name);
  }
}

TEST(CmxBytes, MarksAndBlanksOfEveryKindAreInvisible) {
  EXPECT_EQ(TrimmedOfInvisible("\xEF\xBB\xBF \t\xA0"
                               "Name\xA0\t \xEF\xBB\xBF"),
            "Name");
  EXPECT_EQ(TrimmedOfInvisible("\xEF\xBB\xBF \t\xA0"), "");
}

}  // namespace
}  // namespace qvx::runcheck

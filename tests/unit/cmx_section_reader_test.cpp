// The format of a CMX file and the reading rules that all sections share.
#include "runconfig/cmx_section_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/expect_fault.h"
#include "tests/support/printed_by.h"
#include "tests/support/temporary_folder.h"

namespace qvx {
namespace {

using Settings = std::vector<std::string>;

/// Every setting of section S that the reader hands over, as "key|value".
Settings ReadSettings(const std::string& bytes) {
  // Static: a fault ends the process without leaving this scope.
  static const test::TemporaryFolder folder;
  Settings settings;
  EXPECT_TRUE(
      ReadCmxSection(folder.Write("run.cmx", bytes).c_str(), "S", [&](const CmxSetting& setting) {
        settings.push_back(std::string(setting.key) + "|" + setting.value);
      }));
  return settings;
}

std::string Split(const char* line, char separator) {
  char key[kCmxTextWidth];
  char value[kCmxTextWidth];
  SplitKeyValue(line, separator, key, value);
  return std::string(key) + "|" + value;
}

TEST(SplitKeyValue, SplitsAtTheFirstSeparator) {
  EXPECT_EQ(Split("a=b", '='), "a|b");
  EXPECT_EQ(Split("a=b=c", '='), "a|b=c");
  EXPECT_EQ(Split("=b", '='), "|b");
  EXPECT_EQ(Split("a=", '='), "a|");
  EXPECT_EQ(Split("a\tb\tc", '\t'), "a|b\tc");
}

TEST(SplitKeyValue, GivesTheWordNullWithoutASeparator) {
  EXPECT_EQ(Split("Version", '='), "Version|NULL");
  EXPECT_EQ(Split("", '='), "|NULL");
}

TEST(SplitKeyValue, RefusesKeyAndValueOf260Characters) {
  const std::string longest(259, 'k');
  EXPECT_EQ(Split((longest + "=" + longest).c_str(), '='), longest + "|" + longest);
  EXPECT_FAULT(Split((longest + "k=v").c_str(), '='),
               "ERROR: CMX key is too long: width 260, length 260");
  EXPECT_FAULT(Split(("k=" + longest + "v").c_str(), '='),
               "ERROR: CMX value is too long: width 260, length 260");
  EXPECT_FAULT(Split((longest + "k=" + longest + "v").c_str(), '='),
               "ERROR: CMX key is too long: width 260, length 260");
  EXPECT_FAULT(Split((longest + "k").c_str(), '='),
               "ERROR: CMX key is too long: width 260, length 260");
}

TEST(RemoveAllSpaces, TakesSpacesFromEverywhereAndKeepsTabs) {
  char text[] = " a b \t c ";
  RemoveAllSpaces(text);
  EXPECT_STREQ(text, "ab\tc");
}

TEST(RemoveLeadingSpaces, TakesSpacesFromTheStartOnly) {
  char text[] = "  a b \t ";
  RemoveLeadingSpaces(text);
  EXPECT_STREQ(text, "a b \t ");
  char tab[] = "\t a";
  RemoveLeadingSpaces(tab);
  EXPECT_STREQ(tab, "\t a");
  char otherBlanks[] = "\r\n\v\f a";
  RemoveLeadingSpaces(otherBlanks);
  EXPECT_STREQ(otherBlanks, "\r\n\v\f a");
  char spaces[] = "   ";
  RemoveLeadingSpaces(spaces);
  EXPECT_STREQ(spaces, "");
}

TEST(ReadCmxSection, HandsOverTheLinesOfItsSectionOnly) {
  EXPECT_EQ(ReadSettings("a=1\n<S>\nb=2\n</S>\nc=3\n<T>\nd=4\n</T>\n"),
            (Settings{"<S>|NULL", "b|2", "</S>|NULL"}));
}

TEST(ReadCmxSection, LeavesNoLineOfItsSectionOut) {
  EXPECT_EQ(ReadSettings("<S>\n\n# a=1\n; b=2\n// c=3\n</S>\n-"),
            (Settings{"<S>|NULL", "|NULL", "#a|1", ";b|2", "//c|3", "</S>|NULL"}));
}

TEST(ReadCmxSection, EndsAtNoOtherSectionsTag) {
  EXPECT_EQ(ReadSettings("<S>\n<T>\na=1\n</T>\nb=2\n</S>\n-"),
            (Settings{"<S>|NULL", "<T>|NULL", "a|1", "</T>|NULL", "b|2", "</S>|NULL"}));
}

TEST(ReadCmxSection, TakesSpacesFromTheKeyAndFromTheStartOfTheValue) {
  EXPECT_EQ(ReadSettings("<S>\n Ver sion =  1 0 \n\tkey\t=\tv\n</S>\nx"),
            (Settings{"<S>|NULL", "Version|1 0 ", "\tkey\t|\tv", "</S>|NULL"}));
}

TEST(ReadCmxSection, KnowsNeitherQuotesNorCommentsNorOtherSeparators) {
  EXPECT_EQ(
      ReadSettings("<S>\na=\"1\"\t\nb=2;#2\nc:3\nd=NULL\n\240e=\n</S>\nx"),
      (Settings{"<S>|NULL", "a|\"1\"\t", "b|2;#2", "c:3|NULL", "d|NULL", "\240e|", "</S>|NULL"}));
}

TEST(ReadCmxSection, KnowsATagOnlyAsTheWholeLine) {
  EXPECT_EQ(ReadSettings("<S> \na=1\n <S>\nb=2\n<s>\nc=3\n"), Settings{});
  EXPECT_EQ(ReadSettings("\xEF\xBB\xBF<S>\na=1\n"), Settings{});
  EXPECT_EQ(ReadSettings("<S>\n</S> \n </S>\n</s>\na=1\n</S>\nb=2"),
            (Settings{"<S>|NULL", "</S>|NULL", "</S>|NULL", "</s>|NULL", "a|1", "</S>|NULL"}));
}

TEST(ReadCmxSection, ReadsTheSectionAgainWheneverItComes) {
  EXPECT_EQ(ReadSettings("<S>\na=1\n</S>\nx=0\n<S>\na=2\n</S>\n-"),
            (Settings{"<S>|NULL", "a|1", "</S>|NULL", "<S>|NULL", "a|2", "</S>|NULL"}));
}

TEST(ReadCmxSection, ReadsASectionLeftOpenToTheEndOfTheFile) {
  EXPECT_EQ(ReadSettings("<S>\na=1"), (Settings{"<S>|NULL", "a|1"}));
}

TEST(ReadCmxSection, HandsOverALastLineThatEndsInALineFeedTwice) {
  EXPECT_EQ(ReadSettings("<S>\na=1\n"), (Settings{"<S>|NULL", "a|1", "a|1"}));
  EXPECT_EQ(ReadSettings("</S>\n<S>\n"), (Settings{"<S>|NULL", "<S>|NULL"}));
}

TEST(ReadCmxSection, DropsACarriageReturnOnlyDirectlyBeforeALineFeed) {
  EXPECT_EQ(ReadSettings("<S>\r\na=1\r\nb=2\r\r\nc\r=3\r\n</S>\r\n-"),
            (Settings{"<S>|NULL", "a|1", "b|2\r", "c\r|3", "</S>|NULL"}));
}

TEST(ReadCmxSection, ReadsALongLineInPiecesOf1023Characters) {
  const std::string outside(1023, '-');
  EXPECT_EQ(ReadSettings(outside + "<S>\na=1\n</S>\n-"),
            (Settings{"<S>|NULL", "a|1", "</S>|NULL"}));
  EXPECT_EQ(ReadSettings(outside + "-<S>\na=1\n"), Settings{});
}

TEST(ReadCmxSection, LimitsTheLinesOfItsSectionOnly) {
  const std::string longLine(300, 'x');
  EXPECT_EQ(ReadSettings(longLine + "\n<S>\n</S>\n" + longLine + "\n"),
            (Settings{"<S>|NULL", "</S>|NULL"}));
  EXPECT_FAULT(ReadSettings("<S>\n" + longLine + "\n"),
               "ERROR: CMX key is too long: width 260, length 300");
  EXPECT_FAULT(ReadSettings("<S>\nk=" + std::string(260, ' ') + "\n"),
               "ERROR: CMX value is too long: width 260, length 260");
}

TEST(ReadCmxSection, FindsNothingInAnEmptyFile) {
  EXPECT_EQ(test::PrintedBy([] { EXPECT_EQ(ReadSettings(""), Settings{}); }), "");
}

TEST(ReadCmxSection, SaysWhichFileItCannotOpen) {
  const test::TemporaryFolder folder;
  for (const std::string& path : {folder.Path("missing.cmx"), folder.Path()}) {
    bool read = true;
    const std::string printed = test::PrintedBy(
        [&] { read = ReadCmxSection(path.c_str(), "S", [](const CmxSetting&) { FAIL(); }); });
    EXPECT_FALSE(read);
    EXPECT_EQ(printed, " Read CMX file: " + path + " failed!\n");
  }
}

}  // namespace
}  // namespace qvx

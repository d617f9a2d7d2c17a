// The bounded formatter: what fits is kept whole, what does not fit is a fault, and only the
// functions named Truncated cut.
#include "support/bounded_text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "tests/support/expect_fault.h"

namespace qvx {
namespace {

/// A field of 8 characters without a zero in it.
struct BoundedText : testing::Test {
  BoundedText() { std::memset(field, 'x', sizeof field); }
  char field[8];
};

using BoundedTextDeathTest = BoundedText;

TEST_F(BoundedText, FormatTextFillsTheFieldAndReturnsTheLength) {
  EXPECT_EQ(FormatText(field, "name", "%s%02d", "ab", 7), 4u);
  EXPECT_STREQ(field, "ab07");
}

TEST_F(BoundedText, FormatTextKeepsATextOfTheWidthLessOne) {
  EXPECT_EQ(FormatText(field, "name", "%s", "1234567"), 7u);
  EXPECT_STREQ(field, "1234567");
}

TEST_F(BoundedTextDeathTest, FormatTextRefusesATextOfTheWidth) {
  EXPECT_FAULT(FormatText(field, "run path", "%s%d", "123456", 78),
               "ERROR: run path is too long: width 8, length 8");
}

TEST_F(BoundedText, CopyTextCopiesNoMoreThanTheGivenPart) {
  CopyText(field, "name", std::string_view("abcdef").substr(1, 3));
  EXPECT_STREQ(field, "bcd");
}

TEST_F(BoundedText, CopyTextKeepsATextOfTheWidthLessOne) {
  CopyText(field, "name", "1234567");
  EXPECT_STREQ(field, "1234567");
}

TEST_F(BoundedTextDeathTest, CopyTextRefusesATextOfTheWidth) {
  EXPECT_FAULT(CopyText(field, "project name", "12345678"),
               "ERROR: project name is too long: width 8, length 8");
}

TEST_F(BoundedText, FormatTruncatedCutsToTheWidthLessOne) {
  FormatTruncated(field, "%s-%d", "1234", 5678);
  EXPECT_STREQ(field, "1234-56");
}

TEST_F(BoundedText, FormatTruncatedKeepsWhatFits) {
  FormatTruncated(field, "%s-%d", "a", 1);
  EXPECT_STREQ(field, "a-1");
}

TEST_F(BoundedText, CopyTruncatedCutsToTheWidthLessOne) {
  CopyTruncated(field, "123456789");
  EXPECT_STREQ(field, "1234567");
}

TEST_F(BoundedText, CopyTruncatedCopiesNoMoreThanTheGivenPart) {
  CopyTruncated(field, std::string_view("abcdef").substr(1, 3));
  EXPECT_STREQ(field, "bcd");
}

}  // namespace
}  // namespace qvx

#include "support/numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace qvx {
namespace {

TEST(ParseInteger, ReadsLeadingDigitsAndIgnoresTheRest) {
  EXPECT_EQ(ParseInteger("4"), 4);
  EXPECT_EQ(ParseInteger(" \t-12abc"), -12);
  EXPECT_EQ(ParseInteger("+7"), 7);
  EXPECT_EQ(ParseInteger("3.9"), 3);
  EXPECT_EQ(ParseInteger("0x10"), 0);
  EXPECT_EQ(ParseInteger("1e3"), 1);
  EXPECT_EQ(ParseInteger("2,000 000"), 2);
}

TEST(ParseInteger, GivesZeroForTextThatIsNoNumber) {
  EXPECT_EQ(ParseInteger(""), 0);
  EXPECT_EQ(ParseInteger("NULL"), 0);
  EXPECT_EQ(ParseInteger("- 3"), 0);
}

TEST(ParseInteger, StopsAtTheLimitsOf32Bits) {
  EXPECT_EQ(ParseInteger("2147483648"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(ParseInteger("-99999999999999999999"), std::numeric_limits<std::int32_t>::min());
}

TEST(ParseDecimal, ReadsFractionsAndGivesZeroForOtherText) {
  EXPECT_EQ(ParseDecimal("0.6"), 0.6);
  EXPECT_EQ(ParseDecimal("-2.5e1 x"), -25.0);
  EXPECT_EQ(ParseDecimal(" \t+.5E+1"), 5.0);
  EXPECT_EQ(ParseDecimal("0,5"), 0.0);
  EXPECT_EQ(ParseDecimal("NULL"), 0.0);
  EXPECT_EQ(ParseDecimal(""), 0.0);
}

TEST(ParseDecimal, ReadsNothingButDecimalNumbers) {
  EXPECT_EQ(ParseDecimal("0x10"), 0.0);
  EXPECT_EQ(ParseDecimal("inf"), 0.0);
  EXPECT_EQ(ParseDecimal("-INFINITY"), 0.0);
  EXPECT_EQ(ParseDecimal("nan"), 0.0);
}

}  // namespace
}  // namespace qvx

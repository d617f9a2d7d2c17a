// Lower-casing through UTF-16, for ASCII. What becomes of other letters is the system's business.
#include "launcher/lower_case_name.h"

#include <gtest/gtest.h>

namespace qvx {
namespace {

std::string Lower(std::string text) {
  LauncherContext context;
  LowerCaseName(context, text);
  return text;
}

TEST(LowerCaseName, LowersLettersAndKeepsTheRest) {
  EXPECT_EQ(Lower("D:\\Work [1]\\QVX3DFlow_AZaz.exe"), "d:\\work [1]\\qvx3dflow_azaz.exe");
}

TEST(LowerCaseName, KeepsAnEmptyText) { EXPECT_EQ(Lower(""), ""); }

TEST(LowerCaseName, TakesTextsOfAnyLength) {
  EXPECT_EQ(Lower(std::string(5000, 'A')), std::string(5000, 'a'));
}

}  // namespace
}  // namespace qvx

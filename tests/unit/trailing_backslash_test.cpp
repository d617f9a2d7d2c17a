// Single-byte texts; double-byte ones are in tests/windows.
#include "support/trailing_backslash.h"

#include <gtest/gtest.h>

#include <string>

namespace qvx {
namespace {

std::string Without(std::string text) {
  RemoveTrailingBackslash(text.data());
  return text.c_str();
}

TEST(RemoveTrailingBackslash, RemovesOneAtTheEndOnly) {
  EXPECT_EQ(Without("C:\\MPI\\"), "C:\\MPI");
  EXPECT_EQ(Without("C:\\MPI\\\\"), "C:\\MPI\\");
  EXPECT_EQ(Without("C:\\MPI"), "C:\\MPI");
  EXPECT_EQ(Without("C:\\MPI/"), "C:\\MPI/");
  EXPECT_EQ(Without("C:\\"), "C:");
  EXPECT_EQ(Without("\\"), "");
}

TEST(RemoveTrailingBackslash, TouchesNothingInFrontOfAnEmptyText) {
  char text[] = {'\\', '\0'};
  RemoveTrailingBackslash(text + 1);
  EXPECT_EQ(text[0], '\\');
}

}  // namespace
}  // namespace qvx

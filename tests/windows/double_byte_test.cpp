// Folders whose last letter ends in the byte of a backslash, as some do in a double-byte code page,
// and half a letter. Runs in code page 932.
#include <gtest/gtest.h>
#include <windows.h>

#include <iterator>
#include <string>
#include <string_view>

#include "execution/mpi_configuration.h"
#include "launcher/command_line.h"
#include "platform/qvx_unicode_tool.h"
#include "support/trailing_backslash.h"
#include "tests/support/machine_state.h"

namespace qvx {
namespace {

/// One letter of two bytes, the second one 0x5C.
const std::string kFolder = "C:\\\x83\x5C";

TEST(DoubleByte, IsTheCodePageOfTheseTests) { ASSERT_EQ(GetACP(), 932u); }

std::string HomeFolderOf(const std::string& given) {
  LauncherContext context;
  char first[] = "L$1";
  std::string tokens = given + "*C:\\Projects*Sample*0*01";
  char solver[] = "Qvx3DFlow.exe";
  char* arguments[] = {first, tokens.data(), solver, nullptr};
  InterpretCommandLine(context, 3, arguments);
  EXPECT_STREQ(context.homeFolder, context.flowArgument.homeFolder);
  return context.homeFolder;
}

TEST(DoubleByte, HomeFolderKeepsItsLastLetterAndLosesItsSeparator) {
  EXPECT_EQ(HomeFolderOf(kFolder), kFolder);
  EXPECT_EQ(HomeFolderOf(kFolder + "\\"), kFolder);
  EXPECT_EQ(HomeFolderOf(kFolder + "\\\\"), kFolder + "\\");
}

TEST(DoubleByte, HalfALetterAtTheEndDoesNotLeadBehindIt) {
  char text[] = "C:\x83\0\\";
  RemoveTrailingBackslash(text);
  EXPECT_EQ(text[4], '\\');
}

TEST(DoubleByte, HalfALetterIsNotConverted) {
  wchar_t utf16[] = L"before";
  EXPECT_LT(CQVXUnicodeTool().AnsiToUtf16("a\x83", utf16, std::size(utf16)), 0);
  EXPECT_STREQ(utf16, L"");
}

TEST(DoubleByte, MpiInstallationPathKeepsItsLastLetterAndLosesItsSeparator) {
  const test::MpiInstallPathValue value;
  LauncherContext context;
  for (const std::string_view separator : {"", "\\"}) {
    value.Set(kFolder + std::string(separator));
    EXPECT_EQ(ReadMpiInstallationPath(context), kFolder);
  }
}

}  // namespace
}  // namespace qvx

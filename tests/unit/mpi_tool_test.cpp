// The MPI tool's replacement: which account files it takes, and that it asks for no options.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/qvx_mpi_tool.h"
#include "tests/support/temporary_folder.h"

namespace qvx {
namespace {

struct MpiTool : testing::Test {
  int Convert() {
    return tool.ConvertAcc2RegistryForIntelMPI(
        std::filesystem::path(folder.Path()).wstring().c_str(), false);
  }

  test::TemporaryFolder folder;
  CQVXMPITool tool;
};

TEST_F(MpiTool, TakesAnAccountFileThatHoldsSomething) {
  folder.Write("acc.ini", "\n");
  EXPECT_EQ(Convert(), 0);
}

TEST_F(MpiTool, RefusesAMissingAccountFile) { EXPECT_EQ(Convert(), -6); }

TEST_F(MpiTool, RefusesAnEmptyAccountFile) {
  folder.Write("acc.ini", "");
  EXPECT_EQ(Convert(), -6);
}

TEST_F(MpiTool, RefusesAFolderInTheAccountFilesPlace) {
  folder.Write("acc.ini/file", "accounts");
  EXPECT_EQ(Convert(), -6);
}

TEST_F(MpiTool, AsksForNoOptions) {
  EXPECT_STREQ(tool.GetIntelMPIConfigurationStringForMpiexec(L"C:\\Users\\me"), L"");
}

}  // namespace
}  // namespace qvx

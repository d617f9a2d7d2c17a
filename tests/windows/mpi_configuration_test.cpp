// The MPI installation path in the real registry, the parallel folder name in a real ini file, the
// user's configuration folder, and for whom the MPI accounts are converted.
#include "execution/mpi_configuration.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include "execution/mpi_accounts.h"
#include "execution/mpi_launch.h"
#include "launcher/argument_record.h"
#include "support/bounded_text.h"
#include "tests/support/expect_fault.h"
#include "tests/support/machine_state.h"
#include "tests/support/temporary_folder.h"
#include "tests/windows/console_of.h"

namespace qvx {
namespace {

class MpiInstallationPath : public testing::Test {
 protected:
  /// Starts from another path.
  std::string Read() {
    CopyText(context.mpiInstallationPath, "MPI installation path", "C:\\Earlier");
    return ReadMpiInstallationPath(context);
  }

  const test::MpiInstallPathValue value;
  LauncherContext context;
};

TEST_F(MpiInstallationPath, IsTheRegistryValueLessOneTrailingBackslash) {
  value.Set("C:\\MPI\\bin");
  EXPECT_EQ(Read(), "C:\\MPI\\bin");
  value.Set("C:\\MPI\\bin\\\\");
  EXPECT_EQ(Read(), "C:\\MPI\\bin\\");
  value.Set("C:\\");
  EXPECT_EQ(Read(), "C:");
  value.Set(" \"C:/MPI\" ");
  EXPECT_EQ(Read(), " \"C:/MPI\" ");
  value.Set("\"C:\\MPI\"");
  EXPECT_EQ(Read(), "\"C:\\MPI\"");
  value.Set("");
  EXPECT_EQ(Read(), "");
}

TEST_F(MpiInstallationPath, IsEmptyWhenTheValueOrItsKeyIsMissing) {
  value.Remove();
  EXPECT_EQ(Read(), "");
  value.RemoveKey();
  EXPECT_EQ(Read(), "");
}

TEST_F(MpiInstallationPath, TakesUpTo259CharactersWithOrWithoutATerminatingZero) {
  const std::string longest(259, 'm');
  value.Set(longest);
  EXPECT_EQ(Read(), longest);
  value.Set(longest + "m");
  EXPECT_EQ(Read(), "");
  value.SetUnterminated(longest);
  EXPECT_EQ(Read(), longest);
  value.SetUnterminated(longest + "m");
  EXPECT_FAULT(ReadMpiInstallationPath(context),
               "ERROR: MPI installation path is too long: width 260, length 260");
}

TEST_F(MpiInstallationPath, MayMakeAPathOfImpiexecTooLong) {
  const std::string longest(259 - std::string("\\impiexec.exe").size(), 'm');
  value.Set(longest);
  EXPECT_EQ(PrepareMpiCommand(context, MpiProcesses{"", ""}).reportedPath,
            longest + "\\impiexec.exe");
  value.Set(longest + "m");
  EXPECT_FAULT(PrepareMpiCommand(context, MpiProcesses{"", ""}),
               "ERROR: impiexec.exe path is too long: width 260, length 260");
}

TEST(MpiCommand, RefusesASolverPathThatIsTooLong) {
  LauncherContext context;
  CopyText(context.solverExecutableName, "solver executable name", "Solver.exe");
  const std::string home(260 - std::string("\\Bin\\Solver.exe").size(), 'h');
  EXPECT_FAULT(PrepareMpiCommand(context, MpiProcesses{"", home.c_str()}),
               "ERROR: solver path is too long: width 260, length 260");
}

TEST(MpiCommand, CreatesTheUsersConfigurationFolder) {
  const std::filesystem::path product =
      std::filesystem::path(std::getenv("APPDATA")) / "NelvornSystem";
  std::error_code ignored;
  std::filesystem::remove(product / "Quorvex R13.0", ignored);
  std::filesystem::remove(product, ignored);
  const test::EnvironmentVariable versionCheck("I_MPI_SMPD_VERSION_CHECK");
  LauncherContext context;
  PrepareMpiCommand(context, {"-n 4", "C:\\Q"});
  EXPECT_TRUE(std::filesystem::is_directory(product / "Quorvex R13.0"));
}

class ParallelFolderName : public testing::Test {
 protected:
  /// Starts from another name.
  std::string ReadFrom(const std::string& ini) {
    // A file of its own for every content: the system may keep the last one in memory.
    const std::string home = std::to_string(++count_);
    folder_.Write(home + "\\Bin\\QVXProject.ini", ini);
    CopyText(context_.homeFolder, "home folder", folder_.Path(home));
    CopyText(context_.parallelFolderName, "parallel folder name", "Earlier");
    EXPECT_EQ(ReadParallelFolderName(context_), 0);
    return context_.parallelFolderName;
  }

 private:
  const test::TemporaryFolder folder_;
  LauncherContext context_;
  int count_ = 0;
};

TEST_F(ParallelFolderName, IsTheProjectIniFilesValueUpTo259Characters) {
  EXPECT_EQ(ReadFrom("[Other]\r\nQVX_PARALLEL_FOLDER_NAME=Wrong\r\n"
                     "[Configuration]\r\nOther=1\r\nQVX_PARALLEL_FOLDER_NAME=Quorvex Share\r\n"),
            "Quorvex Share");
  EXPECT_EQ(ReadFrom("[Configuration]\r\nQVX_PARALLEL_FOLDER_NAME=\\A/B\\"), "\\A/B\\");
  EXPECT_EQ(ReadFrom("[Configuration]\r\nOther=1\r\n"), "");
  EXPECT_EQ(ReadFrom("[Configuration]\r\nQVX_PARALLEL_FOLDER_NAME=" + std::string(300, 'q')),
            std::string(259, 'q'));
}

TEST(ProjectIniFile, IsRefusedWhenItsPathIsTooLong) {
  LauncherContext context;
  const std::string home(260 - std::string("\\Bin\\QVXProject.ini").size(), 'h');
  CopyText(context.homeFolder, "home folder", home);
  EXPECT_FAULT(ReadParallelFolderName(context),
               "ERROR: project ini file is too long: width 260, length 260");
}

/// The classes that can be distributed have a home folder, which the accounts are read from; for
/// others, which no command line can bring here, an empty one is given.
TEST(MpiAccounts, AreReadFromTheHomeFolderOfTheRunsRecord) {
  const test::TemporaryFolder folder;
  folder.Write("acc.ini", "account");
  for (std::uint32_t solverClass = 0; solverClass <= 13; ++solverClass) {
    LauncherContext context;
    context.debugTraceFlag = 1;
    context.solverClass = SolverClass{solverClass};
    VisitArgumentRecord(context, [&](QVXRunTexts& record) {
      CopyText(record.homeFolder, "home folder of a record", folder.Path());
    });
    int result = 1;
    const std::string console =
        test::ConsoleOf([&] { result = ConvertMpiAccounts(context); }).written;
    if (solverClass <= 4) {
      EXPECT_EQ(console, "ConvertAcc2RegistryForIntelMPI(" + folder.Path() + ")\r\n");
      EXPECT_EQ(result, 0);
      EXPECT_EQ(context.configurationAbortFlag, 0);
    } else {
      EXPECT_EQ(console,
                "ConvertAcc2RegistryForIntelMPI()\r\n"
                "Error: Please check if acc.ini is properly configured!\r\n");
      EXPECT_EQ(result, -6);
      EXPECT_EQ(context.configurationAbortFlag, 1);
    }
  }
}

}  // namespace
}  // namespace qvx

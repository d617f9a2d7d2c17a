// What the shared-memory and the distributed launch prepare in the same way.
#include "execution/mpi_launch.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include "support/bounded_text.h"
#include "tests/support/expect_fault.h"
#include "tests/support/machine_state.h"

namespace qvx {
namespace {

class MpiLaunch : public testing::Test {
 protected:
  MpiLaunch() {
    mpiInstallPath.Set("C:\\MPI\\x64");
    CopyText(context.solverExecutableName, "solver executable name", "Qvx3DFlow.exe");
    CopyText(context.solverArgumentString, "solver argument string", "-a");
  }

  std::string CommandLine() { return PrepareMpiCommand(context, {"-n 4", "C:\\Q"}).commandLine; }

  const test::MpiInstallPathValue mpiInstallPath;
  const test::EnvironmentVariable versionCheck{"I_MPI_SMPD_VERSION_CHECK"};
  LauncherContext context;
};

TEST_F(MpiLaunch, BuildsTheCommandLineAndReportsTheProcessLauncher) {
  const LaunchCommand command = PrepareMpiCommand(context, {"-n 4", "C:\\Q"});
  EXPECT_EQ(command.commandLine,
            "C:\\MPI\\x64\\impiexec.exe -env 0 0 -n 4  \"C:\\Q\\Bin\\Qvx3DFlow.exe\" -a");
  EXPECT_EQ(command.reportedPath, "C:\\MPI\\x64\\impiexec.exe");
}

TEST_F(MpiLaunch, ReadsTheInstallationPathEveryTime) {
  CommandLine();
  mpiInstallPath.Set("D:\\Other\\");
  EXPECT_EQ(CommandLine(),
            "D:\\Other\\impiexec.exe -env 0 0 -n 4  \"C:\\Q\\Bin\\Qvx3DFlow.exe\" -a");
  mpiInstallPath.Remove();
  EXPECT_EQ(CommandLine(), "\\impiexec.exe -env 0 0 -n 4  \"C:\\Q\\Bin\\Qvx3DFlow.exe\" -a");
}

TEST_F(MpiLaunch, SwitchesTheVersionCheckOffForGood) {
  CommandLine();
  EXPECT_EQ(versionCheck.Value(), "0");
}

TEST_F(MpiLaunch, CreatesTheUsersConfigurationFolder) {
  const std::filesystem::path product =
      std::filesystem::path(std::getenv("APPDATA")) / "NelvornSystem";
  std::error_code ignored;
  std::filesystem::remove(product / "Quorvex R13.0", ignored);
  std::filesystem::remove(product, ignored);
  CommandLine();
  EXPECT_TRUE(std::filesystem::is_directory(product / "Quorvex R13.0"));
}

TEST_F(MpiLaunch, RefusesPathsOf260Characters) {
  const std::string longest(259 - std::string("\\impiexec.exe").size(), 'm');
  mpiInstallPath.Set(longest);
  EXPECT_EQ(PrepareMpiCommand(context, {"", ""}).reportedPath, longest + "\\impiexec.exe");
  mpiInstallPath.Set(longest + "m");
  EXPECT_FAULT(CommandLine(), "ERROR: impiexec.exe path is too long: width 260, length 260");
  mpiInstallPath.Set("C:\\MPI");
  const std::string home(260 - std::string("\\Bin\\Qvx3DFlow.exe").size(), 'h');
  const MpiProcesses processes = {"", home.c_str()};
  EXPECT_FAULT(PrepareMpiCommand(context, processes),
               "ERROR: solver path is too long: width 260, length 260");
}

}  // namespace
}  // namespace qvx

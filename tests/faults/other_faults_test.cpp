// Faults that are more than one failing call: short writes, a full disk, exhausted memory, and
// conversions that the closed libraries refuse.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "execution/mpi_launch.h"
#include "execution/serial_launch.h"
#include "launcher/lower_case_name.h"
#include "tests/faults/failing_allocation.h"
#include "tests/faults/failing_call.h"
#include "tests/support/expect_fault.h"
#include "tests/support/import_patch.h"
#include "tests/windows/launch_fixture.h"

extern "C" {
extern void* __imp_WriteFile;
extern void* __imp__ZN15CQVXUnicodeTool11AnsiToUtf16EPKcPwi;
extern void* __imp__ZN15CQVXUnicodeTool11Utf16ToAnsiEPKwPci;
extern void* __imp__ZN15CQVXUnicodeTool11Utf16ToUtf8EPKwRPc;
}

namespace qvx {
namespace {

const auto kSystemWriteFile = reinterpret_cast<decltype(&WriteFile)>(__imp_WriteFile);
int writesToLog = 0;

bool IsLog(HANDLE file) {
  return GetFileType(file) == FILE_TYPE_DISK && file != GetStdHandle(STD_OUTPUT_HANDLE);
}

BOOL WINAPI WriteOneByte(HANDLE file, const void* bytes, DWORD size, DWORD* written,
                         OVERLAPPED* none) {
  return kSystemWriteFile(file, bytes, size < 1 ? size : 1, written, none);
}

/// Takes one byte of the log's second text and refuses everything after it.
BOOL WINAPI WriteUntilTheDiskIsFull(HANDLE file, const void* bytes, DWORD size, DWORD* written,
                                    OVERLAPPED* none) {
  if (!IsLog(file)) return kSystemWriteFile(file, bytes, size, written, none);
  ++writesToLog;
  if (writesToLog == 1) return kSystemWriteFile(file, bytes, size, written, none);
  if (writesToLog == 2) return kSystemWriteFile(file, bytes, 1, written, none);
  *written = 0;
  SetLastError(ERROR_DISK_FULL);
  return FALSE;
}

class Writes : public test::LaunchTest {
 protected:
  Writes() {
    logName = "console_redirect_serial_Flow_<time>.txt";
    script.Set("print first;flush;print second;flush;sleep 100;exit 3");
  }

  test::Outcome RunWith(decltype(&WriteFile) write) {
    writesToLog = 0;
    const test::ImportPatch patch(&__imp_WriteFile, reinterpret_cast<void*>(write));
    return Run(LaunchSerial);
  }

  const std::string shown = std::string(test::kSerialBanner) + "first\r\nsecond\r\n";
  const std::string commandLine = "Commandline=[" + solver + " -a b]\r\n";
};

TEST_F(Writes, ThatTakeOneByteAtATimeLoseNothing) {
  ExpectOutcome(RunWith(WriteOneByte), 3, solver, shown, commandLine + "first\r\nsecond\r\n");
}

TEST_F(Writes, ToAFullDiskEndTheLogAlone) {
  const test::Outcome outcome = RunWith(WriteUntilTheDiskIsFull);
  EXPECT_EQ(outcome.result, 3);
  EXPECT_EQ(outcome.console.All(), shown + "\r\n" + test::ReturnValue(solver, 3));
  EXPECT_EQ(Log(), commandLine + "f");
}

/// A solver writes this when it lives to its end; not in the fixture's folder, for the death test's
/// process has another. EXPECT_FAULT returns only when the solver is gone too: the solver inherits
/// the death test's pipe.
const std::string kSolverEnded =
    (std::filesystem::temp_directory_path() / "qvx_solver_ended").string();

class OutOfMemory : public test::LaunchTest {
 protected:
  OutOfMemory() { std::filesystem::remove(kSolverEnded); }
  ~OutOfMemory() override { std::filesystem::remove(kSolverEnded); }

  int CountAllocations() {
    script.Set("exit 0");
    int count = 0;
    test::ConsoleOf([&] {
      const test::FailingAllocation none(0);
      LaunchSerial(context);
      count = none.Count();
    });
    return count;
  }

  [[noreturn]] void LaunchUntil(int allocation) {
    script.Set("sleep 1000;touch " + kSolverEnded);
    InstallOutOfMemoryFault();
    const test::FailingAllocation failing(allocation);
    std::exit(LaunchSerial(context));
  }
};

TEST_F(OutOfMemory, AtAnyAllocationEndsTheLauncherAndItsChild) {
  const int allocations = CountAllocations();
  EXPECT_GT(allocations, 5);
  for (int n = 1; n <= allocations; ++n) {
    EXPECT_FAULT(LaunchUntil(n), "ERROR: out of memory") << n;
    EXPECT_FALSE(std::filesystem::exists(kSolverEnded)) << n;
  }
}

TEST_F(OutOfMemory, EndsTheLauncherEvenIfTheChildCannotBeEnded) {
  const int last = CountAllocations();
  EXPECT_FAULT(
      {
        const test::FailingCall failing("TerminateProcess", 1, ERROR_ACCESS_DENIED);
        LaunchUntil(last);
      },
      "ERROR: out of memory");
  test::Await(kSolverEnded);
}

int Refuse(const CQVXUnicodeTool*, const void*, void*, int) { return -1; }

TEST(LowerCaseName, LeavesATextThatCannotBeConverted) {
  LauncherContext context;
  for (void** slot : {&__imp__ZN15CQVXUnicodeTool11AnsiToUtf16EPKcPwi,
                      &__imp__ZN15CQVXUnicodeTool11Utf16ToAnsiEPKwPci}) {
    const test::ImportPatch patch(slot, reinterpret_cast<void*>(Refuse));
    std::string name = "Qvx3DFlow.exe";
    LowerCaseName(context, name);
    EXPECT_EQ(name, "Qvx3DFlow.exe");
  }
}

int ConvertNothing(const CQVXUnicodeTool*, const wchar_t*, char*&) { return -1; }

TEST(MpiLaunch, DoesWithoutAConfigurationThatCannotBeConverted) {
  LauncherContext context;
  const test::MpiInstallPathValue mpiInstallPath;
  mpiInstallPath.Set("C:\\MPI");
  const test::EnvironmentVariable versionCheck("I_MPI_SMPD_VERSION_CHECK");
  const test::ImportPatch patch(&__imp__ZN15CQVXUnicodeTool11Utf16ToUtf8EPKwRPc,
                                reinterpret_cast<void*>(ConvertNothing));
  EXPECT_EQ(BuildMpiCommand(context, "-n 4", "C:\\Q").commandLine,
            "C:\\MPI\\impiexec.exe -env 0 0 -n 4  \"C:\\Q\\Bin\\\" ");
}

}  // namespace
}  // namespace qvx

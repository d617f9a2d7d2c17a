// Faults that are more than one failing call: short writes, a full disk, a console that counts
// characters, exhausted memory, and closed libraries that throw, refuse or have no text.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "execution/argument_string.h"
#include "execution/console_log.h"
#include "execution/mpi_launch.h"
#include "execution/serial_launch.h"
#include "execution/write_whole.h"
#include "launcher/entry_sequence.h"
#include "launcher/lower_case_name.h"
#include "tests/faults/failing_allocation.h"
#include "tests/faults/failing_call.h"
#include "tests/faults/imported_member.h"
#include "tests/support/expect_fault.h"
#include "tests/support/import_patch.h"
#include "tests/windows/launch_fixture.h"

extern "C" {
extern void* __imp_CreateProcessA;
extern void* __imp_WriteFile;

// throwing_library
__declspec(dllimport) void ThrowRuntimeError();
__declspec(dllimport) void ThrowBadAlloc();
}

namespace qvx {
namespace {

const auto kSystemWriteFile = reinterpret_cast<decltype(&WriteFile)>(__imp_WriteFile);
int writes = 0;

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
  ++writes;
  if (writes == 1) return kSystemWriteFile(file, bytes, size, written, none);
  if (writes == 2) return kSystemWriteFile(file, bytes, 1, written, none);
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
    writes = 0;
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

/// As a console may that shows UTF-8: it takes everything and counts characters.
BOOL WINAPI WriteAndCountHalf(HANDLE, const void*, DWORD size, DWORD* written, OVERLAPPED*) {
  ++writes;
  *written = size / 2;
  return TRUE;
}

TEST(WriteWhole, DoesNotRepeatItselfOnAConsole) {
  const HANDLE device =
      CreateFileA("NUL", GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_EQ(GetFileType(device), FILE_TYPE_CHAR);
  writes = 0;
  {
    const test::ImportPatch patch(&__imp_WriteFile, reinterpret_cast<void*>(WriteAndCountHalf));
    EXPECT_NE(WriteWhole(device, "text", 4), 0);
  }
  EXPECT_EQ(writes, 1);
  CloseHandle(device);
}

/// A run from its command line, as the system starts it.
int RunEntry(const std::string& home, const std::string& project) {
  std::string first = "L$1";
  std::string tokens = home + "*" + project + "*Sample*0*01";
  std::string name = "QvxOptics.exe";  // reads no CMX file
  char* arguments[] = {first.data(), tokens.data(), name.data()};
  return RunEntrySequence(3, arguments);
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

const auto kSystemCreateProcess = reinterpret_cast<decltype(&CreateProcessA)>(__imp_CreateProcessA);

/// The first allocation behind the start of the child fails.
BOOL WINAPI CreateProcessAndRunOut(const char* program, char* commandLine,
                                   SECURITY_ATTRIBUTES* ofProcess, SECURITY_ATTRIBUTES* ofThread,
                                   BOOL inherits, DWORD flags, void* environment,
                                   const char* folder, STARTUPINFOA* startup,
                                   PROCESS_INFORMATION* process) {
  static std::optional<test::FailingAllocation> failing;
  const BOOL created = kSystemCreateProcess(program, commandLine, ofProcess, ofThread, inherits,
                                            flags, environment, folder, startup, process);
  failing.emplace(1);
  return created;
}

TEST_F(OutOfMemory, InAWholeRunEndsTheLauncherAndItsChild) {
  Install("QuorvexFakeSolver.exe", home + "\\Bin\\QvxOptics.exe");
  EXPECT_FAULT(
      {
        script.Set("sleep 1000;touch " + kSolverEnded);
        const test::ImportPatch patch(&__imp_CreateProcessA,
                                      reinterpret_cast<void*>(CreateProcessAndRunOut));
        std::exit(RunEntry(home, folder.Path("Project")));
      },
      "ERROR: out of memory");
  EXPECT_FALSE(std::filesystem::exists(kSolverEnded));
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

void SayThatItGoes(void*) { std::fputs("built objects are destroyed\n", stderr); }

/// Every call through `slot` throws, in a run of a class that needs no CMX file.
[[noreturn]] void RunWhileLibraryThrows(void** slot, void (*throwing)()) {
  const test::ImportPatch operation(slot, reinterpret_cast<void*>(throwing));
  const test::ImportPatch destructor(
      test::ImportedMember("CQVXSolverArgumentTool", test::kDestructor),
      reinterpret_cast<void*>(SayThatItGoes));
  char program[] = "launcher";
  char tokens[] = "";
  char solver[] = "Qvx3DOptics.exe";
  char* arguments[] = {program, tokens, solver, nullptr};
  std::exit(RunEntrySequence(3, arguments));
}

TEST(ClosedLibrary, WhoseConstructorOrOperationThrowsEndsTheLauncher) {
  void** const constructor = test::ImportedMember("CQVXMPITool", test::kConstructor);
  void** const operation = test::ImportedMember("CQVXSolverArgumentTool", {"CreateOpticsArgument"});
  for (void** const slot : {constructor, operation}) {
    EXPECT_FAULT(RunWhileLibraryThrows(slot, ThrowRuntimeError),
                 "built objects are destroyed\r?\nERROR: unexpected exception");
    EXPECT_FAULT(RunWhileLibraryThrows(slot, ThrowBadAlloc),
                 "built objects are destroyed\r?\nERROR: out of memory");
  }
}

const char* NoText(void*, const void*) { return nullptr; }

TEST(ClosedLibrary, ThatGivesNoArgumentTextGivesAnEmptyOne) {
  LauncherContext context;
  context.solverArgumentString[0] = 'x';
  const test::ImportPatch patch(
      test::ImportedMember("CQVXSolverArgumentTool", {"CreateFlowFlowEPackArgument"}),
      reinterpret_cast<void*>(NoText));
  BuildSolverArgumentString(context);
  EXPECT_STREQ(context.solverArgumentString, "");
}

int Refuse(const CQVXUnicodeTool*, const void*, void*, int) { return -1; }

TEST(LowerCaseName, LeavesATextThatCannotBeConverted) {
  LauncherContext context;
  for (void** slot : {test::ImportedMember("CQVXUnicodeTool", {"AnsiToUtf16"}),
                      test::ImportedMember("CQVXUnicodeTool", {"Utf16ToAnsi"})}) {
    const test::ImportPatch patch(slot, reinterpret_cast<void*>(Refuse));
    std::string name = "Qvx3DFlow.exe";
    LowerCaseName(context, name);
    EXPECT_EQ(name, "Qvx3DFlow.exe");
  }
}

int ConvertNothing(const CQVXUnicodeTool*, const wchar_t*, char*&) { return -1; }

const wchar_t* NoWideText(void*, const wchar_t*) { return nullptr; }

TEST(MpiLaunch, DoesWithoutAConfigurationThatIsNotThereOrCannotBeConverted) {
  LauncherContext context;
  const test::MpiInstallPathValue mpiInstallPath;
  mpiInstallPath.Set("C:\\MPI");
  const test::EnvironmentVariable versionCheck("I_MPI_SMPD_VERSION_CHECK");
  const std::pair<void**, void*> failures[] = {
      {test::ImportedMember("CQVXMPITool", {"GetIntelMPIConfigurationStringForMpiexec"}),
       reinterpret_cast<void*>(NoWideText)},
      {test::ImportedMember("CQVXUnicodeTool", {"Utf16ToUtf8"}),
       reinterpret_cast<void*>(ConvertNothing)}};
  for (const auto& [slot, function] : failures) {
    const test::ImportPatch patch(slot, function);
    EXPECT_EQ(PrepareMpiCommand(context, {"-n 4", "C:\\Q"}).commandLine,
              "C:\\MPI\\impiexec.exe -env 0 0 -n 4  \"C:\\Q\\Bin\\\" ");
  }
}

}  // namespace
}  // namespace qvx

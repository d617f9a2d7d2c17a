// Faults that no transcript shows: exhausted memory beside a real child, and closed libraries that
// throw, refuse or have no text.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

#include "execution/argument_string.h"
#include "execution/mpi_launch.h"
#include "launcher/entry_sequence.h"
#include "launcher/lower_case_name.h"
#include "tests/faults/failing_allocation.h"
#include "tests/faults/imported_member.h"
#include "tests/support/expect_fault.h"
#include "tests/support/import_patch.h"
#include "tests/windows/launch_fixture.h"

extern "C" {
extern void* __imp_CreateProcessA;

// throwing_library
__declspec(dllimport) void ThrowRuntimeError();
__declspec(dllimport) void ThrowBadAlloc();
}

namespace qvx {
namespace {

const auto kSystemCreateProcess = reinterpret_cast<decltype(&CreateProcessA)>(__imp_CreateProcessA);

/// The first allocation after the start of the child fails.
BOOL WINAPI CreateProcessAndRunOut(const char* program, char* commandLine,
                                   SECURITY_ATTRIBUTES* ofProcess, SECURITY_ATTRIBUTES* ofThread,
                                   BOOL inherits, DWORD flags, void* environment,
                                   const char* folder, STARTUPINFOA* startup,
                                   PROCESS_INFORMATION* process) {
  static std::optional<test::FailingAllocation> failing;
  static HANDLE child = nullptr;
  const BOOL created = kSystemCreateProcess(program, commandLine, ofProcess, ofThread, inherits,
                                            flags, environment, folder, startup, process);
  DuplicateHandle(GetCurrentProcess(), process->hProcess, GetCurrentProcess(), &child, 0, FALSE,
                  DUPLICATE_SAME_ACCESS);
  std::atexit([] {
    DWORD exitCode = 0;
    WaitForSingleObject(child, INFINITE);
    GetExitCodeProcess(child, &exitCode);
    std::fprintf(stderr, "the child ended with %d\n", static_cast<int>(exitCode));
  });
  failing.emplace(1);
  return created;
}

[[noreturn]] void RunOutBesideAChild(const std::string& home, const std::string& project) {
  const test::ImportPatch patch(&__imp_CreateProcessA,
                                reinterpret_cast<void*>(CreateProcessAndRunOut));
  std::string first = "L$1";
  std::string tokens = home + "*" + project + "*Sample*0*01";
  std::string name = "QvxOptics.exe";  // reads no CMX file
  char* arguments[] = {first.data(), tokens.data(), name.data(), nullptr};
  std::exit(RunEntrySequence(3, arguments));
}

class OutOfMemory : public test::LaunchTest {};

TEST_F(OutOfMemory, EndsTheLauncherAndItsChild) {
  Install("QuorvexFakeSolver.exe", home + "\\Bin\\QvxOptics.exe");
  script.Set("sleep 60000");
  EXPECT_FAULT(RunOutBesideAChild(home, folder.Path("Project")),
               "ERROR: out of memory\nthe child ended with -2");
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
  EXPECT_FAULT(RunWhileLibraryThrows(constructor, ThrowRuntimeError),
               "built objects are destroyed\r?\nERROR: unexpected exception");
  EXPECT_FAULT(RunWhileLibraryThrows(operation, ThrowBadAlloc),
               "built objects are destroyed\r?\nERROR: out of memory");
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

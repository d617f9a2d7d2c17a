// A run folder that its user may not write to. An administrator may write everywhere, so the answer
// of the system is given here.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "runcheck/check.h"
#include "runcheck/diagnostic_text.h"
#include "tests/program/site.h"
#include "tests/support/import_patch.h"

extern "C" void* __imp_CreateFileA;

namespace qvx::test {
namespace {

DWORD answer = 0;

HANDLE WINAPI Refuse(const char* /*name*/, DWORD /*access*/, DWORD /*share*/,
                     SECURITY_ATTRIBUTES* /*security*/, DWORD /*creation*/, DWORD /*flags*/,
                     HANDLE /*model*/) {
  SetLastError(answer);
  return INVALID_HANDLE_VALUE;
}

/// What a check of a run in order says when the run folder is opened with this result.
std::string FoundWith(DWORD error) {
  const Site site;
  site.WriteCmx(kSerialCmx);
  site.InstallSolver("Qvx3DFlow.exe");
  answer = error;
  const ImportPatch patch(&__imp_CreateFileA, reinterpret_cast<void*>(Refuse));
  std::string text;
  const runcheck::Check check =
      runcheck::CheckRun({"L$1", site.Specific(kTokens), "Qvx3DFlow.exe"}, {});
  for (const runcheck::Diagnostic& diagnostic : check.report.diagnostics) {
    text += runcheck::DiagnosticText(diagnostic, {});
  }
  return site.Generic(text);
}

TEST(RunFolder, ThatMayNotBeWrittenTo) {
  EXPECT_EQ(FoundWith(ERROR_ACCESS_DENIED),
            "error: the run folder <site>\\Work\\Sample\\Analysis\\Run01 cannot be written to: the "
            "run would lose its log [run-folder]\n"
            "    help: its rights keep this user from writing there\n");
}

TEST(RunFolder, ThatSomebodyHoldsIsInOrder) { EXPECT_EQ(FoundWith(ERROR_SHARING_VIOLATION), ""); }

}  // namespace
}  // namespace qvx::test

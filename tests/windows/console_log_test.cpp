// The clean-up of old logs in real folders, and what writing to a log returns.
#include "execution/console_log.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "support/bounded_text.h"
#include "tests/support/expect_fault.h"
#include "tests/support/import_patch.h"
#include "tests/windows/launch_fixture.h"

extern "C" void* __imp_WriteFile;

namespace qvx {
namespace {

class OldLogs : public test::LaunchTest {};

TEST_F(OldLogs, OfTheSameModeAndClassAreDeletedInAnyLetterCaseButNotFolders) {
  MakeFiles(runFolder, {"CONSOLE_REDIRECT_SERIAL_FLOW_any.TXT", "Sample01.cmx",
                        "console_redirect_serial_Flow_2024-03-05_09-07-02.txt",
                        "console_redirect_serial_Flow_2024.log",
                        "console_redirect_serial_Pack_2024-03-05_09-07-02.txt",
                        "console_redirect_smp_Flow_2024-03-05_09-07-02.txt"});
  MakeFiles(runFolder + "\\console_redirect_serial_Flow_b.txt", {});
  EXPECT_EQ(CleanUpOldLogs(context, runFolder + "\\console_redirect_serial_Flow*.txt"),
            DWORD{ERROR_NO_MORE_FILES});
  EXPECT_EQ(NamesIn(runFolder), (Names{"Sample01.cmx", "console_redirect_serial_Flow_2024.log",
                                       "console_redirect_serial_Flow_b.txt",
                                       "console_redirect_serial_Pack_2024-03-05_09-07-02.txt",
                                       "console_redirect_smp_Flow_2024-03-05_09-07-02.txt"}));
}

TEST_F(OldLogs, AreFoundInThePatternsFolderAndDeletedInTheLocalRunFolder) {
  const std::string share = folder.Path("Share");
  MakeFiles(share, {"log_a.txt"});
  MakeFiles(share + "\\log_c.txt", {});
  MakeFiles(runFolder, {"log_a.txt", "log_b.txt", "log_c.txt"});
  CopyText(context.currentRunPath, "current run path", share);
  EXPECT_EQ(CleanUpOldLogs(context, share + "\\log_*.txt"), DWORD{ERROR_NO_MORE_FILES});
  EXPECT_EQ(NamesIn(share), (Names{"log_a.txt", "log_c.txt"}));
  EXPECT_EQ(NamesIn(runFolder), (Names{"log_b.txt", "log_c.txt"}));
}

TEST_F(OldLogs, NeedNotBeThere) {
  EXPECT_EQ(CleanUpOldLogs(context, runFolder + "\\console_redirect_serial_Flow*.txt"), DWORD{0});
  EXPECT_EQ(CleanUpOldLogs(context, folder.Path("none\\*.txt")), DWORD{0});
}

/// No launch has a null handle, nor looks at what a write returns.
class LogWriter : public test::LaunchTest {
 protected:
  ~LogWriter() override { CloseHandle(log_); }

  HANDLE Open(DWORD access) {
    log_ = CreateFileA(folder.Path("log.txt").c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                       nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    return log_;
  }

 private:
  HANDLE log_ = INVALID_HANDLE_VALUE;
};

TEST_F(LogWriter, RefusesANullHandle) {
  context.redirectLogScratch[0] = 'x';
  EXPECT_EQ(WriteLog(context, nullptr, "text"), -1);
  EXPECT_EQ(context.redirectLogScratch[0], 'x');
}

TEST_F(LogWriter, ReportsAWriteThatFails) {
  EXPECT_EQ(WriteLog(context, Open(GENERIC_READ), "text"), 0);
}

/// Takes two bytes once; every later write fails.
BOOL WINAPI TakeTwoBytesOnce(HANDLE, LPCVOID, DWORD, LPDWORD written, LPOVERLAPPED) {
  static int calls = 0;
  *written = calls == 0 ? 2 : 0;
  return ++calls == 1;
}

TEST_F(LogWriter, ReportsARestThatCannotBeWritten) {
  const HANDLE log = Open(GENERIC_WRITE);
  const test::ImportPatch patch(&__imp_WriteFile, reinterpret_cast<void*>(&TakeTwoBytesOnce));
  EXPECT_EQ(WriteLog(context, log, "text"), 0);
}

TEST_F(LogWriter, TakesATextAsLongAsItsScratchTextAndNoLongerOne) {
  const std::string longest(32767, 'x');
  const HANDLE log = Open(GENERIC_WRITE);
  EXPECT_NE(WriteLog(context, log, "%s", longest.c_str()), 0);
  EXPECT_EQ(folder.Read("log.txt"), longest);
  EXPECT_FAULT(WriteLog(context, log, "%sx", longest.c_str()),
               "ERROR: console log text is too long: width 32768, length 32768");
}

}  // namespace
}  // namespace qvx

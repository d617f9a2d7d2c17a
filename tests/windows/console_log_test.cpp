// Names of console logs, the clean-up of old ones, and writing to a log.
#include "execution/console_log.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

#include "support/bounded_text.h"
#include "tests/support/expect_fault.h"
#include "tests/windows/launch_fixture.h"

namespace qvx {
namespace {

std::string LocalTime() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d_%02d-%02d-%02d", now.wYear, now.wMonth, now.wDay,
                now.wHour, now.wMinute, now.wSecond);
  return text;
}

TEST(LogTimestamp, IsTheLocalTimeToTheSecond) {
  const std::string before = LocalTime();
  const std::string timestamp = LogTimestamp();
  const std::string after = LocalTime();
  EXPECT_GE(timestamp, before);
  EXPECT_LE(timestamp, after);
}

TEST(ConsoleLogName, HoldsModeClassLabelAndTimestamp) {
  const char* const labels[] = {"Flow",      "Pack",      "Cool",      "Warp",      "Stress",
                                "ShellFlow", "ShellPack", "ShellCool", "ShellWarp", "IC",
                                "WS",        "PS",        "Optics",    ""};
  LauncherContext context;
  CopyText(context.currentRunPath, "current run path", "C:\\P\\Analysis\\Run01");
  std::uint32_t solverClass = 0;
  for (const char* const label : labels) {
    context.solverClass = static_cast<SolverClass>(solverClass++);
    const ConsoleLogNames names =
        NameConsoleLog(context, "console_redirect_smp_", "2024-03-05_09-07-02");
    const std::string stem = std::string("C:\\P\\Analysis\\Run01\\console_redirect_smp_") + label;
    EXPECT_EQ(names.path, stem + "_2024-03-05_09-07-02.txt");
    EXPECT_EQ(names.cleanUpPattern, stem + "*.txt");
  }
}

class OldLogs : public test::LaunchTest {
 protected:
  using Names = std::vector<std::string>;
};

TEST_F(OldLogs, OfTheSameModeAndClassAreDeleted) {
  MakeFiles(runFolder, {"console_redirect_serial_Flow_2024-03-05_09-07-02.txt",
                        "CONSOLE_REDIRECT_SERIAL_FLOW_any.TXT",
                        "console_redirect_serial_Pack_2024-03-05_09-07-02.txt",
                        "console_redirect_smp_Flow_2024-03-05_09-07-02.txt",
                        "console_redirect_serial_Flow_2024.log", "Sample01.cmx"});
  EXPECT_EQ(CleanUpOldLogs(context, runFolder + "\\console_redirect_serial_Flow*.txt"),
            DWORD{ERROR_NO_MORE_FILES});
  EXPECT_EQ(NamesIn(runFolder), (Names{"Sample01.cmx", "console_redirect_serial_Flow_2024.log",
                                       "console_redirect_serial_Pack_2024-03-05_09-07-02.txt",
                                       "console_redirect_smp_Flow_2024-03-05_09-07-02.txt"}));
}

TEST_F(OldLogs, OfEveryClassAreDeletedWithoutAClassLabel) {
  MakeFiles(runFolder, {"console_redirect_serial_Flow_a.txt", "console_redirect_serial_Pack_a.txt",
                        "console_redirect_serial__a.txt", "console_redirect_smp_Flow_a.txt"});
  CleanUpOldLogs(context, runFolder + "\\console_redirect_serial_*.txt");
  EXPECT_EQ(NamesIn(runFolder), Names{"console_redirect_smp_Flow_a.txt"});
}

TEST_F(OldLogs, AreNotFolders) {
  MakeFiles(runFolder,
            {"console_redirect_serial_Flow_a.txt", "console_redirect_serial_Flow_c.txt"});
  MakeFiles(runFolder + "\\console_redirect_serial_Flow_b.txt", {});
  CleanUpOldLogs(context, runFolder + "\\console_redirect_serial_Flow*.txt");
  EXPECT_EQ(NamesIn(runFolder), Names{"console_redirect_serial_Flow_b.txt"});
}

TEST_F(OldLogs, AreFoundInThePatternsFolderAndDeletedInTheLocalRunFolder) {
  const std::string share = folder.Path("Share");
  MakeFiles(share, {"log_a.txt"});
  MakeFiles(runFolder, {"log_a.txt", "log_b.txt"});
  CopyText(context.currentRunPath, "current run path", share);
  EXPECT_EQ(CleanUpOldLogs(context, share + "\\log_*.txt"), DWORD{ERROR_NO_MORE_FILES});
  EXPECT_EQ(NamesIn(share), Names{"log_a.txt"});
  EXPECT_EQ(NamesIn(runFolder), Names{"log_b.txt"});
}

TEST_F(OldLogs, AreKeptInTheLocalRunFolderWhenTheNameIsAFoldersInThePatternsFolder) {
  const std::string share = folder.Path("Share");
  MakeFiles(share + "\\log_a.txt", {});
  MakeFiles(runFolder, {"log_a.txt"});
  EXPECT_EQ(CleanUpOldLogs(context, share + "\\log_*.txt"), DWORD{ERROR_NO_MORE_FILES});
  EXPECT_EQ(NamesIn(runFolder), Names{"log_a.txt"});
}

TEST_F(OldLogs, NeedNotBeThere) {
  MakeFiles(runFolder, {"console_redirect_smp_Flow_a.txt"});
  EXPECT_EQ(CleanUpOldLogs(context, runFolder + "\\console_redirect_serial_Flow*.txt"), DWORD{0});
  EXPECT_EQ(CleanUpOldLogs(context, folder.Path("none\\*.txt")), DWORD{0});
  EXPECT_EQ(NamesIn(runFolder), Names{"console_redirect_smp_Flow_a.txt"});
}

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

TEST_F(LogWriter, WritesTheFormattedTextWithoutTouchingItsLineEnds) {
  const HANDLE log = Open(GENERIC_WRITE);
  EXPECT_NE(WriteLog(context, log, "%s = %d\r\n", "a", -7), 0);
  EXPECT_NE(WriteLog(context, log, "\n%s\n", "\x80\xFF\x1A"), 0);
  EXPECT_EQ(folder.Read("log.txt"), "a = -7\r\n\n\x80\xFF\x1A\n");
}

TEST_F(LogWriter, RefusesANullHandle) {
  context.redirectLogScratch[0] = 'x';
  EXPECT_EQ(WriteLog(context, nullptr, "text"), -1);
  EXPECT_EQ(context.redirectLogScratch[0], 'x');
}

TEST_F(LogWriter, ReportsAWriteThatFails) {
  EXPECT_EQ(WriteLog(context, Open(GENERIC_READ), "text"), 0);
}

TEST_F(LogWriter, TakesATextAsLongAsItsScratchText) {
  const std::string longest(32767, 'x');
  EXPECT_NE(WriteLog(context, Open(GENERIC_WRITE), "%s", longest.c_str()), 0);
  EXPECT_EQ(folder.Read("log.txt"), longest);
}

TEST_F(LogWriter, RefusesALongerText) {
  const std::string tooLong(32768, 'x');
  EXPECT_FAULT(WriteLog(context, Open(GENERIC_WRITE), "%s", tooLong.c_str()),
               "ERROR: console log text is too long: width 32768, length 32768");
}

}  // namespace
}  // namespace qvx

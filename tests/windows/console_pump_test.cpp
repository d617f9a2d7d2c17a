// The console pump on a pipe of the test's own, so that the test decides what a chunk is.
#include "execution/console_pump.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/import_patch.h"
#include "tests/support/temporary_folder.h"
#include "tests/windows/console_of.h"
#include "tests/windows/started_child.h"

extern "C" void* __imp_FlushFileBuffers;

namespace qvx {
namespace {

using Chunks = std::vector<std::string>;

/// The pump reads each chunk by itself: the next one is written when the last one was taken.
class ChunkWriter {
 public:
  explicit ChunkWriter(const Chunks& chunks) {
    CreatePipe(&readEnd_, &writeEnd_, nullptr, kPipeSize);
    thread_ = std::jthread([this, chunks] {
      for (const std::string& chunk : chunks) {
        DWORD written = 0;
        if (!WriteFile(writeEnd_, chunk.data(), static_cast<DWORD>(chunk.size()), &written,
                       nullptr)) {
          break;
        }
        FlushFileBuffers(writeEnd_);
      }
      CloseHandle(writeEnd_);
    });
  }
  ~ChunkWriter() { CloseHandle(readEnd_); }

  HANDLE ReadEnd() const { return readEnd_; }

 private:
  static constexpr DWORD kPipeSize = 65536;

  HANDLE readEnd_ = nullptr;
  HANDLE writeEnd_ = nullptr;
  std::jthread thread_;
};

class ConsolePump : public testing::Test {
 protected:
  ConsolePump()
      : log(CreateFileA(folder.Path("log.txt").c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                        CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
  ~ConsolePump() override { CloseHandle(log); }

  /// Returns what reaches the console. This process stands in for a child that goes on running.
  std::string Pump(const Chunks& chunks) { return Pump(chunks, {GetCurrentProcess(), log}); }

  std::string Pump(const Chunks& chunks, const RunningChild& child) {
    const ChunkWriter writer(chunks);
    return test::ConsoleOf([&] { PumpConsole(context, kind, child, writer.ReadEnd()); }).written;
  }

  std::string Log() const { return folder.Read("log.txt"); }

  const test::TemporaryFolder folder;
  const HANDLE log;
  LaunchKind kind = {};
  LauncherContext context;
};

/// Bytes from 1 to 255, over and over.
std::string Text(std::size_t size) {
  std::string text(size, '\0');
  for (std::size_t i = 0; i < size; ++i) text[i] = static_cast<char>(i % 255 + 1);
  return text;
}

TEST_F(ConsolePump, RelaysEveryChunkToConsoleAndLogUntilThePipeBreaks) {
  EXPECT_EQ(Pump({"one\r\n", "two\n", "", "three"}), "one\r\ntwo\nthree");
  EXPECT_EQ(Log(), "one\r\ntwo\nthree");
}

TEST_F(ConsolePump, RelaysWhatIsLongerThanAChunk) {
  for (const std::size_t size : {4095U, 4096U, 4097U, 8192U, 50'000U}) {
    SetFilePointer(log, 0, nullptr, FILE_BEGIN);
    SetEndOfFile(log);
    EXPECT_EQ(Pump({Text(size)}), Text(size));
    EXPECT_EQ(Log(), Text(size));
  }
}

TEST_F(ConsolePump, CutsAChunkAtItsFirstZeroByteInTheLogOnly) {
  const std::string zeros("ab\0cd\0ef", 8);
  EXPECT_EQ(Pump({zeros, "gh", std::string("\0ij", 3), "kl"}),
            zeros + "gh" + std::string("\0ij", 3) + "kl");
  EXPECT_EQ(Log(), "abghkl");
}

TEST_F(ConsolePump, LeavesNothingOfALongChunkBehindAShortOne) {
  Pump({"a long chunk", std::string("s\0", 2), "t"});
  EXPECT_EQ(Log(), "a long chunkst");
}

TEST_F(ConsolePump, NeedsNoLog) {
  EXPECT_EQ(Pump({"one", "two"}, {GetCurrentProcess(), INVALID_HANDLE_VALUE}), "onetwo");
  EXPECT_EQ(Log(), "");
}

const auto kSystemFlush = reinterpret_cast<decltype(&FlushFileBuffers)>(__imp_FlushFileBuffers);
std::function<void()> whenTheConsoleIsFlushed;

BOOL WINAPI LookAndFlush(HANDLE file) {
  if (file == GetStdHandle(STD_OUTPUT_HANDLE)) whenTheConsoleIsFlushed();
  return kSystemFlush(file);
}

TEST_F(ConsolePump, WaitsUntilTheConsoleTookAChunkBeforeItLogsIt) {
  const test::ImportPatch patch(&__imp_FlushFileBuffers, reinterpret_cast<void*>(LookAndFlush));
  Chunks logged;
  whenTheConsoleIsFlushed = [&] { logged.push_back(Log()); };
  EXPECT_EQ(Pump({"one", "two"}), "onetwo");
  // The last time when the pipe has broken.
  EXPECT_EQ(logged, (Chunks{"", "one", "onetwo"}));
}

TEST_F(ConsolePump, LeavesInThePipeWhatAChildPrintedThatHasEnded) {
  const test::StartedChild child("exit 0");
  EXPECT_EQ(child.ExitCode(), 0);
  EXPECT_EQ(Pump({"late"}, {child.Process(), log}), "");
  EXPECT_EQ(Log(), "");
}

TEST_F(ConsolePump, ReadsOnWhenTheExitCodeIsThatOfARunningProcess) {
  const test::StartedChild child("exit 259");
  EXPECT_EQ(child.ExitCode(), 259);
  EXPECT_EQ(Pump({"late"}, {child.Process(), log}), "late");
  EXPECT_EQ(Log(), "late");
}

TEST_F(ConsolePump, EndsWithTheChunkThatTheLaunchStopsAt) {
  kind.endsPump = [](LauncherContext&, const RunningChild&, const char* chunk) {
    return std::strcmp(chunk, "stop") == 0;
  };
  EXPECT_EQ(Pump({"one", "stop", "two"}), "onestop");
  EXPECT_EQ(Log(), "onestop");
}

TEST_F(ConsolePump, LeavesInThePipeWhatIsBehindTheChunkThatTheLaunchStopsAt) {
  kind.endsPump = [](LauncherContext&, const RunningChild&, const char*) { return true; };
  EXPECT_EQ(Pump({Text(5000)}), Text(4096));
  EXPECT_EQ(Log(), Text(4096));
}

}  // namespace
}  // namespace qvx

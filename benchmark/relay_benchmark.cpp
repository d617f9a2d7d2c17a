// The console pump against a loop that makes the same Windows calls and nothing else: 64 MiB from a
// child, into a log and on to the console. With arguments it relays once, for whoever counts the
// Wine server's requests: relay_benchmark product|least BYTES.
#include <windows.h>

#include <array>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>

#include "benchmark/counted_imports.h"
#include "benchmark/figures.h"
#include "benchmark/redirected_child.h"
#include "execution/console_pump.h"
#include "tests/support/machine_state.h"
#include "tests/support/program_path.h"
#include "tests/support/refusing_new.h"
#include "tests/support/temporary_folder.h"

namespace {

int allocations = 0;

}  // namespace

bool qvx::test::RefusesAllocation(std::size_t /*size*/) {
  ++allocations;
  return false;
}

namespace qvx::benchmark {
namespace {

constexpr DWORD kTotal = 64 << 20;

using Pump = std::function<void(const RunningChild& child, HANDLE output)>;

void PumpLeast(const RunningChild& child, HANDLE output) {
  static std::array<char, 4096> chunk;
  const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
  for (;;) {
    DWORD exitCode = 0;
    GetExitCodeProcess(child.process, &exitCode);
    if (exitCode != STILL_ACTIVE) return;
    DWORD size = 0;
    const BOOL read = ReadFile(output, chunk.data(), chunk.size(), &size, nullptr);
    DWORD written = 0;
    WriteFile(console, chunk.data(), size, &written, nullptr);
    FlushFileBuffers(console);
    WriteFile(child.log, chunk.data(), size, &written, nullptr);
    if (read == 0) return;
  }
}

void PumpProduct(const RunningChild& child, HANDLE output) {
  static LauncherContext context;
  const LaunchKind kind = {};
  PumpConsole(context, kind, child, output);
}

/// Standard output while one lives.
class NulConsole {
 public:
  NulConsole()
      : nul_(CreateFileA("NUL", GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr)),
        before_(GetStdHandle(STD_OUTPUT_HANDLE)) {
    Require(nul_ != INVALID_HANDLE_VALUE, "NUL does not open");
    SetStdHandle(STD_OUTPUT_HANDLE, nul_);
  }
  ~NulConsole() {
    SetStdHandle(STD_OUTPUT_HANDLE, before_);
    CloseHandle(nul_);
  }

 private:
  HANDLE nul_;
  HANDLE before_;
};

/// The same; somebody reads the `kTotal` bytes that come there and throws them away.
class PipeConsole {
 public:
  PipeConsole() : before_(GetStdHandle(STD_OUTPUT_HANDLE)) {
    Require(CreatePipe(&readEnd_, &writeEnd_, nullptr, 0) != 0, "no pipe for the console");
    SetStdHandle(STD_OUTPUT_HANDLE, writeEnd_);
    reader_ = std::thread([this] {
      std::array<char, 65536> bytes;
      DWORD size = 0;
      while (ReadFile(readEnd_, bytes.data(), bytes.size(), &size, nullptr) != 0) {
        received_ += size;
      }
    });
  }
  ~PipeConsole() {
    SetStdHandle(STD_OUTPUT_HANDLE, before_);
    CloseHandle(writeEnd_);
    reader_.join();
    CloseHandle(readEnd_);
    Require(received_ == kTotal, "not every byte reached the console");
  }

 private:
  HANDLE before_;
  HANDLE readEnd_ = nullptr;
  HANDLE writeEnd_ = nullptr;
  DWORD received_ = 0;
  std::thread reader_;
};

/// Seconds from the child's first byte to its end.
double Relay(const Pump& pump, DWORD total, int atATime) {
  static const test::TemporaryFolder folder;
  static const test::EnvironmentVariable script("QUORVEX_FAKE_SOLVER");
  script.Set("fill " + std::to_string(total) + " " + std::to_string(atATime) + ";flush");
  const RedirectedChild child(nullptr, test::ProgramPath("samples\\QuorvexFakeSolver.exe"),
                              CREATE_NO_WINDOW);
  const HANDLE log = CreateFileA(folder.Path("log").c_str(), GENERIC_WRITE, 0, nullptr,
                                 CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  for (DWORD waiting = 0; waiting == 0; Sleep(1)) {
    if (PeekNamedPipe(child.output, nullptr, 0, nullptr, &waiting, nullptr) == 0) break;
  }
  const double seconds = Seconds([&] { pump({child.process.hProcess, log}, child.output); });
  Require(GetFileSize(log, nullptr) == total, "not every byte reached the log");
  CloseHandle(log);
  WaitForSingleObject(child.process.hProcess, INFINITE);
  return seconds;
}

struct Counts {
  int chunks;
  int calls;
  int allocations;
};

Counts CountRelay(DWORD total) {
  const NulConsole console;
  Counts counts = {};
  Relay(
      [&](const RunningChild& child, HANDLE output) {
        const CountedImports imports;
        const int before = allocations;
        PumpProduct(child, output);
        counts = {imports.Calls("ReadFile"), imports.Calls(), allocations - before};
      },
      total, 65536);
  return counts;
}

void CompareRelays(const char* name, int atATime, bool toPipe) {
  const auto relay = [&](const Pump& pump) {
    if (!toPipe) {
      const NulConsole console;
      return Relay(pump, kTotal, atATime);
    }
    const PipeConsole console;
    return Relay(pump, kTotal, atATime);
  };
  Report(name, MedianRatio([&] { return relay(PumpProduct); }, [&] { return relay(PumpLeast); }),
         1.10);
}

}  // namespace
}  // namespace qvx::benchmark

int main(int argumentCount, char** arguments) {
  using namespace qvx::benchmark;
  if (argumentCount == 3) {
    const NulConsole console;
    const bool isProduct = std::string(arguments[1]) == "product";
    Relay(isProduct ? PumpProduct : PumpLeast, static_cast<DWORD>(std::atoi(arguments[2])), 65536);
    return 0;
  }
  CompareRelays("relay to NUL, 65536 bytes at a time", 65536, false);
  CompareRelays("relay to NUL, 4096 bytes at a time", 4096, false);
  CompareRelays("relay to NUL, 512 bytes at a time", 512, false);
  CompareRelays("relay to a pipe, 65536 bytes at a time", 65536, true);
  CompareRelays("relay to a pipe, 4096 bytes at a time", 4096, true);
  CompareRelays("relay to a pipe, 512 bytes at a time", 512, true);
  const Counts once = CountRelay(1 << 20);
  const Counts twice = CountRelay(2 << 20);
  const double chunks = twice.chunks - once.chunks;
  Report("relay: Windows calls a chunk", (twice.calls - once.calls) / chunks, 5);
  Report("relay: allocations a chunk", (twice.allocations - once.allocations) / chunks, 0);
}

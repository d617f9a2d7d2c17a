// The console pump against a loop that makes the same Windows calls and nothing else: 64 MiB from a
// child, into a log and on to the console. With arguments it relays once, for whoever counts the
// Wine server's requests: relay_benchmark product|least BYTES.
#include <windows.h>

#include <array>
#include <cstdlib>
#include <new>
#include <string>
#include <thread>

#include "benchmark/figures.h"
#include "benchmark/redirected_child.h"
#include "execution/console_pump.h"
#include "tests/support/import_patch.h"
#include "tests/support/machine_state.h"
#include "tests/support/temporary_folder.h"

extern "C" {
extern void* __imp_GetExitCodeProcess;
extern void* __imp_ReadFile;
extern void* __imp_WriteFile;
extern void* __imp_FlushFileBuffers;
extern void* __imp_GetStdHandle;
}

namespace {

int allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace qvx::benchmark {
namespace {

constexpr int kTotal = 64 << 20;

using Pump = void (*)(const RunningChild& child, HANDLE output);

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
class Console {
 public:
  virtual ~Console() = default;
};

class NulConsole : public Console {
 public:
  NulConsole()
      : nul_(CreateFileA("NUL", GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr)),
        before_(GetStdHandle(STD_OUTPUT_HANDLE)) {
    SetStdHandle(STD_OUTPUT_HANDLE, nul_);
  }
  ~NulConsole() override {
    SetStdHandle(STD_OUTPUT_HANDLE, before_);
    CloseHandle(nul_);
  }

 private:
  HANDLE nul_;
  HANDLE before_;
};

/// Somebody reads all that comes and throws it away.
class PipeConsole : public Console {
 public:
  PipeConsole() : before_(GetStdHandle(STD_OUTPUT_HANDLE)) {
    CreatePipe(&readEnd_, &writeEnd_, nullptr, 0);
    SetStdHandle(STD_OUTPUT_HANDLE, writeEnd_);
    reader_ = std::thread([this] {
      std::array<char, 65536> bytes;
      DWORD size = 0;
      while (ReadFile(readEnd_, bytes.data(), bytes.size(), &size, nullptr) != 0) {
      }
    });
  }
  ~PipeConsole() override {
    SetStdHandle(STD_OUTPUT_HANDLE, before_);
    CloseHandle(writeEnd_);
    reader_.join();
    CloseHandle(readEnd_);
  }

 private:
  HANDLE before_;
  HANDLE readEnd_ = nullptr;
  HANDLE writeEnd_ = nullptr;
  std::thread reader_;
};

std::string SolverPath() {
  std::array<char, MAX_PATH> path;
  GetModuleFileNameA(nullptr, path.data(), path.size());
  return (std::filesystem::path(path.data()).parent_path().parent_path() / "samples" /
          "QuorvexFakeSolver.exe")
      .string();
}

/// Seconds from the child's first byte to its end.
double Relay(Pump pump, int total, int atATime) {
  static const test::TemporaryFolder folder;
  static const test::EnvironmentVariable script("QUORVEX_FAKE_SOLVER");
  script.Set("fill " + std::to_string(total) + " " + std::to_string(atATime) + ";flush");
  const RedirectedChild child(nullptr, SolverPath(), CREATE_NO_WINDOW);
  const HANDLE log = CreateFileA(folder.Path("log").c_str(), GENERIC_WRITE, 0, nullptr,
                                 CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  for (DWORD waiting = 0; waiting == 0; Sleep(1)) {
    if (PeekNamedPipe(child.output, nullptr, 0, nullptr, &waiting, nullptr) == 0) break;
  }
  const double seconds = Seconds([&] { pump({child.process.hProcess, log}, child.output); });
  CloseHandle(log);
  WaitForSingleObject(child.process.hProcess, INFINITE);
  return seconds;
}

/// Counts the calls of a function, as the product makes them.
template <void** kSlot, typename Function>
struct Counted;

template <void** kSlot, typename Result, typename... Arguments>
struct Counted<kSlot, Result(Arguments...)> {
  static inline int count = 0;
  static inline void* const original = *kSlot;
  static Result Call(Arguments... arguments) {
    ++count;
    return reinterpret_cast<Result (*)(Arguments...)>(original)(arguments...);
  }
  const test::ImportPatch patch{kSlot, reinterpret_cast<void*>(Call)};
};

int allocationsInPump = 0;

struct Counts {
  int chunks;
  int calls;
  int allocations;
};

Counts CountRelay(int total) {
  const NulConsole console;
  using ExitCode = Counted<&__imp_GetExitCodeProcess, decltype(GetExitCodeProcess)>;
  using Read = Counted<&__imp_ReadFile, decltype(ReadFile)>;
  using Write = Counted<&__imp_WriteFile, decltype(WriteFile)>;
  using Flush = Counted<&__imp_FlushFileBuffers, decltype(FlushFileBuffers)>;
  const ExitCode exitCode;
  const Read read;
  const Write write;
  const Flush flush;
  Relay(
      [](const RunningChild& child, HANDLE output) {
        ExitCode::count = Read::count = Write::count = Flush::count = allocations = 0;
        PumpProduct(child, output);
        allocationsInPump = allocations;
      },
      total, 65536);
  return {Read::count, ExitCode::count + Read::count + Write::count + Flush::count,
          allocationsInPump};
}

void CompareRelays(const char* name, int atATime, bool toPipe) {
  const auto relay = [&](Pump pump) {
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
    Relay(isProduct ? PumpProduct : PumpLeast, std::atoi(arguments[2]), 65536);
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

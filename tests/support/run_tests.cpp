#include "tests/support/run_tests.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <cstdio>

#include "tests/support/import_patch.h"

extern "C" void* __imp_CreateProcessA;

namespace {

const auto kSystemCreateProcess = reinterpret_cast<decltype(&CreateProcessA)>(__imp_CreateProcessA);
std::atomic<int> repeated = 0;

BOOL WINAPI CreateProcessRepeatedly(const char* program, char* commandLine,
                                    SECURITY_ATTRIBUTES* ofProcess, SECURITY_ATTRIBUTES* ofThread,
                                    BOOL inherits, DWORD flags, void* environment,
                                    const char* folder, STARTUPINFOA* startup,
                                    PROCESS_INFORMATION* process) {
  const auto create = [&] {
    return kSystemCreateProcess(program, commandLine, ofProcess, ofThread, inherits, flags,
                                environment, folder, startup, process);
  };
  const BOOL created = create();
  if (created != 0 || GetLastError() != ERROR_INTERNAL_ERROR) return created;
  ++repeated;
  std::fprintf(stderr, "start repeated after error 1359: %s\n",
               program != nullptr ? program : commandLine);
  return create();
}

}  // namespace

int qvx::test::RunTests(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  const ImportPatch patch(&__imp_CreateProcessA, reinterpret_cast<void*>(CreateProcessRepeatedly));
  const int status = RUN_ALL_TESTS();
  std::printf("starts repeated: %d\n", repeated.load());
  return status;
}

// Names and paths that nobody answers for, and how long the check takes over five hundred of them.
#include <gtest/gtest.h>
#include <winsock2.h>
#include <ws2tcpip.h>

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "runcheck/check.h"
#include "tests/program/site.h"
#include "tests/runcheck/truth_answer.h"
#include "tests/support/import_patch.h"

extern "C" {
extern void* __imp_getaddrinfo;
extern void* __imp_GetFileAttributesA;
}

namespace qvx::test {
namespace {

constexpr int kMachines = 500;
HANDLE letGo = nullptr;

INT WSAAPI AnswerNever(const char* /*name*/, const char* /*service*/, const addrinfo* /*hints*/,
                       addrinfo** /*found*/) {
  WaitForSingleObject(letGo, INFINITE);
  return EAI_NONAME;
}

INT WSAAPI AnswerForOthers(const char* name, const char* /*service*/, const addrinfo* /*hints*/,
                           addrinfo** /*found*/) {
  if (std::string_view(name) == "silent") WaitForSingleObject(letGo, INFINITE);
  return EAI_NONAME;
}

void* attributesOf = nullptr;

/// A shared run folder is asked for in vain.
DWORD WINAPI AnswerForFilesHere(const char* path) {
  const std::string_view name = path;
  if (name.starts_with("\\\\") && name.ends_with("Run01")) WaitForSingleObject(letGo, INFINITE);
  return reinterpret_cast<decltype(&GetFileAttributesA)>(attributesOf)(path);
}

std::string SilentOnes(const runcheck::Check& check) {
  std::string silent;
  for (const runcheck::Diagnostic& diagnostic : check.report.diagnostics) {
    if (diagnostic.code == "host-silent") silent += diagnostic.summary + "\n";
  }
  return silent;
}

TEST(SilentMachines, OneNameAndAPathAreNamed) {
  const Site site;
  site.WriteCmx(CmxOfMachines({"silent", "unknown"}));
  letGo = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  attributesOf = __imp_GetFileAttributesA;
  const ImportPatch names(&__imp_getaddrinfo, reinterpret_cast<void*>(AnswerForOthers));
  const ImportPatch paths(&__imp_GetFileAttributesA, reinterpret_cast<void*>(AnswerForFilesHere));
  runcheck::CheckOptions options;
  options.timeout = std::chrono::seconds(1);
  const runcheck::Check check =
      runcheck::CheckRun({"L$1", site.Specific(kTokens), "Qvx3DFlow.exe"}, options);
  SetEvent(letGo);

  EXPECT_EQ(site.Generic(SilentOnes(check)),
            "the name silent was not answered for in time\n"
            "<share>\\Work\\sample\\Analysis\\Run01 did not answer in time\n");
}

TEST(SilentMachines, TakeNoLongerThanThreeTimeouts) {
  const Site site;
  std::vector<std::string> names;
  for (int i = 0; i < kMachines; ++i) names.push_back("silent" + std::to_string(i));
  site.WriteCmx(CmxOfMachines(names));

  letGo = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  const ImportPatch patch(&__imp_getaddrinfo, reinterpret_cast<void*>(AnswerNever));
  runcheck::CheckOptions options;
  options.timeout = std::chrono::seconds(2);
  const auto start = std::chrono::steady_clock::now();
  const runcheck::Check check =
      runcheck::CheckRun({"L$1", site.Specific(kTokens), "Qvx3DFlow.exe"}, options);
  const auto taken = std::chrono::steady_clock::now() - start;
  SetEvent(letGo);

  EXPECT_GE(taken, options.timeout);
  EXPECT_LE(taken, 3 * options.timeout);
  EXPECT_TRUE(check.leavesThreads);
  ASSERT_EQ(check.report.machines.size(), std::size_t{kMachines});
  for (const runcheck::MachineReport& machine : check.report.machines) {
    ASSERT_EQ(machine.name, "silent") << machine.host;
  }
  // With the storage node.
  EXPECT_EQ(SilentOnes(check), "501 names were not answered for in time, silent0 among them\n");
}

}  // namespace
}  // namespace qvx::test

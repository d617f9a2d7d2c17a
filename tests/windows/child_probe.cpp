// child_probe.exe prints what a process can see of how it was started.
#include <windows.h>

#include <array>
#include <cstdio>

#include "tests/windows/open_handles.h"

int main() {
  STARTUPINFOA startup;
  GetStartupInfoA(&startup);
  std::array<DWORD, 16> processes;
  const DWORD atConsole = GetConsoleProcessList(processes.data(), processes.size());
  const bool shareOutput = GetStdHandle(STD_OUTPUT_HANDLE) == GetStdHandle(STD_ERROR_HANDLE);
  const qvx::test::PipeEnds pipeEnds = qvx::test::OpenPipeEnds();
  std::printf("start-up flags %lx\n", startup.dwFlags);
  std::printf("priority class %lx\n", GetPriorityClass(GetCurrentProcess()));
  std::printf("processes at the console %lu\n", atConsole);
  std::printf("console window: %s\n", GetConsoleWindow() != nullptr ? "yes" : "no");
  std::printf("standard error is standard output: %s\n", shareOutput ? "yes" : "no");
  std::printf("pipe ends %d\n", pipeEnds.inheritable + pipeEnds.own);
  std::fflush(stdout);
  FlushFileBuffers(GetStdHandle(STD_OUTPUT_HANDLE));
}

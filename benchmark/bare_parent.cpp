// A program that does what bare_parent.h does, then prints the exit code and the countdown's first
// line as the launcher does, and stays: bare_parent SOLVER.
#include "benchmark/bare_parent.h"

#include <cstdio>

int main(int /*argumentCount*/, char** arguments) {
  const int exitCode = qvx::benchmark::RunBareParent(arguments[1]);
  std::printf("\n>>> Return value of %s = %d\n\r4   ", arguments[1], exitCode);
  std::fflush(stdout);
  Sleep(INFINITE);
}

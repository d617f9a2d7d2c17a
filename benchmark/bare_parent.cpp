// A program that does what bare_parent.h does, then prints the countdown's first line and stays:
// bare_parent SOLVER.
#include "benchmark/bare_parent.h"

#include <cstdio>

int main(int /*argumentCount*/, char** arguments) {
  qvx::benchmark::RunBareParent(arguments[1]);
  std::printf("\r4   ");
  std::fflush(stdout);
  Sleep(INFINITE);
}

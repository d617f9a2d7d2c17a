#include "tests/program/tests.h"
#include "tests/support/run_tests.h"

int main(int count, char** arguments) {
  qvx::test::PlannedTests tests;
  qvx::test::AddSerialRuns(tests);
  qvx::test::AddParallelRuns(tests);
  qvx::test::AddTroubles(tests);
  qvx::test::AddConsoleEvents(tests);
  return qvx::test::RunTests(count, arguments);
}

// Five hundred whole runs with random settings, side by side. QVX_SOAK_RUN=N carries out the run of
// that number alone, QVX_SOAK_SEED another five hundred.
#include <string>

#include "tests/soak/random_run.h"
#include "tests/soak/setting.h"
#include "tests/support/run_tests.h"

int main(int count, char** arguments) {
  using namespace qvx::test;
  constexpr unsigned kRuns = 500;
  PlannedTests tests;
  const unsigned last = Setting("QVX_SOAK_RUN", kRuns - 1);
  for (unsigned number = Setting("QVX_SOAK_RUN", 0); number <= last; ++number) {
    RandomRun random = MakeRandomRun(Seed(), number);
    tests.Add("RandomRun", "Number" + std::to_string(number), std::move(random.plan),
              [solver = random.solver](const RunResult& run) {
                SCOPED_TRACE("seed " + std::to_string(Seed()));
                ExpectPasses(run, std::vector<Solver>(ShownArguments(run.plan).size(), solver));
                EXPECT_GE(run.seconds, 5);
              });
  }
  return RunTests(count, arguments);
}

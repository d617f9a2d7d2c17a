// Two hundred whole runs with random settings, side by side. QVX_SOAK_RUN=N carries out the run of
// that number alone, QVX_SOAK_SEED another two hundred.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/soak/random_run.h"
#include "tests/soak/setting.h"

namespace qvx::test {
namespace {

constexpr unsigned kRuns = 200;

const unsigned kFirst = Setting("QVX_SOAK_RUN", 0);
const unsigned kLast = Setting("QVX_SOAK_RUN", kRuns - 1);

struct Case {
  RandomRun expected;
  std::unique_ptr<PlannedRun> run;
};

std::vector<Case> PlanAll() {
  std::vector<Case> cases;
  for (unsigned number = kFirst; number <= kLast; ++number) {
    RandomRun random = MakeRandomRun(Seed(), number);
    auto run = std::make_unique<PlannedRun>(random.plan);
    cases.push_back({std::move(random), std::move(run)});
  }
  return cases;
}

const std::vector<Case> kCases = PlanAll();

const RunsOfTest kRunsOfTest("Soak/RandomRuns.ShowLogAndReturnWhatTheirSettingsSay", [] {
  Runs runs;
  for (const Case& one : kCases) runs.push_back(one.run.get());
  return runs;
});

class RandomRuns : public testing::TestWithParam<unsigned> {};

TEST_P(RandomRuns, ShowLogAndReturnWhatTheirSettingsSay) {
  SCOPED_TRACE("seed " + std::to_string(Seed()));
  const auto& [expected, run] = kCases[GetParam() - kFirst];
  // The trace shows paths in lower case too.
  EXPECT_EQ(Replaced((*run)->output, "c:\\node1\\<name>", "<site>"), expected.output);
  EXPECT_EQ((*run)->error, "");
  EXPECT_EQ((*run)->status, expected.status);
  EXPECT_EQ((*run)->logs, expected.logs);
  EXPECT_GE((*run)->seconds, 5);
}

INSTANTIATE_TEST_SUITE_P(Soak, RandomRuns, testing::Range(kFirst, kLast + 1));

}  // namespace
}  // namespace qvx::test

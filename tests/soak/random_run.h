// A run of the launcher with random settings and what has to come of it. The settings follow from a
// seed and the run's number, so that one run can be replayed alone.
#pragma once

#include "tests/program/expected_run.h"

namespace qvx::test {

struct RandomRun {
  RunPlan plan;
  Solver solver;  ///< of every pass
};

/// In order: nothing in the settings is probably not meant.
enum class RandomSettings { Any, InOrder };

RandomRun MakeRandomRun(unsigned seed, unsigned number,
                        RandomSettings settings = RandomSettings::Any);

}  // namespace qvx::test

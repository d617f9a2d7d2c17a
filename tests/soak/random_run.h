// A run of the launcher with random settings and what has to come of it. The settings follow from a
// seed and the run's number, so that one run can be replayed alone.
#pragma once

#include <map>
#include <string>

#include "tests/program/planned_run.h"

namespace qvx::test {

struct RandomRun {
  RunPlan plan;
  std::string output;
  int status;
  std::map<std::string, std::string> logs;
};

/// In order: nothing in the settings is probably not meant.
enum class RandomSettings { Any, InOrder };

RandomRun MakeRandomRun(unsigned seed, unsigned number,
                        RandomSettings settings = RandomSettings::Any);

}  // namespace qvx::test

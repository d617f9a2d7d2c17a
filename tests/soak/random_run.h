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

RandomRun MakeRandomRun(unsigned seed, unsigned number);

}  // namespace qvx::test

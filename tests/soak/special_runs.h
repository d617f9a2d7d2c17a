// What the files of soak_special add.
#pragma once

#include "tests/program/planned_run.h"

namespace qvx::test {

void AddRandomConsoleEvents(PlannedTests& tests);
void AddSpecialRuns(PlannedTests& tests);

}  // namespace qvx::test

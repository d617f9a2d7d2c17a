// What each file of the program tests adds.
#pragma once

#include "tests/program/planned_run.h"

namespace qvx::test {

void AddSerialRuns(PlannedTests& tests);
void AddParallelRuns(PlannedTests& tests);
void AddTroubles(PlannedTests& tests);
void AddConsoleEvents(PlannedTests& tests);

}  // namespace qvx::test

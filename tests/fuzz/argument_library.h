// Takes the place of the argument library: its texts tell which operation made them of which
// record, and cost nothing.
#pragma once

#include <string>

#include "tests/plain/plain_run.h"

namespace qvx::fuzz {

/// What it has to answer.
std::string ArgumentString(int solverClass, const plain::Record& record);

}  // namespace qvx::fuzz

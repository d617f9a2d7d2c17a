// One run of the built QVXRunCheck.exe, to its end, with standard handles into pipes.
#pragma once

#include <string>
#include <vector>

namespace qvx::test {

struct CheckResult {
  std::string output;
  std::string error;
  int status;
};

/// `program`: empty for the built one beside its libraries.
CheckResult RunQvxRunCheck(const std::vector<std::string>& arguments,
                           const std::string& program = {});

}  // namespace qvx::test

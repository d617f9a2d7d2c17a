// Starting a program with a first argument of one's own, as the front end does.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qvx::runstart {

struct ProgramEnd {
  bool wasStarted;
  std::uint32_t code;  ///< exit code with all 32 bits; when it was not started the system's error
};

/// Starts `path` and waits for its end. It has this program's standard handles and console.
/// `arguments`: at least one, which stands where a program's own name usually does. That one cannot
/// hold a quotation mark: quotes are all the syntax that it has.
ProgramEnd RunProgram(const std::string& path, const std::vector<std::string>& arguments);

}  // namespace qvx::runstart

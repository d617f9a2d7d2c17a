#include "tests/support/texts.h"

#include <regex>

namespace qvx::test {

// Here and not in the header: a regular expression takes seconds to compile.
std::string WithoutTimestamps(const std::string& text) {
  static const std::regex timestamp(R"(\d{4}-\d\d-\d\d_\d\d-\d\d-\d\d)");
  return std::regex_replace(text, timestamp, "<time>");
}

}  // namespace qvx::test

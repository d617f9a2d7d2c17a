// A CMX file of a test's own, removed at the end of the test.
#pragma once

#include <string>
#include <string_view>

#include "tests/support/temporary_folder.h"

namespace qvx::test {

class CmxFile {
 public:
  explicit CmxFile(std::string_view bytes) : path_(folder_.Write("run.cmx", bytes)) {}

  const char* Path() const { return path_.c_str(); }

 private:
  TemporaryFolder folder_;
  std::string path_;
};

}  // namespace qvx::test

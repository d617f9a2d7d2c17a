// The whole way from the command line and the CMX file to the solver's folders and the MPI command
// line. The input's first three lines are the arguments, the rest is the file.
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/plain_run.h"
#include "tests/fuzz/product_facts.h"

namespace qvx::fuzz {

void RunInput(const std::string& input) {
  std::string file = input;
  std::vector<std::string> arguments = TakeLines(file, 3);
  arguments.resize(3);
  Compare([&] { return PlainRun(arguments, file); }, [&] { return ProductRun(arguments, file); });
}

}  // namespace qvx::fuzz

// The command line. Each line of the input is an argument, the first the program's own.
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/plain_run.h"
#include "tests/fuzz/product_facts.h"

namespace qvx::fuzz {

void RunInput(const std::string& input) {
  std::string text = input;
  constexpr std::size_t kMostArguments = 8;
  const std::vector<std::string> arguments = TakeLines(text, kMostArguments);
  Compare([&] { return PlainCommandLine(arguments); },
          [&] { return ProductCommandLine(arguments); });
}

}  // namespace qvx::fuzz

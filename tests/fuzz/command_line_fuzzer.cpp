// The command line. Each line of the input is an argument, the first the program's own.
#include "tests/fuzz/check.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/kept_console.h"
#include "tests/fuzz/product.h"

namespace qvx::fuzz {

void RunInput(std::string_view input) {
  const bool isTraced = IsTraced(input);
  constexpr std::size_t kMostArguments = 8;
  const std::vector<std::string> arguments = TakeLines(input, kMostArguments);
  const plain::Run run = plain::ReadCommandLine(arguments, isTraced);

  const Context context;
  context->debugTraceFlag = isTraced ? 1 : 0;
  ClearShown();
  if (CheckFault(run.end.fault, [&] { Interpret(*context, arguments); })) {
    CheckCommandLine(run, *context);
  }
  Check("console", run.console, Shown());
}

}  // namespace qvx::fuzz

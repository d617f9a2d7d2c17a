// Counts that memory cannot hold. Under Wine only: a failed allocation ends a process under the
// address sanitizer before the product sees it.
#include <gtest/gtest.h>

#include <string>

#include "execution/parallel_settings.h"
#include "launcher/launcher_context.h"
#include "runconfig/remote_machine_settings.h"
#include "support/bounded_text.h"
#include "tests/support/expect_fault.h"
#include "tests/support/temporary_folder.h"

namespace qvx {
namespace {

TEST(AllocationFault, NamesTheMachineCount) {
  const test::TemporaryFolder folder;
  const std::string path =
      folder.Write("run.cmx", "<REMOTE_MACHINES>\nValueNoMachine=2147483647\n");
  RemoteMachineSettings record;
  EXPECT_FAULT(ReadRemoteMachineSettings(path.c_str(), record),
               "ERROR: ValueNoMachine cannot be allocated: count 2147483647");
}

TEST(AllocationFault, NamesTheProcessWeights) {
  LauncherContext context;
  context.computeMode = ComputeMode::Smp;
  CopyText(context.taskManagerSettings.ValueNoTask, "ValueNoTask", "2147483647");
  EXPECT_FAULT(
      {
        AddWeights(context, 2'000'000'000);
        AddWeights(context, 2'000'000'000);
        PrepareParallelSettings(context);
      },
      "ERROR: process weights cannot be allocated: count 2[0-9]*");
}

TEST(AllocationFault, NeedsNoName) {
  EXPECT_FAULT(
      {
        InstallOutOfMemoryFault();
        std::string().resize(std::string().max_size() / 2);
      },
      "ERROR: out of memory");
}

}  // namespace
}  // namespace qvx

// Where a run lives: the CMX path, the run folder and the remote home path, with what their making
// prints.
#include "launcher/locations.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "launcher/argument_record.h"
#include "support/bounded_text.h"
#include "tests/support/expect_fault.h"
#include "tests/support/printed_by.h"
#include "tests/support/temporary_folder.h"

namespace qvx {
namespace {

std::unique_ptr<LauncherContext> ContextOf(SolverClass solverClass) {
  auto context = std::make_unique<LauncherContext>();
  context->solverClass = solverClass;
  VisitArgumentRecord(*context, [](QVXRunTexts& run) {
    CopyText(run.projectDirectory, "", "D:\\Proj");
    CopyText(run.projectName, "", "Part");
    CopyText(run.runNumber, "", "03");
  });
  return context;
}

TEST(BuildCmxPath, NamesFolderAndFileAfterTheRunInEveryClass) {
  for (std::uint32_t number = 0; number <= 12; ++number) {
    const auto context = ContextOf(SolverClass(number));
    EXPECT_EQ(BuildCmxPath(*context), 0);
    EXPECT_STREQ(context->cmxPath, "D:\\Proj\\Analysis\\Run03\\Part03.cmx") << number;
  }
}

TEST(BuildCurrentRunPath, IsTheRunFolderInEveryClass) {
  for (std::uint32_t number = 0; number <= 12; ++number) {
    const auto context = ContextOf(SolverClass(number));
    EXPECT_EQ(BuildCurrentRunPath(*context), 0);
    EXPECT_STREQ(context->currentRunPath, "D:\\Proj\\Analysis\\Run03") << number;
    EXPECT_STREQ(context->localRunPath, "D:\\Proj\\Analysis\\Run03") << number;
  }
}

TEST(Locations, TakeTheProjectDirectoryAsItStands) {
  const auto context = ContextOf(SolverClass::Flow);
  CopyText(context->flowArgument.projectDirectory, "", "D:\\Proj\\");
  BuildCmxPath(*context);
  BuildCurrentRunPath(*context);
  EXPECT_STREQ(context->cmxPath, "D:\\Proj\\\\Analysis\\Run03\\Part03.cmx");
  EXPECT_STREQ(context->currentRunPath, "D:\\Proj\\\\Analysis\\Run03");
}

TEST(Locations, TakeTheRunNumberAsItStands) {
  const auto context = ContextOf(SolverClass::Flow);
  CopyText(context->flowArgument.runNumber, "", "3");
  BuildCmxPath(*context);
  BuildCurrentRunPath(*context);
  EXPECT_STREQ(context->cmxPath, "D:\\Proj\\Analysis\\Run3\\Part3.cmx");
  EXPECT_STREQ(context->currentRunPath, "D:\\Proj\\Analysis\\Run3");
}

TEST(Locations, AreTraced) {
  const auto context = ContextOf(SolverClass::Flow);
  const auto build = [&] {
    BuildCmxPath(*context);
    BuildCurrentRunPath(*context);
  };
  EXPECT_EQ(test::PrintedBy(build), "");
  context->debugTraceFlag = 1;
  EXPECT_EQ(test::PrintedBy(build),
            "cmx path = D:\\Proj\\Analysis\\Run03\\Part03.cmx\n"
            "Current run path = D:\\Proj\\Analysis\\Run03\n");
}

TEST(Locations, StayEmptyButTracedOutsideTheClasses) {
  const auto context = ContextOf(SolverClass(13));
  context->debugTraceFlag = 1;
  EXPECT_EQ(test::PrintedBy([&] {
              BuildCmxPath(*context);
              BuildCurrentRunPath(*context);
            }),
            "cmx path = \nCurrent run path = \n");
}

TEST(Locations, StayAsTheyAreOutsideTheClasses) {
  const auto context = ContextOf(SolverClass(13));
  CopyText(context->cmxPath, "", "before.cmx");
  CopyText(context->currentRunPath, "", "before");
  BuildCmxPath(*context);
  BuildCurrentRunPath(*context);
  EXPECT_STREQ(context->cmxPath, "before.cmx");
  EXPECT_STREQ(context->currentRunPath, "before");
}

TEST(FormatCurrentRunPath, MovesNeitherTheLocalRunPathNorPrints) {
  const auto context = ContextOf(SolverClass::Flow);
  context->debugTraceFlag = 1;
  CopyText(context->localRunPath, "", "C:\\local");
  EXPECT_EQ(test::PrintedBy([&] { FormatCurrentRunPath(*context); }), "");
  EXPECT_STREQ(context->currentRunPath, "D:\\Proj\\Analysis\\Run03");
  EXPECT_STREQ(context->localRunPath, "C:\\local");
}

TEST(Locations, DegradeWithMissingTokens) {
  LauncherContext context;
  BuildCmxPath(context);
  EXPECT_STREQ(context.cmxPath, "\\Analysis\\Run\\.cmx");
}

TEST(Locations, RefusePathsLongerThanTheirFields) {
  const auto context = ContextOf(SolverClass::Flow);
  CopyText(context->flowArgument.projectDirectory, "", std::string(250, 'd'));
  EXPECT_FAULT(BuildCmxPath(*context), "ERROR: CMX path is too long: width 260, length 276");
  EXPECT_FAULT(BuildCurrentRunPath(*context),
               "ERROR: current run path is too long: width 260, length 265");
}

class RemoteHomePath : public testing::Test {
 protected:
  /// Builds the remote home path from a CMX file of these bytes and returns what is printed.
  std::string Build(LauncherContext& context, const std::string& bytes) {
    CopyText(context.cmxPath, "", folder_.Write("run.cmx", bytes));
    CopyText(context.parallelFolderName, "", "QvxShare");
    return test::PrintedBy([&] { EXPECT_EQ(BuildRemoteHomePath(context), 0); });
  }

  test::TemporaryFolder folder_;
};

constexpr const char* kDistributed =
    "<TASKMANAGER>\nIDTaskMode=1\n</TASKMANAGER>\n"
    "<REMOTE_MACHINES>\nValueStorageNode=NODE1\nValueNoMachine=1\nValueMachineSetting\n1=a\t2\n"
    "</REMOTE_MACHINES>\n";

TEST_F(RemoteHomePath, LeadsToTheStorageNodeInADistributedRun) {
  for (const auto solverClass : {SolverClass::Flow, SolverClass::Pack, SolverClass::Cool,
                                 SolverClass::Warp, SolverClass::Stress}) {
    const auto context = ContextOf(solverClass);
    EXPECT_EQ(Build(*context, kDistributed), "");
    EXPECT_STREQ(context->remoteHomePath, "\\\\NODE1\\QvxShare");
    EXPECT_EQ(context->remoteMachineSettings.machines.size(), 1U);
  }
}

TEST_F(RemoteHomePath, TakesStorageNodeAndShareAsTheyStand) {
  const auto context = ContextOf(SolverClass::Flow);
  CopyText(context->homeFolder, "", "D:\\Home");
  CopyText(context->cmxPath, "",
           folder_.Write("run.cmx", "<REMOTE_MACHINES>\nValueLocalHost=\\\\me\n"));
  CopyText(context->parallelFolderName, "", "\\Share");
  BuildRemoteHomePath(*context);
  EXPECT_STREQ(context->remoteHomePath, "\\\\\\\\me\\\\Share");
}

TEST_F(RemoteHomePath, IsTracedBeforeTheSettings) {
  const auto context = ContextOf(SolverClass::Flow);
  context->debugTraceFlag = 1;
  EXPECT_EQ(Build(*context, kDistributed),
            "Quorvex Home Remote=\\\\NODE1\\QvxShare\n"
            "Version                    = \n"
            "IDTaskMode                 = 1\n"
            "FlagAccelerationType       = \n"
            "ValueNoTask                = \n"
            "ValueLocalNoTask           = \n"
            "ValueConsoleRedirection    = \n"
            "Version                    = \n"
            "ValueNoMachine             = 1\n"
            "ValueRemoteNoTask          = \n"
            "ValueMap                   = \n"
            "ValueShareFolderName       = \n"
            "ValueParallelWorkingFolder = \n"
            "ValueLocalHost             = \n"
            "ValueStorageNode           = NODE1\n"
            "[0]a\t:2\t\n");
}

TEST_F(RemoteHomePath, IsEmptyOnThisMachine) {
  const auto context = ContextOf(SolverClass::Flow);
  EXPECT_EQ(Build(*context, "<TASKMANAGER>\nIDTaskMode=0\n</TASKMANAGER>\n"), "");
  EXPECT_STREQ(context->remoteHomePath, "");
  EXPECT_STREQ(context->taskManagerSettings.IDTaskMode, "0");
}

TEST_F(RemoteHomePath, IsNotTracedOnThisMachineButTheSettingsAre) {
  const auto context = ContextOf(SolverClass::Flow);
  context->debugTraceFlag = 1;
  const std::string printed = Build(*context, "<TASKMANAGER>\nIDTaskMode=0\n</TASKMANAGER>\n");
  EXPECT_EQ(printed, test::PrintedBy([&] {
              DumpTaskManagerSettings(context->taskManagerSettings);
              DumpRemoteMachineSettings(context->remoteMachineSettings);
            }));
}

TEST_F(RemoteHomePath, IsBuiltForANumberThatNamesNoFamily) {
  const auto context = ContextOf(SolverClass(13));
  Build(*context, kDistributed);
  EXPECT_STREQ(context->remoteHomePath, "\\\\NODE1\\QvxShare");
}

TEST_F(RemoteHomePath, IsRefusedWhenItIsTooLong) {
  const auto context = ContextOf(SolverClass::Flow);
  CopyText(context->cmxPath, "", folder_.Write("run.cmx", kDistributed));
  CopyText(context->parallelFolderName, "", std::string(252, 's'));
  EXPECT_FAULT(BuildRemoteHomePath(*context),
               "ERROR: remote home path is too long: width 260, length 260");
}

TEST_F(RemoteHomePath, IsThreeBackslashesWhenTheFileIsMissing) {
  const auto context = ContextOf(SolverClass::Flow);
  CopyText(context->cmxPath, "", "missing.cmx");
  EXPECT_EQ(test::PrintedBy([&] { BuildRemoteHomePath(*context); }),
            " Read CMX file: missing.cmx failed!\n Read CMX file: missing.cmx failed!\n");
  EXPECT_STREQ(context->remoteHomePath, "\\\\\\");
}

TEST_F(RemoteHomePath, IsNotEvenReadForClassesThatAlwaysRunSerially) {
  for (std::uint32_t number = 5; number <= 12; ++number) {
    const auto context = ContextOf(SolverClass(number));
    context->debugTraceFlag = 1;
    EXPECT_EQ(Build(*context, kDistributed), "") << number;
    EXPECT_STREQ(context->remoteHomePath, "") << number;
    EXPECT_STREQ(context->taskManagerSettings.IDTaskMode, "") << number;
    EXPECT_TRUE(context->remoteMachineSettings.machines.empty()) << number;
  }
}

}  // namespace
}  // namespace qvx

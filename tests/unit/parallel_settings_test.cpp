// What each compute mode writes into the argument records: parallel mode, process count, weights,
// the previous shot, and the folders as remote machines reach them.
#include "execution/parallel_settings.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "support/bounded_text.h"
#include "tests/support/expect_fault.h"
#include "tests/support/printed_by.h"

namespace qvx {
namespace {

/// A solver class that can run in parallel, and the record that belongs to it.
struct ParallelClass {
  SolverClass solverClass;
  QVXRunTexts& (*texts)(LauncherContext&);
  QVXRunSettings& (*settings)(LauncherContext&);
};

template <auto kRecord>
constexpr ParallelClass Of(SolverClass solverClass) {
  return {solverClass, [](LauncherContext& context) -> QVXRunTexts& { return context.*kRecord; },
          [](LauncherContext& context) -> QVXRunSettings& { return context.*kRecord; }};
}

constexpr ParallelClass kParallelClasses[] = {
    Of<&LauncherContext::flowArgument>(SolverClass::Flow),
    Of<&LauncherContext::flowArgument>(SolverClass::Pack),
    Of<&LauncherContext::coolArgument>(SolverClass::Cool),
    Of<&LauncherContext::warpArgument>(SolverClass::Warp),
    Of<&LauncherContext::warpArgument>(SolverClass::Stress),
};

constexpr ComputeMode kModes[] = {ComputeMode::Serial, ComputeMode::Smp, ComputeMode::Dmp};

std::vector<double> WeightsOf(const QVXRunSettings& settings) {
  return {settings.weights, settings.weights + settings.processCount};
}

struct ParallelSettings : testing::Test {
  /// Returns what is printed.
  std::string Prepare(SolverClass solverClass, ComputeMode mode) {
    // A run prepares a record once, so nothing releases weights that are given anew.
    for (QVXRunSettings* record : std::initializer_list<QVXRunSettings*>{
             &context.flowArgument, &context.coolArgument, &context.warpArgument}) {
      delete[] std::exchange(record->weights, nullptr);
    }
    context.solverClass = solverClass;
    context.computeMode = mode;
    return test::PrintedBy([&] { EXPECT_EQ(PrepareParallelSettings(context), 0); });
  }

  void SetTasks(const char* count) { CopyText(context.taskManagerSettings.ValueNoTask, "", count); }

  void AddMachine(const char* taskCount, const char* weighting) {
    RemoteMachineSettings& remote = context.remoteMachineSettings;
    MachineEntry& machine = remote.machines.emplace_back();
    CopyText(machine.taskCount, "", taskCount);
    CopyText(machine.weighting, "", weighting);
    CopyText(remote.ValueNoMachine, "", std::to_string(remote.machines.size()));
  }

  void SetFolders(QVXRunTexts& run, std::string_view project, std::string_view workingFolder) {
    CopyText(run.homeFolder, "", "C:\\Quorvex");
    CopyText(run.projectDirectory, "", project);
    CopyText(context.remoteMachineSettings.ValueStorageNode, "", "srv");
    CopyText(context.remoteMachineSettings.ValueShareFolderName, "", "sh");
    CopyText(context.remoteMachineSettings.ValueParallelWorkingFolder, "", workingFolder);
    CopyText(context.parallelFolderName, "", "QvxShare");
  }

  /// The project directory of a distributed FLOW run.
  std::string SharedProject(std::string_view project, std::string_view workingFolder) {
    SetFolders(context.flowArgument, project, workingFolder);
    Prepare(SolverClass::Flow, ComputeMode::Dmp);
    return context.flowArgument.projectDirectory;
  }

  LauncherContext context;
};

using ParallelSettingsDeathTest = ParallelSettings;

TEST_F(ParallelSettings, SerialRunsHaveOneProcessAndNoWeights) {
  for (const ParallelClass& each : kParallelClasses) {
    QVXRunSettings& settings = each.settings(context);
    settings.parallelMode = settings.processCount = 9;
    EXPECT_EQ(Prepare(each.solverClass, ComputeMode::Serial), "");
    EXPECT_EQ(settings.parallelMode, 0);
    EXPECT_EQ(settings.processCount, 1);
    EXPECT_EQ(settings.weights, nullptr);
  }
}

TEST_F(ParallelSettings, SharedMemoryRunsGiveEveryTaskTheSameWeight) {
  SetTasks("4");
  for (const ParallelClass& each : kParallelClasses) {
    EXPECT_EQ(Prepare(each.solverClass, ComputeMode::Smp), "");
    EXPECT_EQ(each.settings(context).parallelMode, 1);
    EXPECT_EQ(WeightsOf(each.settings(context)), (std::vector<double>{0.25, 0.25, 0.25, 0.25}));
  }
}

TEST_F(ParallelSettings, WeightsHaveTheirFullPrecision) {
  SetTasks("3");
  Prepare(SolverClass::Flow, ComputeMode::Smp);
  EXPECT_EQ(WeightsOf(context.flowArgument), (std::vector<double>(3, 1.0 / 3)));
}

TEST_F(ParallelSettings, ASharedMemoryRunOfOneTaskHasAWeightToo) {
  SetTasks("1");
  Prepare(SolverClass::Flow, ComputeMode::Smp);
  EXPECT_EQ(context.flowArgument.parallelMode, 1);
  EXPECT_EQ(WeightsOf(context.flowArgument), std::vector<double>{1});
}

TEST_F(ParallelSettings, SharedMemoryRunsWithoutAPositiveTaskCountHaveNoWeights) {
  const std::pair<const char*, int> counts[] = {{"0", 0}, {"-2", -2}, {"many", 0}, {"", 0}};
  for (const auto& [text, count] : counts) {
    SetTasks(text);
    for (const ParallelClass& each : kParallelClasses) {
      Prepare(each.solverClass, ComputeMode::Smp);
      EXPECT_EQ(each.settings(context).parallelMode, 1);
      EXPECT_EQ(each.settings(context).processCount, count);
      EXPECT_EQ(each.settings(context).weights, nullptr);
    }
  }
}

TEST_F(ParallelSettings, DistributedRunsSpreadEachMachinesWeightingOverItsTasks) {
  AddMachine("2", "0.6");
  AddMachine("1", "0.4");
  for (const ParallelClass& each : kParallelClasses) {
    Prepare(each.solverClass, ComputeMode::Dmp);
    EXPECT_EQ(each.settings(context).parallelMode, 2);
    EXPECT_EQ(WeightsOf(each.settings(context)), (std::vector<double>{0.3, 0.3, 0.4}));
  }
}

TEST_F(ParallelSettings, ADistributedRunMayHaveASingleMachine) {
  AddMachine("1", "0.5");
  Prepare(SolverClass::Flow, ComputeMode::Dmp);
  EXPECT_EQ(context.flowArgument.parallelMode, 2);
  EXPECT_EQ(WeightsOf(context.flowArgument), std::vector<double>{0.5});
}

TEST_F(ParallelSettings, WeightingsAreNotNormalised) {
  AddMachine("1", "2");
  AddMachine("2", "7");
  Prepare(SolverClass::Flow, ComputeMode::Dmp);
  EXPECT_EQ(WeightsOf(context.flowArgument), (std::vector<double>{2, 3.5, 3.5}));
}

TEST_F(ParallelSettings, AWeightingBelowZeroStands) {
  AddMachine("2", "-0.5");
  AddMachine("1", "1.5");
  Prepare(SolverClass::Flow, ComputeMode::Dmp);
  EXPECT_EQ(WeightsOf(context.flowArgument), (std::vector<double>{-0.25, -0.25, 1.5}));
}

TEST_F(ParallelSettings, MachinesWithoutATaskCountHaveNoWeights) {
  AddMachine("0", "0.1");
  AddMachine("NULL", "0.2");
  AddMachine("2", "");
  AddMachine("1", "0.4");
  Prepare(SolverClass::Flow, ComputeMode::Dmp);
  EXPECT_EQ(WeightsOf(context.flowArgument), (std::vector<double>{0, 0, 0.4}));
}

TEST_F(ParallelSettings, ANegativeTaskCountTakesWeightsFromTheEnd) {
  AddMachine("-1", "0.5");
  AddMachine("3", "0.6");
  AddMachine("1", "0.4");
  Prepare(SolverClass::Flow, ComputeMode::Dmp);
  EXPECT_EQ(WeightsOf(context.flowArgument), (std::vector<double>(3, 0.6 / 3)));
}

TEST_F(ParallelSettings, DistributedRunsWithoutMachinesHaveNoProcesses) {
  context.flowArgument.processCount = 9;
  Prepare(SolverClass::Flow, ComputeMode::Dmp);
  EXPECT_EQ(context.flowArgument.parallelMode, 2);
  EXPECT_EQ(context.flowArgument.processCount, 0);
  EXPECT_NE(context.flowArgument.weights, nullptr) << "an array, of no entries";
}

TEST_F(ParallelSettings, NegativeTaskCountsStopAtTheLimitOf32Bits) {
  AddMachine("-2147483648", "1");
  AddMachine("-2147483648", "1");
  Prepare(SolverClass::Flow, ComputeMode::Dmp);
  EXPECT_EQ(context.flowArgument.processCount, std::numeric_limits<std::int32_t>::min());
}

TEST_F(ParallelSettingsDeathTest, RefusesTaskCountsThatSumBeyond32Bits) {
  for (int i = 0; i < 3; ++i) AddMachine("2147483647", "1");
  context.computeMode = ComputeMode::Dmp;
  EXPECT_FAULT(PrepareParallelSettings(context),
               "ERROR: process weights cannot be allocated: count 6442450941");
}

TEST_F(ParallelSettingsDeathTest, RefusesWeightsThatMemoryCannotHold) {
  SetTasks("2000000000");
  context.computeMode = ComputeMode::Smp;
  EXPECT_FAULT(PrepareParallelSettings(context),
               "ERROR: process weights cannot be allocated: count 2000000000");
}

TEST_F(ParallelSettings, DistributedRunsMoveTheFoldersToTheShare) {
  for (const ParallelClass& each : kParallelClasses) {
    SetFolders(each.texts(context), "D:\\Work\\Proj\\P1", "d:\\work");
    EXPECT_EQ(Prepare(each.solverClass, ComputeMode::Dmp), "");
    EXPECT_STREQ(each.texts(context).homeFolder, "\\\\srv\\QvxShare");
    EXPECT_STREQ(each.texts(context).projectDirectory, "\\\\srv\\sh\\proj\\p1");
  }
}

TEST_F(ParallelSettings, OtherModesLeaveTheFolders) {
  for (const ParallelClass& each : kParallelClasses) {
    for (const ComputeMode mode : {ComputeMode::Serial, ComputeMode::Smp}) {
      SetFolders(each.texts(context), "D:\\Work\\Proj\\P1", "d:\\work");
      Prepare(each.solverClass, mode);
      EXPECT_STREQ(each.texts(context).homeFolder, "C:\\Quorvex");
      EXPECT_STREQ(each.texts(context).projectDirectory, "D:\\Work\\Proj\\P1");
    }
  }
}

TEST_F(ParallelSettings, AWorkingFoldersOwnSeparatorTakesALetterOfTheProjectAway) {
  EXPECT_EQ(SharedProject("D:\\Work\\Proj\\P1", "D:\\Work\\"), "\\\\srv\\sh\\roj\\p1");
}

TEST_F(ParallelSettings, AProjectThatIsTheWorkingFolderLeavesTheShareAlone) {
  EXPECT_EQ(SharedProject("D:\\Work", "D:\\Work"), "\\\\srv\\sh\\");
}

TEST_F(ParallelSettings, AProjectOutsideTheWorkingFolderStandsWholeBehindTheShare) {
  EXPECT_EQ(SharedProject("E:\\Other\\P1", "D:\\Work"), "\\\\srv\\sh\\e:\\other\\p1");
  EXPECT_EQ(SharedProject("\\\\srv\\sh\\P1", "D:\\Work"), "\\\\srv\\sh\\\\\\srv\\sh\\p1");
}

TEST_F(ParallelSettings, TheFirstOccurrenceOfTheWorkingFolderIsCutWhereverItStands) {
  EXPECT_EQ(SharedProject("D:\\Data\\Work\\Work\\P1", "Work"), "\\\\srv\\sh\\work\\p1");
}

TEST_F(ParallelSettings, AWorkingFolderIsCutFromTheMiddleOfALongerFoldersNameToo) {
  EXPECT_EQ(SharedProject("D:\\Workshop\\P1", "D:\\Work"), "\\\\srv\\sh\\hop\\p1");
}

TEST_F(ParallelSettings, AnEmptyWorkingFolderStillTakesTheSeparatorsPlace) {
  EXPECT_EQ(SharedProject("D:\\P1", ""), "\\\\srv\\sh\\:\\p1");
}

TEST_F(ParallelSettings, TheRestOfAProjectKeepsItsSeparators) {
  EXPECT_EQ(SharedProject("D:\\Work\\\\P1\\", "D:\\Work"), "\\\\srv\\sh\\\\p1\\");
  EXPECT_EQ(SharedProject("D:/Data/P1", "D:\\Data"), "\\\\srv\\sh\\d:/data/p1");
}

TEST_F(ParallelSettings, TheShareIsNamedAsItStands) {
  for (const std::string name : {"", "\\\\s\\"}) {
    SetFolders(context.flowArgument, "D:\\Work\\P1", "D:\\Work");
    CopyText(context.remoteMachineSettings.ValueStorageNode, "", name);
    CopyText(context.remoteMachineSettings.ValueShareFolderName, "", name);
    CopyText(context.parallelFolderName, "", name);
    Prepare(SolverClass::Flow, ComputeMode::Dmp);
    EXPECT_EQ(context.flowArgument.homeFolder, "\\\\" + name + "\\" + name);
    EXPECT_EQ(context.flowArgument.projectDirectory, "\\\\" + name + "\\" + name + "\\p1");
  }
}

TEST_F(ParallelSettings, AProjectDirectoryIsCutAtItsFieldsWidth) {
  EXPECT_EQ(SharedProject(std::string(1023, 'p'), "D:\\Work"),
            "\\\\srv\\sh\\" + std::string(1023 - 9, 'p'));
}

TEST_F(ParallelSettings, OnlyTheFlowRecordTracesItsFolders) {
  context.debugTraceFlag = 1;
  for (const ParallelClass& each : kParallelClasses) {
    SetFolders(each.texts(context), "D:\\Work\\P1", "D:\\WORK");
    const bool isFlow =
        each.solverClass == SolverClass::Flow || each.solverClass == SolverClass::Pack;
    EXPECT_EQ(Prepare(each.solverClass, ComputeMode::Dmp),
              isFlow ? "Before, strProjectDirLocal=[D:\\Work\\P1]\n"
                       "After, strProjectDirLocal=[d:\\work\\p1]\n"
                       "Before, strParallelWorkingFolder=[D:\\WORK]\n"
                       "After, strParallelWorkingFolder=[d:\\work]\n"
                     : "");
  }
}

TEST_F(ParallelSettings, CoolingAndWarpageRecordsTakeThePreviousShotInEveryMode) {
  MultiShotSettings& shot = context.multiShotSettings;
  shot.FlagPrevShot = 2;
  shot.ValueShotRunID = 3;
  CopyText(shot.ValueShotProjectPath, "", "D:\\Shot 1\\");
  CopyText(shot.ValueShotProjectName, "", "First");
  for (const ComputeMode mode : kModes) {
    for (const SolverClass solverClass :
         {SolverClass::Cool, SolverClass::Warp, SolverClass::Stress}) {
      QVXPreviousShot& record = solverClass == SolverClass::Cool
                                    ? static_cast<QVXPreviousShot&>(context.coolArgument)
                                    : context.warpArgument;
      record = {};
      Prepare(solverClass, mode);
      EXPECT_EQ(record.previousShotFlag, 2);
      EXPECT_STREQ(record.previousShotProjectPath, "D:\\Shot 1\\");
      EXPECT_STREQ(record.previousShotRunId, "03");
      EXPECT_STREQ(record.previousShotProjectName, "First");
    }
  }
}

TEST_F(ParallelSettings, ThePreviousRunIdHasAtLeastTwoDigits) {
  const std::pair<int, const char*> ids[] = {{0, "00"}, {12, "12"}, {123, "123"}, {-1, "-1"}};
  for (const auto& [id, text] : ids) {
    context.multiShotSettings.ValueShotRunID = id;
    Prepare(SolverClass::Cool, ComputeMode::Serial);
    EXPECT_STREQ(context.coolArgument.previousShotRunId, text);
  }
}

TEST_F(ParallelSettings, ClassesBeyondStressChangeNothing) {
  QVXRunTexts* const runs[] = {&context.flowArgument,      &context.coolArgument,
                               &context.warpArgument,      &context.shellFlowArgument,
                               &context.shellCoolArgument, &context.shellWarpArgument,
                               &context.icArgument,        &context.opticsArgument};
  for (QVXRunTexts* run : runs) SetFolders(*run, "D:\\Work\\P1", "D:\\Work");
  context.debugTraceFlag = 1;
  context.multiShotSettings.FlagPrevShot = 1;
  SetTasks("4");
  AddMachine("2", "1");
  for (std::uint32_t number = 5; number <= 13; ++number) {
    for (const ComputeMode mode : kModes) {
      EXPECT_EQ(Prepare(SolverClass{number}, mode), "");
    }
  }
  for (const QVXRunTexts* run : runs) {
    EXPECT_STREQ(run->homeFolder, "C:\\Quorvex");
    EXPECT_STREQ(run->projectDirectory, "D:\\Work\\P1");
  }
  for (const ParallelClass& each : kParallelClasses) {
    EXPECT_EQ(each.settings(context).parallelMode, 0);
    EXPECT_EQ(each.settings(context).processCount, 0);
    EXPECT_EQ(each.settings(context).weights, nullptr);
  }
  EXPECT_EQ(context.coolArgument.previousShotFlag, 0);
  EXPECT_EQ(context.warpArgument.previousShotFlag, 0);
}

}  // namespace
}  // namespace qvx

// The texts that make the MPI process launcher's command line, blank by blank.
#include "execution/mpi_command_line.h"

#include <gtest/gtest.h>

#include "support/bounded_text.h"

namespace qvx {
namespace {

MachineEntry Machine(const char* hostName, const char* taskCount) {
  MachineEntry machine;
  CopyText(machine.hostName, "", hostName);
  CopyText(machine.taskCount, "", taskCount);
  return machine;
}

TEST(LocalProcesses, TakesTheTaskCountAsItStands) {
  TaskManagerSettings settings;
  for (const char* count : {"04 ", "0", "-1", "NULL", ""}) {
    CopyText(settings.ValueNoTask, "", count);
    EXPECT_EQ(LocalProcesses(settings), std::string("-localonly -n ") + count);
  }
}

TEST(HostsList, NamesEveryMachineWithItsTasksAndABlankBehindEachWord) {
  RemoteMachineSettings settings;
  CopyText(settings.ValueNoMachine, "", "2");
  settings.machines = {Machine("nodeA", "4"), Machine("nodeB", "2")};
  EXPECT_EQ(HostsList(settings), "-hosts 2 nodeA 4 nodeB 2 ");
}

TEST(HostsList, TakesAMachineWithoutAName) {
  RemoteMachineSettings settings;
  CopyText(settings.ValueNoMachine, "", "1");
  settings.machines = {Machine("", "NULL")};
  EXPECT_EQ(HostsList(settings), "-hosts 1  NULL ");
}

TEST(HostsList, TakesNamesAndTaskCountsAsTheyStandAndNoMachineForAnother) {
  RemoteMachineSettings settings;
  CopyText(settings.ValueNoMachine, "", "3");
  settings.machines = {Machine("\\\\node A", ""), Machine("B", "01"), Machine("B", "01")};
  EXPECT_EQ(HostsList(settings), "-hosts 3 \\\\node A  B 01 B 01 ");
}

TEST(HostsList, TakesACountThatIsNoNumberAsItStands) {
  RemoteMachineSettings settings;
  for (const char* count : {"0", "-1", "two", ""}) {
    CopyText(settings.ValueNoMachine, "", count);
    EXPECT_EQ(HostsList(settings), std::string("-hosts ") + count + " ");
  }
}

TEST(MpiCommandLine, QuotesTheSolverOnly) {
  EXPECT_EQ(MpiCommandLine("C:\\M P I\\impiexec.exe", "-localonly -n 4", "-mapall",
                           "D:\\Q x\\Bin\\Qvx3DFlow.exe", "-home \"h\""),
            "C:\\M P I\\impiexec.exe -env 0 0 -localonly -n 4 -mapall "
            "\"D:\\Q x\\Bin\\Qvx3DFlow.exe\" -home \"h\"");
}

TEST(MpiCommandLine, KeepsTheBlankBehindAHostsListAndBehindAnEmptyConfiguration) {
  EXPECT_EQ(MpiCommandLine("impiexec.exe", "-hosts 1 nodeA 4 ", "", "\\\\srv\\q\\Bin\\s.exe", ""),
            "impiexec.exe -env 0 0 -hosts 1 nodeA 4   \"\\\\srv\\q\\Bin\\s.exe\" ");
}

TEST(MpiCommandLine, KeepsTheBlanksOfTheConfigurationAndOfTheArguments) {
  EXPECT_EQ(MpiCommandLine("i", "-n 4", " -a ", "s", " -b "), "i -env 0 0 -n 4  -a  \"s\"  -b ");
}

}  // namespace
}  // namespace qvx

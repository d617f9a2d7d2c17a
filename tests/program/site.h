// One run's surroundings on disk: an installation, an MPI installation, a project with a run folder
// and CMX file. All of it lies in a folder below C:\NODE1, which is also the machine \\NODE1.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/temporary_folder.h"
#include "tests/support/texts.h"

namespace qvx::test {

/// Tokens and CMX files of a run there; texts may hold what Site::Specific knows.
constexpr const char* kTokens = "<site>\\Home*<site>\\Work\\Sample*Sample*3*01";
constexpr const char* kSerialCmx =
    "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueLocalNoTask=1\r\n</TASKMANAGER>\r\n";
constexpr const char* kSmpCmx =
    "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueNoTask=2\r\nValueLocalNoTask=2\r\n</TASKMANAGER>\r\n";
constexpr const char* kDmpCmx =
    "<TASKMANAGER>\r\nIDTaskMode=1\r\n</TASKMANAGER>\r\n"
    "<REMOTE_MACHINES>\r\nValueNoMachine=2\r\nValueLocalHost=NODE1\r\n"
    "ValueShareFolderName=<name>\\Work\r\nValueParallelWorkingFolder=<site>\\WORK\r\n"
    "ValueMachineSetting\r\n1=NODE1\t2\r\n2=NODE2\t1\r\n"
    "ValueMachineWeighting\r\n1=0.6\r\n2=0.4\r\n</REMOTE_MACHINES>\r\n";
constexpr const char* kConformalCmx =
    "<SOLID_COOL>\r\nFlag3DSolidCoolingChannel = 1\r\n</SOLID_COOL>\r\n";

/// Distributes a run over these machines, each with one task.
std::string CmxOfMachines(const std::vector<std::string>& names);

class Site : public TemporaryFolder {
 public:
  Site();

  std::string RunFolder() const { return Path("Work\\Sample\\Analysis\\Run01"); }

  /// Puts a copy of the stand-in solver into the home folder's Bin.
  void InstallSolver(const std::string& name) const;
  void WriteCmx(std::string_view text) const;
  void Remove(std::string_view relative) const;

  /// Console logs of the run folder: bytes by name, names WithoutTimestamps.
  std::map<std::string, std::string> Logs() const;

  /// In tests' texts, <site> stands for the folder, <share> for the same folder on \\NODE1, and
  /// <name> for its own name.
  std::string Generic(std::string text) const;
  std::string Specific(std::string text) const;

 private:
  std::string Name() const;
};

}  // namespace qvx::test

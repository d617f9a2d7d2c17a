// The four readers of the CMX file against four bare passes of fgets over a file of 32 MiB. With
// arguments it reads once, for whoever counts instructions: cmx_benchmark product|least BYTES.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "benchmark/figures.h"
#include "runconfig/multi_shot_settings.h"
#include "runconfig/remote_machine_settings.h"
#include "runconfig/solid_cool_settings.h"
#include "runconfig/task_manager_settings.h"
#include "tests/support/temporary_folder.h"

namespace qvx::benchmark {
namespace {

/// As front ends write them: much that is not the launcher's, its four sections in between.
std::string CmxFile(int bytes) {
  std::string file =
      "<TASKMANAGER>\nIDTaskMode=1\nValueNoTask=4\n</TASKMANAGER>\n"
      "<REMOTE_MACHINES>\nValueNoMachine=2\nValueLocalHost=NODE1\nValueMachineSetting\n"
      "1=NODE1\t2\n2=NODE2\t2\nValueMachineWeighting\n1=0.5\n2=0.5\n"
      "</REMOTE_MACHINES>\n<MESH>\n";
  for (int i = 0; static_cast<int>(file.size()) < bytes; ++i) {
    file += "ValueNode" + std::to_string(i) + "=" + std::to_string(i * 37 % 1000) +
            ".125 17.25 -3.5 0.000125\n";
  }
  return file +
         "</MESH>\n<SOLID_COOL>\nFlag3DSolidCoolingChannel=1\n</SOLID_COOL>\n"
         "<SOLID_MCM>\nFlagPrevShot=1\n</SOLID_MCM>\n";
}

void ReadProduct(const char* path) {
  TaskManagerSettings taskManager;
  RemoteMachineSettings remote;
  MultiShotSettings multiShot;
  std::int32_t cooling = 0;
  ReadTaskManagerSettings(path, taskManager);
  ReadRemoteMachineSettings(path, remote);
  ReadMultiShotSettings(path, multiShot);
  ReadSolidCoolSettings(path, cooling);
  Require(remote.machines.size() == 2 && cooling == 1, "the readers did not find the settings");
}

void ReadLeast(const char* path) {
  for (int pass = 0; pass < 4; ++pass) {
    std::FILE* file = std::fopen(path, "r");
    Require(file != nullptr, "no CMX file");
    char line[1024];
    while (std::fgets(line, sizeof line, file) != nullptr) {
    }
    std::fclose(file);
  }
}

}  // namespace
}  // namespace qvx::benchmark

int main(int argumentCount, char** arguments) {
  using namespace qvx::benchmark;
  const qvx::test::TemporaryFolder folder;
  const int bytes = argumentCount == 3 ? std::atoi(arguments[2]) : 32 << 20;
  const std::string path = folder.Path("Sample01.cmx");
  std::ofstream(path) << CmxFile(bytes);  // in text mode: with the system's line ends
  if (argumentCount == 3) {
    (std::string(arguments[1]) == "product" ? ReadProduct : ReadLeast)(path.c_str());
    return 0;
  }
  const auto time = [&](auto read) { return Seconds([&] { read(path.c_str()); }); };
  Report("CMX: four readers over 32 MiB",
         MedianRatio([&] { return time(ReadProduct); }, [&] { return time(ReadLeast); }), 1.15);
}

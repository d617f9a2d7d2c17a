#include "execution/mpi_command_line.h"

namespace qvx {

std::string LocalProcesses(const TaskManagerSettings& settings) {
  return std::string("-localonly -n ") + settings.ValueNoTask;
}

std::string HostsList(const RemoteMachineSettings& settings) {
  std::string hosts = std::string("-hosts ") + settings.ValueNoMachine + " ";
  for (const MachineEntry& machine : settings.machines) {
    hosts.append(machine.hostName).append(" ").append(machine.taskCount).append(" ");
  }
  return hosts;
}

std::string MpiCommandLine(const std::string& impiexecPath, const std::string& processes,
                           const std::string& configuration, const std::string& solverPath,
                           const std::string& solverArguments) {
  // Deliberate, all three: "-env 0 0 ", the launcher's path without quotes, and the double blank
  // behind a hosts list or before an empty configuration. Kept as it stands.
  return impiexecPath + " -env 0 0 " + processes + " " + configuration + " \"" + solverPath +
         "\" " + solverArguments;
}

}  // namespace qvx

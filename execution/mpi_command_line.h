// The command line of the MPI process launcher, as far as it is text alone.
#pragma once

#include <string>

#include "runconfig/remote_machine_settings.h"
#include "runconfig/task_manager_settings.h"

namespace qvx {

/// "-localonly -n " and `ValueNoTask` as it stands.
std::string LocalProcesses(const TaskManagerSettings& settings);

/// "-hosts ", `ValueNoMachine` as it stands, then every machine's host name and task count; each
/// word followed by a blank.
std::string HostsList(const RemoteMachineSettings& settings);

/// `processes`: one of the lists above. `configuration`: options of the MPI tool's, UTF-8.
std::string MpiCommandLine(const std::string& impiexecPath, const std::string& processes,
                           const std::string& configuration, const std::string& solverPath,
                           const std::string& solverArguments);

}  // namespace qvx

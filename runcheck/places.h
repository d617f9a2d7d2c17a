// The rules over what lies on this machine: folders, solvers, configuration, earlier logs.
#pragma once

#include "runcheck/call_facts.h"
#include "runcheck/cmx_facts.h"
#include "runcheck/diagnostic.h"
#include "runcheck/prediction.h"

namespace qvx::runcheck {

/// Where the run lies: from the context, or from the tokens when they do not fit into it.
struct RunPlaces {
  std::string home;
  std::string project;
  std::string name;
  std::string run;
  std::string runFolder;
  std::string cmxPath;
  std::string cmxName;  ///< the file's own
};

RunPlaces PlacesOf(const CallFacts& call, const Prediction& prediction);

/// Home and project, run folder, CMX file.
void CheckRunPlaces(const CallFacts& call, const RunPlaces& places, const CmxFile& cmx,
                    Diagnostics& found);

/// What each pass starts: solvers, the MPI process launcher, configuration of distributed runs.
/// `machinesMatter`: the run is distributed, and meant to be.
void CheckPrograms(const Prediction& prediction, const RunPlaces& places, bool machinesMatter,
                   Diagnostics& found);

/// Fills the passes' `deletes`, and tells what among them is no log.
void CheckOldLogs(Prediction& prediction, Diagnostics& found);

/// Tasks beyond this machine's processors, the previous shot's project, the debug trace.
void CheckMachine(const Prediction& prediction, Diagnostics& found);

}  // namespace qvx::runcheck

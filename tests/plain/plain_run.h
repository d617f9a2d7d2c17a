// What the launcher does, in a second, plain formulation: from the command line, the CMX file and
// the surroundings to everything that a run shows, starts and logs. Written from the rules, whole
// texts in memory, nothing shared with the product; fuzzing, soak and program tests expect what it
// says. Console lines end in "\n", log lines in "\r\n". Texts are single-byte: only the letters A
// to Z have a lower case.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvx::plain {

/// Why a reading or a run ends early. The first reason counts, and the facts after it do not.
struct End {
  std::string fault;        ///< the line on standard error, without "ERROR: "
  bool isOfLaunch = false;  ///< the fault comes after the argument string
  bool isTooLarge = false;  ///< a list of more than `kMostCounted` entries: memory decides

  bool Happened() const { return isTooLarge || !fault.empty(); }
};

constexpr int kMostCounted = 4096;

/// The leading decimal integer, cut to 32 bits; 0 when there is none.
std::int32_t Integer(std::string_view text);

/// The leading decimal number, with fraction and exponent; 0 when there is none.
double Decimal(std::string_view text);

/// The lines that every section's reader handles, in order.
class CmxFile {
 public:
  /// `bytes` as they lie on the disk.
  explicit CmxFile(std::string_view bytes);
  CmxFile(const CmxFile&) = delete;
  CmxFile& operator=(const CmxFile&) = delete;

  const std::vector<std::string_view>& Lines() const { return lines_; }

 private:
  std::string text_;
  std::vector<std::string_view> lines_;
};

/// `bytes` as a program reads them in text mode: a carriage return directly before a line feed is
/// dropped, and a Ctrl-Z ends the file.
std::string InTextMode(std::string_view bytes);

// The sections. Fields are named like the keys in the file; empty or 0 when it does not name them.
struct TaskManager {
  std::string Version, IDTaskMode, flagAccelerationType, ValueNoTask, ValueLocalNoTask,
      ValueConsoleRedirection;
};

struct Machine {
  std::string host, tasks, weighting;
};

struct RemoteMachines {
  std::string Version, ValueNoMachine, ValueRemoteNoTask, ValueMap, ValueShareFolderName,
      ValueParallelWorkingFolder, ValueLocalHost, ValueStorageNode;
  std::vector<Machine> machines;
};

struct MultiShot {
  std::string Version, ValueShotProjectPath, ValueShotProjectName;
  std::int32_t FlagPrevShot = 0, ValueShotRunID = 0, FlagPrevShotProject = 0;
};

TaskManager ReadTaskManager(const CmxFile& file, End& end);
RemoteMachines ReadRemoteMachines(const CmxFile& file, End& end);
MultiShot ReadMultiShot(const CmxFile& file, End& end);
/// `Flag3DSolidCoolingChannel`.
std::int32_t ReadSolidCool(const CmxFile& file, End& end);

/// The argument record of any solver class; what a class's record does not have stays empty or 0.
struct Record {
  std::string home, project, name, run;
  std::int32_t molding = 0, option = 0, secondOption = 0;
  std::array<std::string, 3> extras;
  std::int32_t parallelMode = 0, processes = 0;
  bool hasWeights = false;  ///< an array of them, which may have no entries
  std::vector<double> weights;
  std::int32_t previousShot = 0;
  std::string previousProject, previousRun, previousName;
};

/// What the stand-in argument library makes of the record of a solver class.
std::string StandInArguments(int solverClass, const Record& record);

/// What the launcher finds around it.
struct Surroundings {
  std::optional<std::string_view> cmx;  ///< bytes; none when the file cannot be read
  std::string parallelFolder = {};
  std::string mpiPath = {};           ///< as it stands in the registry
  std::string mpiConfiguration = {};  ///< options of the MPI tool's
  bool accountsAreUsable = true;
  bool isTraced = false;
  std::string (*argumentString)(int solverClass, const Record& record) = StandInArguments;
};

/// One call of the run driver.
struct Pass {
  int solverClass = 0;
  std::string solver;
  int mode = 0;           ///< 0 serial, 1 shared-memory, 2 distributed
  bool launches = false;  ///< not when the accounts are refused: nothing below then
  Record record;
  std::string arguments;
  std::string processes;  ///< "-localonly -n N" or "-hosts ..."; empty in a serial run
  std::string commandLine;
  std::string reportedPath;  ///< whose return value is shown
  std::string logPath;       ///< up to the time in its name
  std::string logHeading;    ///< what is logged before the child's output
  std::string prepared;      ///< the console up to the argument string
  std::string launched;      ///< the console from there to the child's output
};

struct Run {
  // From the command line.
  std::string solver;
  int solverClass = 0;
  Record record;
  // From the files.
  std::string cmxPath, runFolder, remoteHome;
  TaskManager taskManager;
  RemoteMachines remoteMachines;
  MultiShot multiShot;
  bool isConformal = false;

  std::string console;  ///< before the first pass
  std::vector<Pass> passes;
  End end;
  std::optional<int> status;  ///< none when the last child's status is the run's
};

/// The command line alone; of one argument too, which a run refuses.
Run ReadCommandLine(const std::vector<std::string>& arguments, bool isTraced);

/// "-hosts ", the number of machines, then each one's name and task count.
std::string HostsList(const RemoteMachines& remote);

/// The parallel settings alone: fills the rest of `pass.record` as its class and mode say, from the
/// settings in `run`, whose console takes the trace.
void PrepareRecord(const Surroundings& world, Run& run, Pass& pass);

/// The whole run, as long as nobody cancels it and every child can be started. Its console ends in
/// the countdown, unless it was refused or ended by a fault.
Run PlainRun(const std::vector<std::string>& arguments, const Surroundings& world);

}  // namespace qvx::plain

// QVXSolverArgumentTool.dll of the transcripts. A record is shown whole when it becomes a text;
// what nobody wrote says whether it comes from the constructor or from `Reset`.
#include <malloc.h>

#include <charconv>
#include <cstring>
#include <map>
#include <string>
#include <type_traits>

#include "platform/qvx_solver_argument_tool.h"
#include "tests/transcripts/libraries/attached_host.h"

using qvx::test::host;
using qvx::test::Operation;

namespace {

constexpr const char* kIndent = "\n    ";

std::string Member(const char* name, const char* text) {
  return std::string(kIndent) + name + " " + host->quote(text);
}

std::string Member(const char* name, int number) {
  return std::string(kIndent) + name + " " + std::to_string(number);
}

/// Defaults that no launcher writes. `origin`: "built" or "reset"; `first`: the numbers' first.
template <typename Record>
void Fill(Record& record, const std::string& origin, int first) {
  const auto fill = [&](char* text, const char* name) {
    std::strcpy(text, (origin + " " + name).c_str());
  };
  if constexpr (std::is_base_of_v<QVXReservedHead, Record>) {
    record.reservedInteger1 = first + 1;
    record.reservedInteger2 = first + 2;
    record.reservedInteger3 = first + 3;
    record.reservedInteger4 = first + 4;
    record.reservedInteger5 = first + 5;
    fill(record.reservedText1, "text 1");
    fill(record.reservedText2, "text 2");
    fill(record.reservedText3, "text 3");
    fill(record.reservedText4, "text 4");
  }
  fill(record.homeFolder, "home folder");
  fill(record.projectDirectory, "project directory");
  fill(record.projectName, "project name");
  fill(record.runNumber, "run");
  if constexpr (std::is_base_of_v<QVXRunSettings, Record>) {
    record.moldingType = first + 6;
    record.optionValue = first + 7;
    record.parallelMode = 1;
    record.processCount = 2;
    record.weights = new double[2]{0.125, first / 1000.0};
  }
  if constexpr (std::is_base_of_v<QVXPreviousShot, Record>) {
    record.previousShotFlag = first + 8;
    fill(record.previousShotProjectPath, "shot path");
    fill(record.previousShotRunId, "shot run");
    fill(record.previousShotProjectName, "shot name");
  }
  if constexpr (std::is_base_of_v<QVXShellSettings, Record>) {
    record.optionValue = first + 7;
    for (char* text : record.extraTexts) fill(text, "extra");
  }
  if constexpr (std::is_same_v<CQVXWarpArgument, Record>) record.secondOptionValue = first + 9;
}

/// Arrays that two records share are told from arrays that are equal.
std::string SharedWith(const double* weights, const std::string& role) {
  static std::map<const double*, std::string> owners;
  const std::string& owner = owners.emplace(weights, role).first->second;
  return owner == role ? "" : ", shared with the " + owner;
}

std::string Weights(const QVXRunSettings& record, const std::string& role) {
  if (record.weights == nullptr) return std::string(kIndent) + "weights none";
  const std::size_t count = _msize(record.weights) / sizeof(double);
  std::string text = std::string(kIndent) + (count == 0 ? "weights of no process" : "weights");
  for (std::size_t i = 0; i < count; ++i) {
    char number[32];
    text += ' ';
    text.append(number, std::to_chars(number, number + sizeof number, record.weights[i]).ptr);
  }
  return text + SharedWith(record.weights, role);
}

template <typename Record>
std::string Shown(const Record& record) {
  std::string text = host->roleOf(&record);
  if constexpr (std::is_base_of_v<QVXReservedHead, Record>) {
    text += Member("reserved integer 1", record.reservedInteger1) +
            Member("reserved text 1", record.reservedText1) +
            Member("reserved text 2", record.reservedText2) +
            Member("reserved integer 2", record.reservedInteger2) +
            Member("reserved integer 3", record.reservedInteger3) +
            Member("reserved text 3", record.reservedText3) +
            Member("reserved integer 4", record.reservedInteger4) +
            Member("reserved text 4", record.reservedText4) +
            Member("reserved integer 5", record.reservedInteger5);
  }
  text += Member("home folder", record.homeFolder) +
          Member("project directory", record.projectDirectory) +
          Member("project name", record.projectName) + Member("run number", record.runNumber);
  if constexpr (std::is_base_of_v<QVXRunSettings, Record>) {
    text += Member("molding type", record.moldingType) +
            Member("option value", record.optionValue) +
            Member("parallel mode", record.parallelMode) +
            Member("process count", record.processCount) + Weights(record, host->roleOf(&record));
  }
  if constexpr (std::is_base_of_v<QVXPreviousShot, Record>) {
    text += Member("previous-shot flag", record.previousShotFlag) +
            Member("previous-shot project path", record.previousShotProjectPath) +
            Member("previous-shot run id", record.previousShotRunId) +
            Member("previous-shot project name", record.previousShotProjectName);
  }
  if constexpr (std::is_base_of_v<QVXShellSettings, Record>) {
    text += Member("option value", record.optionValue);
    for (const char* extra : record.extraTexts) text += Member("extra text", extra);
  }
  if constexpr (std::is_same_v<CQVXWarpArgument, Record>) {
    text += Member("second option value", record.secondOptionValue);
  }
  return text;
}

template <typename Record>
const char* Create(const void* tool, const char* function, const Record& record) {
  Operation operation(tool, function);
  const char* answer = host->answers->argumentString;
  operation.Add("(" + Shown(record) + ")");
  operation.Add(std::string(" = ") + host->quote(answer));
  const std::size_t length = std::strlen(answer);
  auto* text = new char[length + 1];  // never released: what is lent may be read too late
  std::memcpy(text, answer, length + 1);
  host->lend(text, length, sizeof *text);
  return text;
}

}  // namespace

CQVXSolverArgumentTool::CQVXSolverArgumentTool() { host->construct(this, "argument tool"); }
CQVXSolverArgumentTool::~CQVXSolverArgumentTool() { host->destroy(this); }

#define QVX_RECORD(Record, create, role, first)                      \
  Record::Record() {                                                 \
    Fill(*this, "built", first);                                     \
    host->construct(this, role);                                     \
  }                                                                  \
  Record::~Record() { host->destroy(this); }                         \
  void Record::Reset() {                                             \
    const Operation operation(this, "Reset");                        \
    Fill(*this, "reset", (first) + 10);                              \
  }                                                                  \
  const char* CQVXSolverArgumentTool::create(const Record& record) { \
    return Create(this, #create, record);                            \
  }

QVX_RECORD(CQVXFlowFlowEPackArgument, CreateFlowFlowEPackArgument, "flow record", 100)
QVX_RECORD(CQVXCoolArgument, CreateCoolArgument, "cooling record", 200)
QVX_RECORD(CQVXWarpArgument, CreateWarpArgument, "warpage record", 300)
QVX_RECORD(CQVXShellFlowPackArgument, CreateShellFlowPackArgument, "shell flow record", 400)
QVX_RECORD(CQVXShellCoolArgument, CreateShellCoolArgument, "shell cooling record", 500)
QVX_RECORD(CQVXShellWarpArgument, CreateShellWarpArgument, "shell warpage record", 600)
QVX_RECORD(CQVX3DICWSPSArgument, Create3DICWSPSArgument, "IC, WS and PS record", 700)
QVX_RECORD(CQVXOpticsArgument, CreateOpticsArgument, "optics record", 800)

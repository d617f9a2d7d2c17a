#include "tests/runcheck/truth_asked.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "tests/support/texts.h"

namespace qvx::test {
namespace {

namespace fs = std::filesystem;

constexpr int kFaultStatus = -2;
constexpr int kCancelledStatus = -9876;

std::string Lower(std::string text) {
  std::ranges::transform(text, text.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
  });
  return text;
}

/// What stands in `text` behind the last `before`, up to `end`; nothing without either.
std::string Between(const std::string& text, const std::string& before, const std::string& end) {
  const std::size_t start = text.rfind(before);
  if (start == std::string::npos) return "";
  const std::size_t begin = start + before.size();
  return text.substr(begin, text.find(end, begin) - begin);
}

/// The console, cut before each launch's first line.
std::vector<std::string> Launches(const std::string& console) {
  std::vector<std::string> launches;
  std::size_t start = console.find("Launch ");
  while (start != std::string::npos) {
    std::size_t next = start;
    do {
      next = console.find("Launch ", next + 1);
    } while (next != std::string::npos && console.compare(next, 14, "Launch serial ") != 0 &&
             console.compare(next, 16, "Launch parallel ") != 0);
    launches.push_back(console.substr(start, next - start));
    start = next;
  }
  return launches;
}

std::string WeightList(const std::vector<double>& weights) {
  std::string list;
  for (const double weight : weights) {
    std::array<char, 32> text;
    std::snprintf(text.data(), text.size(), "%g", weight);
    list += (list.empty() ? "" : ",") + std::string(text.data());
  }
  return list;
}

/// One comparison; collects what differs.
class Comparison {
 public:
  Comparison(const CheckAnswer& answer, const Site& site) : answer_(answer), site_(site) {}

  void Expect(const std::string& fact, const std::string& predicted, const std::string& happened) {
    if (predicted == happened) return;
    differences_ += fact + "\n  predicted: " + predicted + "\n  happened:  " + happened + "\n";
  }

  /// A path as `LogsOnDisk` names it.
  std::string OnDisk(const std::string& path) const {
    return Lower(Replaced(site_.Generic(path), "<share>", "<site>"));
  }

  /// `launch`: the console from its first line on. `made`: the logs that are new.
  void ComparePass(const AnsweredPass& pass, const std::string& launch,
                   std::map<std::string, std::string>& made) {
    Expect("banner", pass.mode == "serial" ? "Launch serial" : "Launch parallel",
           launch.substr(0, launch.find(" computing")));
    const bool isStarted = launch.find("\r\nCreateProcess [") == std::string::npos;
    if (!isStarted) {
      Expect("command line", pass.commandLine,
             Between(launch, "CreateProcess [", "] failed. system error("));
      CompareRecord(pass, pass.commandLine);
      return;
    }
    const std::string reported = Between(launch, "\r\n>>> Return value of ", " = ");
    if (!reported.empty()) Expect("reported path", pass.reportedPath, reported);
    const auto log = std::ranges::find_if(
        made, [&](const auto& one) { return WithoutTimestamps(one.first) == OnDisk(pass.log); });
    const std::string lost = Between(launch, "CreateFile(", ")::INVALID_HANDLE_VALUE");
    if (log == made.end()) {
      if (!reported.empty()) Expect("log that cannot be made", pass.log, WithoutTimestamps(lost));
      return;
    }
    std::string heading;
    if (pass.mode == "distributed") {
      heading = "Used compute nodes:\r\n";
      for (const AnsweredMachine& machine : answer_.machines) {
        heading += machine.host + ":" + std::to_string(machine.tasks) + "\r\n";
      }
      heading += "\r\n";
    }
    heading += "Commandline=[" + pass.commandLine + "]\r\n";
    // A launcher that could not log all of its heading is at its end.
    const std::string logged = log->second.substr(0, heading.size());
    if (reported.empty()) heading.resize(logged.size());
    Expect("log's heading", heading, logged);
    CompareRecord(pass, pass.commandLine);
    made.erase(log);
  }

  /// What the argument record held, as the command line tells it.
  void CompareRecord(const AnsweredPass& pass, const std::string& commandLine) {
    const std::string count = Between(commandLine, " -processes ", " ");
    Expect("process count", std::to_string(pass.processCount), count.empty() ? "1" : count);
    Expect("weights", WeightList(pass.weights), Between(commandLine, " -weights ", " "));
  }

  CheckAnswer const& answer_;
  const Site& site_;
  std::string differences_;
};

/// Codes whose sentence is that the launcher stops, whatever else the run is.
const std::set<std::string> kFaultCodes = {"text-too-long", "cannot-allocate", "library-failed"};

}  // namespace

AskedCheck::AskedCheck(const LauncherStart& start, const Site& site)
    : site_(site), logsBefore_(LogsOnDisk()) {
  LauncherStart asked = start;
  asked.program = "bin\\QVXRunCheck.exe";
  asked.firstArgument = "QVXRunCheck.exe";
  asked.arguments = {"--json", "--no-network", "--", start.firstArgument};
  asked.arguments.insert(asked.arguments.end(), start.arguments.begin(), start.arguments.end());
  LauncherProcess check(asked);
  const int status = check.Wait();
  try {
    answer_ = ParseCheckAnswer(check.Output());
  } catch (const std::exception& reason) {
    complaint_ = std::string(reason.what()) + "\n" + check.Output();
  }
  if (!check.Error().empty()) complaint_ += "standard error: " + check.Error();
  if (status != (answer_.errorCount > 0 ? 1 : 0)) {
    complaint_ += "exit status " + std::to_string(status) + "\n";
  }
  if (LogsOnDisk() != logsBefore_) complaint_ += "the check changes logs\n";
}

std::map<std::string, std::string> AskedCheck::LogsOnDisk() const {
  std::map<std::string, std::string> logs;
  std::error_code gone;
  for (const auto& entry : fs::recursive_directory_iterator(site_.Path(), gone)) {
    if (!entry.path().filename().string().starts_with("console_redirect_") ||
        !entry.is_regular_file(gone)) {
      continue;
    }
    std::ifstream file(entry.path(), std::ios::binary);
    logs[Lower(site_.Generic(Utf8Of(entry.path().string())))] =
        Utf8Of({std::istreambuf_iterator<char>(file), {}});
  }
  return logs;
}

std::string AskedCheck::Untruths(const LauncherProcess& launcher, int status,
                                 bool isMeddledWith) const {
  if (!complaint_.empty()) return complaint_;
  Comparison comparison(answer_, site_);
  const std::string console = Utf8Of(launcher.Output());
  const std::string error = Replaced(Utf8Of(launcher.Error()), "\r\n", "");
  const std::vector<std::string> launches = Launches(console);

  const std::map<std::string, std::string> after = LogsOnDisk();
  std::map<std::string, std::string> made = after;
  std::set<std::string> gone;
  for (const auto& [path, bytes] : logsBefore_) {
    made.erase(path);
    if (!after.contains(path)) gone.insert(path);
  }

  std::set<std::string> deletes;
  for (std::size_t i = 0; i < std::min(launches.size(), answer_.passes.size()); ++i) {
    comparison.ComparePass(answer_.passes[i], launches[i], made);
    for (const std::string& path : answer_.passes[i].deletes) {
      deletes.insert(comparison.OnDisk(path));
    }
  }
  const auto listed = [](const std::set<std::string>& paths) {
    std::string list;
    for (const std::string& path : paths) list += path + "; ";
    return list;
  };
  if (!isMeddledWith || !gone.empty()) comparison.Expect("deletes", listed(deletes), listed(gone));
  for (const auto& [path, bytes] : made) comparison.Expect("log", "", path);

  const bool isFault = status == kFaultStatus && error.starts_with("ERROR: ");
  const bool isRefused = console.find("Error: Please check if acc.ini") != std::string::npos;
  const bool cannotStart =
      isRefused || console.starts_with("incorrect argument") ||
      console.find("] failed. system error(") != std::string::npos ||
      (!isMeddledWith && console.find("::INVALID_HANDLE_VALUE") != std::string::npos);
  if (!isFault && !isRefused && status != kCancelledStatus) {
    comparison.Expect("launches", std::to_string(answer_.passes.size()),
                      std::to_string(launches.size()));
  }

  std::string faultTold;
  bool isFaultTold = false;
  for (const AnsweredDiagnostic& diagnostic : answer_.diagnostics) {
    const bool isLength = diagnostic.code == "command-line-length";
    if (!kFaultCodes.contains(diagnostic.code) && !isLength) continue;
    if (!isLength || isFault) isFaultTold = true;
    if (isLength || "ERROR: " + diagnostic.summary == error) faultTold = error;
  }
  if (isFault || isFaultTold) comparison.Expect("fault", faultTold, error);
  if (cannotStart && answer_.errorCount == 0) comparison.Expect("errors", "none", console);
  const bool isWhole = status == 0 && !isFault && !cannotStart &&
                       console.find("::INVALID_HANDLE_VALUE") == std::string::npos;
  for (const AnsweredDiagnostic& diagnostic : answer_.diagnostics) {
    if (isWhole && diagnostic.severity == "error") {
      comparison.Expect("run", diagnostic.code, "as it is meant");
    }
  }
  if (comparison.differences_.empty()) return "";
  return comparison.differences_ + LinesOf(answer_.diagnostics);
}

}  // namespace qvx::test

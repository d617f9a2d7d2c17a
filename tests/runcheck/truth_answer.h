// What QVXRunCheck.exe --json prints, taken apart. All texts are UTF-8.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace qvx::test {

struct AnsweredPass {
  std::string family;
  std::string mode;
  std::string solver;
  std::string commandLine;
  std::string reportedPath;
  std::string log;  ///< "<time>" stands for the time
  std::vector<std::string> deletes;
  std::int32_t processCount = 0;
  std::vector<double> weights;
  std::map<std::string, std::string> environment;
};

struct AnsweredMachine {
  std::string host;
  std::int32_t tasks = 0;
  double weighting = 0;
};

struct AnsweredDiagnostic {
  std::string severity;
  std::string code;
  std::string summary;
  std::string detail;
};

struct CheckAnswer {
  std::string verdict;
  std::size_t errorCount = 0;
  std::size_t warningCount = 0;
  std::vector<AnsweredPass> passes;
  std::vector<AnsweredMachine> machines;
  std::vector<AnsweredDiagnostic> diagnostics;

  bool Has(const std::string& code) const;
};

/// Throws when `json` is not one such object with nothing behind it.
CheckAnswer ParseCheckAnswer(const std::string& json);

/// "<severity>: <summary> [<code>]", a line for each.
std::string LinesOf(const std::vector<AnsweredDiagnostic>& diagnostics);

/// From the ANSI code page.
std::string Utf8Of(const std::string& ansi);

}  // namespace qvx::test

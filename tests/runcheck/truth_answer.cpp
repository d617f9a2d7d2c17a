#include "tests/runcheck/truth_answer.h"

#include <windows.h>

#include <algorithm>
#include <nlohmann/json.hpp>

namespace qvx::test {
namespace {

using Json = nlohmann::json;

AnsweredPass PassOf(const Json& json) {
  return {.family = json.at("family"),
          .mode = json.at("mode"),
          .solver = json.at("solver"),
          .commandLine = json.at("command_line"),
          .reportedPath = json.at("reported_path"),
          .log = json.at("log"),
          .deletes = json.at("deletes"),
          .processCount = json.at("process_count"),
          .weights = json.at("weights"),
          .environment = json.at("environment")};
}

}  // namespace

bool CheckAnswer::Has(const std::string& code) const {
  return std::ranges::find(diagnostics, code, &AnsweredDiagnostic::code) != diagnostics.end();
}

CheckAnswer ParseCheckAnswer(const std::string& text) {
  const Json json = Json::parse(text);
  CheckAnswer answer;
  answer.verdict = json.at("verdict");
  answer.errorCount = json.at("error_count");
  answer.warningCount = json.at("warning_count");
  for (const Json& pass : json.at("passes")) answer.passes.push_back(PassOf(pass));
  for (const Json& machine : json.at("machines")) {
    answer.machines.push_back({machine.at("host"), machine.at("tasks"), machine.at("weighting")});
  }
  for (const Json& diagnostic : json.at("diagnostics")) {
    answer.diagnostics.push_back({diagnostic.at("severity"), diagnostic.at("code"),
                                  diagnostic.at("summary"), diagnostic.at("detail")});
  }
  return answer;
}

std::string LinesOf(const std::vector<AnsweredDiagnostic>& diagnostics) {
  std::string lines;
  for (const AnsweredDiagnostic& diagnostic : diagnostics) {
    lines += diagnostic.severity + ": " + diagnostic.summary + " [" + diagnostic.code + "]\n";
  }
  return lines;
}

std::string Utf8Of(const std::string& ansi) {
  std::wstring wide(ansi.size() + 1, L'\0');
  wide.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_ACP, 0, ansi.data(), static_cast<int>(ansi.size()), wide.data(),
                          static_cast<int>(wide.size()))));
  std::string utf8(wide.size() * 3, '\0');
  utf8.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(),
                          static_cast<int>(utf8.size()), nullptr, nullptr)));
  return utf8;
}

}  // namespace qvx::test

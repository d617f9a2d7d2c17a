#include <nlohmann/json.hpp>

#include "execution/launch_command.h"
#include "runcheck/report.h"

namespace qvx::runcheck {
namespace {

using Json = nlohmann::ordered_json;
using ToUtf8 = std::string (*)(const std::string&);

Json JsonOf(const std::optional<Range>& range, ToUtf8 toUtf8) {
  if (!range) return nullptr;
  const auto position = [](const Position& place) {
    return Json{{"line", place.line}, {"column", place.column}};
  };
  return {{"filename", toUtf8(range->filename)},
          {"start", position(range->start)},
          {"end", position(range->end)}};
}

Json JsonOf(const Pass& pass, ToUtf8 toUtf8) {
  Json deletes = Json::array();
  for (const std::string& path : pass.deletes) deletes.push_back(toUtf8(path));
  Json environment = Json::object();
  if (pass.IsUnderMpi()) environment[kMpiVariable] = kMpiVariableValue;
  return {{"family", TextsOf(pass.family).name},
          {"mode", NameOf(pass.mode)},
          {"solver", toUtf8(pass.solverPath)},
          {"command_line", toUtf8(pass.commandLine)},
          {"reported_path", toUtf8(pass.reportedPath)},
          {"log", toUtf8(pass.log.path)},
          {"deletes", deletes},
          {"process_count", pass.processCount},
          {"weights", pass.weights},
          {"environment", environment}};
}

Json JsonOf(const MachineReport& machine, ToUtf8 toUtf8) {
  return {{"host", toUtf8(machine.host)},
          {"tasks", machine.tasks},
          {"weighting", machine.weighting},
          {"address", machine.address ? Json(*machine.address) : Json(nullptr)}};
}

Json JsonOf(const Diagnostic& diagnostic, ToUtf8 toUtf8) {
  return {
      {"severity", NameOf(diagnostic.severity)},
      {"code", diagnostic.code},
      {"summary", toUtf8(diagnostic.summary)},
      {"detail", toUtf8(diagnostic.consequence + "; " + diagnostic.help)},
      {"range", JsonOf(diagnostic.range, toUtf8)},
      {"snippet", diagnostic.range ? Json(toUtf8(diagnostic.snippet)) : Json(nullptr)},
      {"suggestion", diagnostic.suggestion ? Json(toUtf8(*diagnostic.suggestion)) : Json(nullptr)}};
}

template <typename Items>
Json JsonList(const Items& items, ToUtf8 toUtf8) {
  Json list = Json::array();
  for (const auto& item : items) list.push_back(JsonOf(item, toUtf8));
  return list;
}

}  // namespace

std::string JsonReport(const Report& report, ToUtf8 toUtf8) {
  const std::size_t errors = CountOf(report.diagnostics, Severity::Error);
  const std::size_t warnings = CountOf(report.diagnostics, Severity::Warning);
  Json reasons = Json::array();
  for (const Reason& reason : report.reasons) {
    reasons.push_back({{"fact", reason.fact},
                       {"because", toUtf8(reason.because)},
                       {"range", JsonOf(reason.range, toUtf8)}});
  }
  const Json json = {{"format_version", "1.0"},
                     {"verdict", errors > 0     ? "errors"
                                 : warnings > 0 ? "warnings"
                                                : "ready"},
                     {"error_count", errors},
                     {"warning_count", warnings},
                     {"passes", JsonList(report.passes, toUtf8)},
                     {"machines", JsonList(report.machines, toUtf8)},
                     {"reasons", reasons},
                     {"diagnostics", JsonList(report.diagnostics, toUtf8)}};
  // A byte that is no UTF-8 after all becomes the replacement character.
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace qvx::runcheck

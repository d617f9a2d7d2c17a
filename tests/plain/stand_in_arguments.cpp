#include <cstdio>

#include "tests/plain/plain_run.h"

namespace qvx::plain {
namespace {

// How the stand-in library writes values; no test's text holds a quote.
std::string Quoted(const std::string& text) {
  const bool needsBlank = text.empty() || text.back() == '\\' || text == ":";
  return "\"" + text + (needsBlank ? " \"" : "\"");
}

std::string Short(double number) {
  char text[32];
  std::snprintf(text, sizeof text, "%g", number);
  return text;
}

}  // namespace

std::string StandInArguments(int solverClass, const Record& record) {
  std::string options;
  const auto add = [&](const char* name, const std::string& value) {
    options += (options.empty() ? "-" : " -") + std::string(name) + " " + value;
  };
  const auto number = [&](const char* name, int value) { add(name, std::to_string(value)); };
  add("home", Quoted(record.home));
  add("project", Quoted(record.project));
  add("name", Quoted(record.name));
  add("run", Quoted(record.run));
  const bool isShell = solverClass >= 5 && solverClass <= 8;
  if (isShell) {
    number("option", record.option);
    for (const std::string& extra : record.extras) add("extra", Quoted(extra));
  }
  if (solverClass > 4) return options;

  number("molding", record.molding);
  number("option", record.option);
  number("parallel", record.parallelMode);
  number("processes", record.processes);
  std::string weights;
  for (const double weight : record.weights)
    weights += (weights.empty() ? "" : ",") + Short(weight);
  if (!weights.empty()) add("weights", weights);
  if (solverClass < 2) return options;

  number("prevshot", record.previousShot);
  add("prevproject", Quoted(record.previousProject));
  add("prevrun", Quoted(record.previousRun));
  add("prevname", Quoted(record.previousName));
  if (solverClass > 2) number("option2", record.secondOption);
  return options;
}

}  // namespace qvx::plain

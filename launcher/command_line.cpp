#include "launcher/command_line.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

#include "launcher/argument_record.h"
#include "launcher/class_rule.h"
#include "launcher/debug_trace.h"
#include "launcher/lower_case_name.h"
#include "support/bounded_text.h"
#include "support/console.h"
#include "support/numbers.h"
#include "support/trailing_backslash.h"

namespace qvx {
namespace {

constexpr const char* kTokenSeparator = "*";

template <typename Record>
constexpr bool kIsShell = std::is_base_of_v<QVXShellSettings, Record>;

template <typename Record>
constexpr bool kTakesOption = kIsShell<Record> || std::is_same_v<Record, CQVXCoolArgument> ||
                              std::is_same_v<Record, CQVXWarpArgument>;

std::int32_t ReadMoldingType(const LauncherContext& context, const char* firstArgument) {
  const char* marker = std::strchr(firstArgument, '$');
  Trace(context, "$ symbol is at position(%d) of argv[0]\n",
        marker == nullptr ? -1 : static_cast<int>(marker - firstArgument));
  char text[8] = {};
  if (marker != nullptr) CopyTruncated(text, marker + 1);
  const std::int32_t moldingType = marker == nullptr ? -1 : ParseInteger(text);
  Trace(context, "szMoldingType from argv[0] = %s\n", text);
  Trace(context, "MoldingType from argv[0]   = %d\n", moldingType);
  return moldingType;
}

const char* SolverExecutableArgument(int argumentCount, char** arguments) {
  if (argumentCount >= 3) return arguments[2];
  // With two arguments the token list doubles as the name, on purpose.
  if (argumentCount == 2) return arguments[1];
  // The entry sequence lets no such call through. Deliberate, and kept.
  Print("SolverExe is not specified! Use QuorvexFakeSolver.exe as the solver.\n");
  return "QuorvexFakeSolver.exe";
}

/// A name that fits no rule runs as the class that the context was built with, FLOW, and silently;
/// this is deliberate.
void ClassifySolver(LauncherContext& context) {
  std::string name = context.solverExecutableName;
  LowerCaseName(context, name);
  const ClassRule* rule = FindClassRule(name);
  if (rule == nullptr) return;
  context.solverClass = ClassOf(*rule, name);
  Trace(context, "SolverClass=%s\n", TextsOf(context.solverClass).name);
}

template <typename Record>
void StoreToken(Record& record, int number, const char* token) {
  switch (number) {
    case kHomeFolder:
      CopyText(record.homeFolder, "home folder", token);
      RemoveTrailingBackslash(record.homeFolder);
      break;
    case kProjectDirectory:
      CopyText(record.projectDirectory, "project directory", token);
      break;
    case kProjectName:
      CopyText(record.projectName, "project name", token);
      break;
    case kOptionValue:
      if constexpr (kTakesOption<Record>) record.optionValue = ParseInteger(token);
      break;
    case kRunNumber:
      if constexpr (kIsShell<Record>) {
        FormatText(record.runNumber, "run number", "%02d", ParseInteger(token));
      } else {
        CopyText(record.runNumber, "run number", token);
      }
      break;
    default:
      if constexpr (kIsShell<Record>) {
        if (number > kLastExtraText) break;
        CopyText(record.extraTexts[number - kFirstExtraText], "extra text", token);
      }
      break;
  }
}

/// The shell front ends put their tokens into the first argument, behind the program path.
template <typename Record>
char* FirstToken(char** arguments) {
  if constexpr (kIsShell<Record>) {
    std::strtok(arguments[0], kTokenSeparator);
    return std::strtok(nullptr, kTokenSeparator);
  } else {
    return std::strtok(arguments[1], kTokenSeparator);
  }
}

}  // namespace

int InterpretCommandLine(LauncherContext& context, int argumentCount, char** arguments) {
  for (int i = 0; i < argumentCount; ++i) Trace(context, "argv[%d]=[%s]\n", i, arguments[i]);
  Trace(context, "\n");
  const std::int32_t moldingType = ReadMoldingType(context, argumentCount > 0 ? arguments[0] : "");
  CopyText(context.solverExecutableName, "solver executable name",
           SolverExecutableArgument(argumentCount, arguments));
  ClassifySolver(context);
  if (argumentCount < 2) return 0;

  Trace(context, "Parse argv[1]=[%s]\n", arguments[1]);
  VisitArgumentRecord(context, [&]<typename Record>(Record& record) {
    record.Reset();
    if constexpr (HasRunSettings<Record>) record.moldingType = moldingType;
    int number = 0;
    for (const char* token = FirstToken<Record>(arguments); token != nullptr;
         token = std::strtok(nullptr, kTokenSeparator)) {
      Trace(context, "%s\n", token);
      StoreToken(record, number++, token);
    }
    CopyText(context.homeFolder, "home folder", record.homeFolder);
  });
  if (context.solverClass == SolverClass::Stress) {
    context.warpArgument.secondOptionValue = context.warpArgument.optionValue;
  }
  return 0;
}

}  // namespace qvx

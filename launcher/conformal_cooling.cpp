#include "launcher/conformal_cooling.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "launcher/argument_record.h"
#include "launcher/debug_trace.h"
#include "runconfig/solid_cool_settings.h"
#include "support/bounded_text.h"

namespace qvx {

int ApplyConformalCoolingSetting(LauncherContext& context) {
  if (AlwaysRunsSerially(context.solverClass)) return 0;
  std::int32_t coolingChannel = 0;
  ReadSolidCoolSettings(context.cmxPath, coolingChannel);
  if (coolingChannel != 1) return 0;
  context.conformalCoolingFlag = 1;
  Trace(context, "Flag3DSolidCoolingChannel=%d\n", coolingChannel);
  // "false" cannot come here; deliberate, kept.
  Trace(context, "m_bIsConformalCooling=%s\n",
        context.conformalCoolingFlag != 0 ? "true" : "false");
  return 0;
}

void BeginFlowPass(LauncherContext& context) {
  CopyCoolArgumentToFlowArgument(context);
  context.solverClass = SolverClass::Flow;
  CopyText(context.savedSolverExecutableName, "saved solver executable name",
           context.solverExecutableName);
  CopyText(context.solverExecutableName, "solver executable name", "Qvx3DFlow.exe");
}

void BeginCoolPass(LauncherContext& context) {
  context.solverClass = SolverClass::Cool;
  CopyText(context.solverExecutableName, "solver executable name",
           context.savedSolverExecutableName);
}

int CopyCoolArgumentToFlowArgument(LauncherContext& context) {
  const CQVXCoolArgument& cool = context.coolArgument;
  CQVXFlowFlowEPackArgument& flow = context.flowArgument;
  flow.reservedInteger1 = cool.reservedInteger1;
  CopyTruncated(flow.reservedText1, cool.reservedText1);
  CopyTruncated(flow.reservedText2, cool.reservedText2);
  flow.reservedInteger2 = cool.reservedInteger2;
  flow.reservedInteger3 = cool.reservedInteger3;
  CopyTruncated(flow.reservedText3, cool.reservedText3);
  flow.reservedInteger4 = cool.reservedInteger4;
  CopyTruncated(flow.reservedText4, cool.reservedText4);
  flow.reservedInteger5 = cool.reservedInteger5;
  CopyTruncated(flow.homeFolder, cool.homeFolder);
  CopyTruncated(flow.projectDirectory, cool.projectDirectory);
  CopyTruncated(flow.projectName, cool.projectName);
  CopyTruncated(flow.runNumber, cool.runNumber);
  flow.moldingType = cool.moldingType;
  flow.optionValue = cool.optionValue == 3 ? 2 : 1;
  flow.processCount = cool.processCount;
  if (cool.processCount > 0 && cool.weights != nullptr) {
    const std::span<double> weights = AllocateWeights(flow, cool.processCount);
    std::copy_n(cool.weights, weights.size(), weights.begin());
  }
  if (cool.parallelMode >= 0 && cool.parallelMode <= 2) flow.parallelMode = cool.parallelMode;
  return 0;
}

}  // namespace qvx

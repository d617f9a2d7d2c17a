#include "execution/argument_string.h"

#include "launcher/argument_record.h"
#include "launcher/debug_trace.h"
#include "support/bounded_text.h"

namespace qvx {
namespace {

// The creation operation of each record class.
const char* Create(CQVXSolverArgumentTool& tool, const CQVXFlowFlowEPackArgument& record) {
  return tool.CreateFlowFlowEPackArgument(record);
}
const char* Create(CQVXSolverArgumentTool& tool, const CQVXCoolArgument& record) {
  return tool.CreateCoolArgument(record);
}
const char* Create(CQVXSolverArgumentTool& tool, const CQVXWarpArgument& record) {
  return tool.CreateWarpArgument(record);
}
const char* Create(CQVXSolverArgumentTool& tool, const CQVXShellFlowPackArgument& record) {
  return tool.CreateShellFlowPackArgument(record);
}
const char* Create(CQVXSolverArgumentTool& tool, const CQVXShellCoolArgument& record) {
  return tool.CreateShellCoolArgument(record);
}
const char* Create(CQVXSolverArgumentTool& tool, const CQVXShellWarpArgument& record) {
  return tool.CreateShellWarpArgument(record);
}
const char* Create(CQVXSolverArgumentTool& tool, const CQVX3DICWSPSArgument& record) {
  return tool.Create3DICWSPSArgument(record);
}
const char* Create(CQVXSolverArgumentTool& tool, const CQVXOpticsArgument& record) {
  return tool.CreateOpticsArgument(record);
}

}  // namespace

int BuildSolverArgumentString(LauncherContext& context) {
  VisitArgumentRecord(context, [&](const auto& record) {
    const char* text = Create(context.argumentTool, record);
    CopyText(context.solverArgumentString, "solver argument string", text == nullptr ? "" : text);
  });
  Trace(context, "Solver arguments = [%s]\n", context.solverArgumentString);
  return 0;
}

}  // namespace qvx

// Reports as a terminal shows them: cut and wrapped to its width, coloured or not.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

#include "runcheck/report.h"

namespace qvx::runcheck {
namespace {

Report SerialReport() {
  Report report;
  report.runNumber = "01";
  report.projectDirectory = "C:\\Projects\\Sample";
  Pass pass = {};
  pass.family = SolverClass::Flow;
  pass.mode = ComputeMode::Serial;
  pass.solverPath = "C:\\Quorvex\\Bin\\Qvx3DFlow.exe";
  pass.commandLine = "C:\\Quorvex\\Bin\\Qvx3DFlow.exe -home \"C:\\Quorvex\"";
  pass.log.path = "C:\\Projects\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_<time>.txt";
  pass.processCount = 1;
  report.passes.push_back(pass);
  report.reasons.push_back({"family", "\"flow\" and \"3d\" in Qvx3DFlow.exe", std::nullopt});
  return report;
}

Report ReportWithFindings() {
  Report report = SerialReport();
  report.diagnostics.push_back(
      Diagnostic("cmx-trailing-blank", "1 blank stands behind the value of IDTaskMode")
          .Grave()
          .Suggest("0", "the value is written 0")
          .At({"Sample01.cmx", {2, 15}, {2, 16}}, "IDTaskMode = 0 "));
  report.diagnostics.push_back(Diagnostic("call-extra-arguments", "the call has 4 arguments"));
  report.diagnostics.push_back(Diagnostic("not-seen", "what remote machines see is not told"));
  return report;
}

TEST(TextReport, LinesAreCutToTheWidth) {
  EXPECT_EQ(TextReport(SerialReport(), {false, 50}), "@@");
}

TEST(TextReport, WithoutAWidthNothingIsCut) {
  EXPECT_EQ(TextReport(SerialReport(), {false, 0}), "@@");
}

TEST(TextReport, DiagnosticsAreWrappedAtBlanks) {
  EXPECT_EQ(TextReport(ReportWithFindings(), {false, 50}), "@@");
}

TEST(TextReport, ColoursMarkHeadingSeveritiesAndPlaces) {
  EXPECT_EQ(TextReport(ReportWithFindings(), {true, 0}), "@@");
}

TEST(TextReport, NoLineIsLongerThanTheTerminalIsWide) {
  for (std::size_t width = 40; width <= 120; ++width) {
    std::istringstream text(TextReport(ReportWithFindings(), {false, width}));
    for (std::string line; std::getline(text, line);) EXPECT_LE(line.size(), width) << line;
  }
}

TEST(TextReport, ALongLineIsShownAroundItsPlace) {
  const std::string line = std::string(200, 'a') + "HERE" + std::string(200, 'b');
  const Diagnostic diagnostic =
      Diagnostic("cmx-comment", "a comment").At({"S.cmx", {7, 201}, {7, 205}}, line);
  EXPECT_EQ(DiagnosticText(diagnostic, {false, 60}), "@@");
}

TEST(TextReport, ControlCharactersAreShownAsBlanks) {
  const Diagnostic diagnostic = Diagnostic("cmx-comment", "x\x1B[31m")
                                    .At({"S.cmx", {1, 3}, {1, 4}},
                                        "a\x1B"
                                        "b\tc");
  EXPECT_EQ(DiagnosticText(diagnostic, {}), "@@");
}

}  // namespace
}  // namespace qvx::runcheck

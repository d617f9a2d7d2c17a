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

const std::string kPass =
    "\n"
    "  family        FLOW             \"flow\" and \"3d\" in Qvx3DFlow.exe\n"
    "  mode          serial\n"
    "  solver        C:\\Quorvex\\Bin\\Qvx3DFlow.exe\n"
    "  command line  C:\\Quorvex\\Bin\\Qvx3DFlow.exe -home \"C:\\Quorvex\"\n"
    "  log           "
    "C:\\Projects\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_<time>.txt\n"
    "\n";

/// The beginning of a report that is cut to 50 characters.
const std::string kCutTo50 =
    "Run 01 of C:\\Projects\\Sample: FLOW, serial\n"
    "\n"
    "  family        FLOW             \"flow\" and \"3d...\n"
    "  mode          serial\n"
    "  solver        C:\\Quorvex\\Bin\\Qvx3DFlow.exe\n"
    "  command line  C:\\Quorvex\\Bin\\Qvx3DFlow.exe -h...\n"
    "  log           C:\\Projects\\Sample\\Analysis\\Run...\n"
    "\n";

TEST(TextReport, LinesAreCutToTheWidth) {
  EXPECT_EQ(TextReport(SerialReport(), {false, 50}),
            kCutTo50 + "Nothing stands in the way of this run.\n");
}

TEST(TextReport, WithoutAWidthNothingIsCut) {
  EXPECT_EQ(TextReport(SerialReport(), {false, 0}),
            "Run 01 of C:\\Projects\\Sample: FLOW, serial\n" + kPass +
                "Nothing stands in the way of this run.\n");
}

TEST(TextReport, AnUnknownModeIsSerial) {
  Report report = SerialReport();
  report.passes.front().mode = static_cast<ComputeMode>(7);
  EXPECT_FALSE(report.passes.front().IsUnderMpi());
  EXPECT_EQ(TextReport(report, {}), TextReport(SerialReport(), {}));
}

TEST(TextReport, DiagnosticsAreWrappedAtBlanks) {
  EXPECT_EQ(TextReport(ReportWithFindings(), {false, 50}),
            kCutTo50 +
                "Sample01.cmx:2:15: error: 1 blank stands behind\n"
                "    the value of IDTaskMode: the launcher would\n"
                "    take it as part of the value\n"
                "    [cmx-trailing-blank]\n"
                "    2 | IDTaskMode = 0 \n"
                "      |               ^\n"
                "      | help: the value is written 0\n"
                "warning: the call has 4 arguments\n"
                "    [call-extra-arguments]\n"
                "    help: a call is FIRST_ARGUMENT TOKENS SOLVER\n"
                "note: what remote machines see is not told\n"
                "    [not-seen]\n"
                "    help: try each machine once by hand\n"
                "\n"
                "1 error, 1 warning: this run would not be the one\n"
                "that is meant.\n");
}

TEST(TextReport, ColoursMarkHeadingSeveritiesAndPlaces) {
  EXPECT_EQ(
      TextReport(ReportWithFindings(), {true, 0}),
      "\033[1mRun 01 of C:\\Projects\\Sample: FLOW, serial\033[0m\n" + kPass +
          "Sample01.cmx:2:15: \033[1;31merror:\033[0m 1 blank stands behind the value of "
          "IDTaskMode: the launcher would take it as part of the value [cmx-trailing-blank]\n"
          "    2 | IDTaskMode = 0 \n"
          "      |               \033[1;36m^\033[0m help: the value is written 0\n"
          "\033[1;33mwarning:\033[0m the call has 4 arguments [call-extra-arguments]\n"
          "    help: a call is FIRST_ARGUMENT TOKENS SOLVER\n"
          "\033[1;36mnote:\033[0m what remote machines see is not told [not-seen]\n"
          "    help: try each machine once by hand\n"
          "\n"
          "\033[1;31m1 error\033[0m, \033[1;33m1 warning\033[0m: this run would not be the one "
          "that is meant.\n");
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
  EXPECT_EQ(DiagnosticText(diagnostic, {false, 60}),
            "S.cmx:7:201: warning: a comment [cmx-comment]\n"
            "    7 | aaaaaaaaaaaaaaaaaaaaaaaaaaHEREbbbbbbbbbbbbbbbbbbbbbb\n"
            "      |                           ^~~~\n"
            "      | help: there are no comments behind values\n");
}

TEST(TextReport, ControlCharactersAreShownAsBlanks) {
  const Diagnostic diagnostic = Diagnostic("cmx-comment", "x\x1B[31m")
                                    .At({"S.cmx", {1, 3}, {1, 4}},
                                        "a\x1B"
                                        "b\tc");
  EXPECT_EQ(DiagnosticText(diagnostic, {}),
            "S.cmx:1:3: warning: x [31m [cmx-comment]\n"
            "    1 | a b\tc\n"
            "      |   ^ help: there are no comments behind values\n");
}

}  // namespace
}  // namespace qvx::runcheck

#include <algorithm>
#include <array>
#include <cstdio>

#include "runcheck/report.h"

namespace qvx::runcheck {
namespace {

constexpr std::size_t kLabelWidth = 12;

std::string Padded(const std::string& text, std::size_t width) {
  return text + std::string(text.size() < width ? width - text.size() : 0, ' ');
}

std::string RightAligned(const std::string& text, std::size_t width) {
  return std::string(text.size() < width ? width - text.size() : 0, ' ') + text;
}

std::string Number(double number) {
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), "%.4g", number);
  return text.data();
}

/// Cut to the terminal's width.
std::string Line(const std::string& text, const TextStyle& style) {
  constexpr std::string_view kCut = "...";
  if (style.width <= kCut.size() || text.size() <= style.width) return text + "\n";
  return text.substr(0, style.width - kCut.size()) + std::string(kCut) + "\n";
}

std::string Fact(const std::string& label, const std::string& text, const TextStyle& style) {
  return Line("  " + Padded(label, kLabelWidth) + "  " + text, style);
}

std::string ProcessesText(int count) {
  return std::to_string(count) + (count == 1 ? " process" : " processes");
}

std::string ModeText(const Pass& pass, std::size_t machines) {
  switch (pass.mode) {
    case ComputeMode::Smp:
      return "shared-memory, " + ProcessesText(pass.processCount);
    case ComputeMode::Dmp:
      return "distributed over " + Counted(machines, "machine") + ", " +
             ProcessesText(pass.processCount);
    default:
      return "serial";
  }
}

const Reason* Find(const Report& report, std::string_view fact) {
  const auto found = std::ranges::find(report.reasons, fact, &Reason::fact);
  return found == report.reasons.end() ? nullptr : &*found;
}

std::string ReasonText(const Reason* reason) {
  if (reason == nullptr) return "";
  if (!reason->range) return reason->because;
  return reason->range->filename + ":" + std::to_string(reason->range->start.line) + "  " +
         reason->because;
}

std::string Heading(const Report& report) {
  std::string heading = "Run " + report.runNumber + " of " + report.projectDirectory + ": " +
                        TextsOf(report.family).name;
  if (report.passes.empty()) return heading;
  if (report.passes.size() > 1) heading += " after a FLOW pass";
  return heading + ", " + ModeText(report.passes.back(), report.machines.size());
}

std::string DeletesText(const Report& report, const Pass& pass) {
  if (pass.deletes.empty()) return "";
  return Counted(pass.deletes.size(), "earlier log") + " in " + report.runFolder;
}

std::string PassText(const Report& report, const Pass& pass, bool isLast, const TextStyle& style) {
  constexpr std::size_t kFactWidth = 15;
  const auto withReason = [&](const std::string& fact, const Reason* reason) {
    const std::string because = ReasonText(reason);
    return because.empty() ? fact : Padded(fact, kFactWidth) + "  " + because;
  };
  const Reason* family = Find(report, isLast ? "family" : "flow pass");
  std::string text = Fact("family", withReason(TextsOf(pass.family).name, family), style);
  text += Fact("mode", withReason(NameOf(pass.mode), Find(report, "mode")), style);
  text += Fact("solver", pass.solverPath, style);
  text += Fact("command line", pass.commandLine, style);
  text += Fact("log", pass.log.path, style);
  const std::string deletes = DeletesText(report, pass);
  if (!deletes.empty()) text += Fact("deletes", deletes, style);
  return text + "\n";
}

std::string MachinesText(const Report& report, const TextStyle& style) {
  if (report.machines.empty()) return "";
  std::size_t width = std::string_view("machine").size();
  for (const MachineReport& machine : report.machines) width = std::max(width, machine.host.size());
  const auto row = [&](const std::string& host, const std::string& tasks,
                       const std::string& weighting, const std::string& each,
                       const std::string& name) {
    return Line("  " + Padded(host, width) + "  " + RightAligned(tasks, 5) + "  " +
                    RightAligned(weighting, 9) + "  " + RightAligned(each, 12) + "  " + name,
                style);
  };
  std::string text = row("machine", "tasks", "weighting", "each process", "name");
  for (const MachineReport& machine : report.machines) {
    text += row(machine.host, std::to_string(machine.tasks), Number(machine.weighting),
                machine.tasks > 0 ? Number(machine.weighting / machine.tasks) : "-", machine.name);
  }
  return text + "\n";
}

bool PreventsStart(const Diagnostic& diagnostic) {
  return diagnostic.severity == Severity::Error && diagnostic.row->preventsStart;
}

/// A part that a line's end cuts stays as it is.
void Colour(std::string& text, const std::string& part, const char* colour,
            const TextStyle& style) {
  const std::size_t at = part.empty() ? std::string::npos : text.find(part);
  if (at != std::string::npos) text.replace(at, part.size(), Coloured(style, colour, part));
}

std::string VerdictText(const Report& report, const TextStyle& style) {
  const std::size_t errors = CountOf(report.diagnostics, Severity::Error);
  const std::size_t warnings = CountOf(report.diagnostics, Severity::Warning);
  if (errors == 0 && warnings == 0) return "Nothing stands in the way of this run.\n";
  const std::string error = errors == 0 ? "" : Counted(errors, "error");
  const std::string warning = warnings == 0 ? "" : Counted(warnings, "warning");
  const char* verdict = errors == 0 ? "this run would start."
                        : std::ranges::any_of(report.diagnostics, PreventsStart)
                            ? "this run would not start."
                            : "this run would not be the one that is meant.";
  const std::string between = errors > 0 && warnings > 0 ? ", " : "";
  std::string text = Wrapped(error + between + warning + ": " + verdict, style.width, 0);
  Colour(text, error, kRed, style);
  Colour(text, warning, kYellow, style);
  return text + "\n";
}

}  // namespace

const char* NameOf(ComputeMode mode) {
  switch (mode) {
    case ComputeMode::Smp:
      return "shared-memory";
    case ComputeMode::Dmp:
      return "distributed";
    default:
      return "serial";
  }
}

std::string TextReport(const Report& report, const TextStyle& style) {
  std::string text;
  if (!report.call.empty()) text += Line(report.call, style) + "\n";
  if (!report.runNumber.empty()) {
    std::string heading = Line(Heading(report), style);
    heading.pop_back();
    text += Coloured(style, kBold, heading) + "\n\n";
  }
  for (const Pass& pass : report.passes) {
    text += PassText(report, pass, &pass == &report.passes.back(), style);
  }
  text += MachinesText(report, style);
  for (const Diagnostic& diagnostic : report.diagnostics) text += DiagnosticText(diagnostic, style);
  if (!report.diagnostics.empty()) text += "\n";
  return text + VerdictText(report, style);
}

int ExitStatusOf(const Report& report) {
  return CountOf(report.diagnostics, Severity::Error) > 0 ? 1 : 0;
}

}  // namespace qvx::runcheck

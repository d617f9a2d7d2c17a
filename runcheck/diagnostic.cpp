#include "runcheck/diagnostic.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <utility>

namespace qvx::runcheck {

Diagnostic::Diagnostic(Code code, std::string text)
    : severity(code.Row().mildest),
      row(&code.Row()),
      code(code.Row().code),
      summary(std::move(text)),
      consequence(code.Row().consequence),
      help(code.Row().remedy) {}

Diagnostic& Diagnostic::Grave(bool grave) & {
  if (grave) severity = row->gravest;
  return *this;
}

Diagnostic& Diagnostic::As(Severity other) & {
  assert(row->mildest <= other && other <= row->gravest);
  severity = other;
  return *this;
}

Diagnostic& Diagnostic::Because(std::string otherConsequence) & {
  consequence = std::move(otherConsequence);
  hasOwnConsequence = true;
  return *this;
}

Diagnostic& Diagnostic::Help(std::string otherHelp) & {
  help = std::move(otherHelp);
  return *this;
}

Diagnostic& Diagnostic::Suggest(std::string name, std::string otherHelp) & {
  suggestion = std::move(name);
  help = std::move(otherHelp);
  return *this;
}

Diagnostic& Diagnostic::At(Range place, std::string_view line) & {
  range = std::move(place);
  snippet = line;
  return *this;
}

std::string_view NameOf(Severity severity) {
  constexpr std::string_view kNames[] = {"note", "warning", "error"};
  return kNames[static_cast<std::size_t>(severity)];
}

std::string Counted(std::size_t count, const std::string& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::size_t CountOf(const Diagnostics& diagnostics, Severity severity) {
  return static_cast<std::size_t>(std::ranges::count(diagnostics, severity, &Diagnostic::severity));
}

void SortByPlace(Diagnostics& diagnostics) {
  const auto place = [](const Diagnostic& diagnostic) {
    constexpr std::size_t kBehind = std::numeric_limits<std::size_t>::max();
    if (!diagnostic.range) return std::pair(kBehind, kBehind);
    return std::pair(diagnostic.range->start.line, diagnostic.range->start.column);
  };
  if (!std::ranges::is_sorted(diagnostics, {}, place)) {
    std::ranges::stable_sort(diagnostics, {}, place);
  }
}

}  // namespace qvx::runcheck

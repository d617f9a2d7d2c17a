// One finding of the check: what is wrong, what the launcher would do because of it, what to do,
// and where.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "runcheck/diagnostic_codes.h"

namespace qvx::runcheck {

/// Line and column begin at 1; columns count bytes.
struct Position {
  std::size_t line;
  std::size_t column;
};

/// `end` is the first column after the range.
struct Range {
  std::string filename;
  Position start;
  Position end;
};

/// Texts are sentences: lower case at their start, no full stop. In the ANSI code page.
struct Diagnostic {
  Severity severity;
  const CodeRow* row;
  std::string_view code;
  std::string summary;
  std::string consequence;
  bool hasOwnConsequence = false;  ///< not the one that all diagnostics of the code have
  std::string help;
  std::optional<std::string> suggestion;  ///< the right name, for one that is wrong
  std::optional<Range> range;
  std::string snippet;  ///< the range's line

  Diagnostic(Code code, std::string text);

  /// Each changes what the code's row gives, and returns the diagnostic.
  Diagnostic& Grave(bool grave = true) &;  ///< takes the row's gravest severity
  Diagnostic& As(Severity other) &;        ///< one between the row's mildest and gravest
  Diagnostic& Because(std::string otherConsequence) &;
  Diagnostic& Help(std::string otherHelp) &;
  Diagnostic& Suggest(std::string name, std::string otherHelp) &;
  Diagnostic& At(Range place, std::string_view line) &;

  /// The same for one that goes on at once, without a copy.
  Diagnostic&& Grave(bool grave = true) && { return std::move(Grave(grave)); }
  Diagnostic&& As(Severity other) && { return std::move(As(other)); }
  Diagnostic&& Because(std::string text) && { return std::move(Because(std::move(text))); }
  Diagnostic&& Help(std::string text) && { return std::move(Help(std::move(text))); }
  Diagnostic&& Suggest(std::string name, std::string text) && {
    return std::move(Suggest(std::move(name), std::move(text)));
  }
  Diagnostic&& At(Range place, std::string_view line) && {
    return std::move(At(std::move(place), line));
  }
};

using Diagnostics = std::vector<Diagnostic>;

std::string_view NameOf(Severity severity);

/// "1 line", "2 lines".
std::string Counted(std::size_t count, const std::string& thing);

std::size_t CountOf(const Diagnostics& diagnostics, Severity severity);

/// Those of a file first, by their place in it; the others as they were found.
void SortByPlace(Diagnostics& diagnostics);

}  // namespace qvx::runcheck

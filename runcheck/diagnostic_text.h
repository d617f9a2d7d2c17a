// A diagnostic as a person reads it: place, severity, what is wrong, code, the line with a marker
// under the place, help.
#pragma once

#include <cstddef>
#include <string>

#include "runcheck/diagnostic.h"

namespace qvx::runcheck {

struct TextStyle {
  bool colours = false;
  std::size_t width = 0;  ///< columns of the terminal; 0 for as long as lines are
};

/// Ends in a line feed. Control characters of the snippet are shown as blanks, tabs stay.
std::string DiagnosticText(const Diagnostic& diagnostic, const TextStyle& style);

/// Breaks `text` at blanks so that no line is longer than the terminal is wide; later lines begin
/// with `indent` blanks. A width of 0 is none.
std::string Wrapped(const std::string& text, std::size_t width, std::size_t indent);

/// `text` between the escape sequences of a severity or heading; as it is without colours.
std::string Coloured(const TextStyle& style, const char* colour, const std::string& text);

constexpr const char* kBold = "1";
constexpr const char* kRed = "1;31";
constexpr const char* kYellow = "1;33";
constexpr const char* kCyan = "1;36";

const char* ColourOf(Severity severity);

}  // namespace qvx::runcheck

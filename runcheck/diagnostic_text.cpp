#include "runcheck/diagnostic_text.h"

#include <algorithm>
#include <vector>

namespace qvx::runcheck {
namespace {

constexpr std::size_t kGutter = 5;
constexpr std::size_t kLongestMarker = 60;

std::string Shown(std::string_view line) {
  std::string shown(line);
  std::ranges::replace_if(
      shown, [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; }, ' ');
  return shown;
}

/// The line cut to what the terminal shows of it around `first`, with the column where that starts.
struct Excerpt {
  std::string text;
  std::size_t start;
};

Excerpt ExcerptOf(const std::string& line, std::size_t first, std::size_t width) {
  constexpr std::size_t kUsual = 160;
  const std::size_t room = width > kGutter + 13 ? width - kGutter - 3 : kUsual;
  if (line.size() <= room) return {line, 0};
  const std::size_t start = first < room / 2 ? 0 : std::min(first - room / 2, line.size() - room);
  return {line.substr(start, room), start};
}

std::string SnippetText(const Diagnostic& diagnostic, const TextStyle& style) {
  const Range& range = *diagnostic.range;
  const std::string number = std::to_string(range.start.line);
  const std::string gutter(
      kGutter + (number.size() > kGutter - 1 ? number.size() + 1 - kGutter : 0), ' ');
  // A piece of a long line begins at a later column.
  const std::size_t offset = range.start.column - 1;
  const std::string line = Shown(diagnostic.snippet);
  const std::size_t first =
      std::min(offset % std::max<std::size_t>(line.size() + 1, 1), line.size());
  const Excerpt excerpt = ExcerptOf(line, first, style.width);
  std::string marker(excerpt.text, 0, first - excerpt.start);
  std::ranges::replace_if(
      marker, [](char c) { return c != '\t'; }, ' ');
  const std::size_t length =
      std::clamp<std::size_t>(range.end.column - range.start.column, 1, kLongestMarker);
  const std::size_t room = std::max<std::size_t>(excerpt.text.size() - marker.size(), 1);
  const std::string sign = "^" + std::string(std::min(length, room) - 1, '~');
  const std::string help = Wrapped("help: " + diagnostic.help, 0, 0);
  std::string text = std::string(gutter.size() - number.size(), ' ') + number + " | " +
                     excerpt.text + "\n" + gutter + " | " + marker + Coloured(style, kCyan, sign);
  const std::size_t column = gutter.size() + 3 + marker.size() + sign.size();
  if (style.width > 0 && column + 1 + help.size() > style.width) {
    text += "\n" + gutter + " | " + Wrapped(help, style.width, gutter.size() + 3);
  } else {
    text += " " + help;
  }
  return text + "\n";
}

}  // namespace

const char* ColourOf(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return kRed;
    case Severity::Warning:
      return kYellow;
    case Severity::Note:
    default:
      return kCyan;
  }
}

std::string Wrapped(const std::string& text, std::size_t width, std::size_t indent) {
  std::string wrapped;
  std::size_t column = 0;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(' ', start), text.size());
    const std::size_t length = end - start;
    if (width > 0 && column > indent && column + 1 + length > width) {
      wrapped += "\n" + std::string(indent, ' ');
      column = indent;
    } else if (start > 0) {
      wrapped += ' ';
      ++column;
    }
    wrapped.append(text, start, length);
    column += length;
    start = end + 1;
  }
  return wrapped;
}

std::string Coloured(const TextStyle& style, const char* colour, const std::string& text) {
  return style.colours ? std::string("\x1B[") + colour + "m" + text + "\x1B[0m" : text;
}

std::string DiagnosticText(const Diagnostic& diagnostic, const TextStyle& style) {
  const std::string severity = std::string(NameOf(diagnostic.severity)) + ":";
  std::string place;
  if (diagnostic.range) {
    const Range& range = *diagnostic.range;
    place = range.filename + ":" + std::to_string(range.start.line) + ":" +
            std::to_string(range.start.column) + ": ";
  }
  std::string heading = place + severity + " " + Shown(diagnostic.summary);
  // What follows stands after what is wrong where it stops or spoils the run, or where it is not
  // what follows from every diagnostic of the code.
  const bool isSaid = diagnostic.severity == Severity::Error ||
                      (diagnostic.severity == Severity::Warning && diagnostic.hasOwnConsequence);
  if (isSaid) heading += ": " + diagnostic.consequence;
  heading += " [" + std::string(diagnostic.code) + "]";
  heading = Wrapped(heading, style.width, 4);
  const std::size_t at = heading.find(severity);
  if (at != std::string::npos) {
    heading.replace(at, severity.size(), Coloured(style, ColourOf(diagnostic.severity), severity));
  }
  if (diagnostic.range) return heading + "\n" + SnippetText(diagnostic, style);
  return heading + "\n" + Wrapped("    help: " + diagnostic.help, style.width, 10) + "\n";
}

}  // namespace qvx::runcheck

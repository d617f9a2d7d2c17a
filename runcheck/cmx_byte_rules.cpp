#include <algorithm>
#include <string>

#include "runcheck/cmx_rules.h"

namespace qvx::runcheck {
namespace {

bool OpensASection(const CmxFacts& facts, std::string_view text) {
  return std::ranges::any_of(facts.Readings(), [&](const SectionReading& reading) {
    return IsOpeningTag(*reading.section, text);
  });
}

bool IsInASection(const CmxFacts& facts, const CmxLine& line) {
  return std::ranges::any_of(facts.Readings(), [&](const SectionReading& reading) {
    return std::ranges::any_of(reading.settings,
                               [&](const SettingLine& setting) { return setting.line == &line; });
  });
}

/// "UTF-32" or "UTF-16"; empty for neither.
std::string_view WideEncoding(std::string_view bytes) {
  if (bytes.starts_with(std::string_view("\xFF\xFE\0\0", 4)) ||
      bytes.starts_with(std::string_view("\0\0\xFE\xFF", 4))) {
    return "UTF-32";
  }
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return "UTF-16";
  // Without a mark: every second byte of the first tag is zero.
  constexpr std::size_t kLooked = 16;
  if (bytes.size() < kLooked) return "";
  const auto zeros = [&](std::size_t first) {
    for (std::size_t i = first; i < kLooked; i += 2) {
      if (bytes[i] != '\0' || bytes[i ^ 1U] == '\0') return false;
    }
    return true;
  };
  return zeros(0) || zeros(1) ? "UTF-16" : "";
}

bool HasLoneCarriageReturns(std::string_view bytes) {
  return bytes.find('\n') == std::string_view::npos && bytes.find('\r') != std::string_view::npos;
}

/// LF CR for CR LF, throughout the file.
bool HasReversedLineEnds(std::string_view bytes) {
  bool has = false;
  for (std::size_t at = bytes.find('\n'); at != std::string_view::npos;
       at = bytes.find('\n', at + 1)) {
    if (at > 0 && bytes[at - 1] == '\r') return false;
    if (at + 1 < bytes.size() && bytes[at + 1] != '\r') return false;
    has = has || at + 1 < bytes.size();
  }
  return has;
}

void CheckByteOrderMark(const CmxFacts& facts, Diagnostics& found) {
  if (!facts.File().bytes.starts_with(kByteOrderMark)) return;
  const CmxLine& line = facts.Lines().front();
  const std::string_view rest = line.text.substr(std::min(line.text.size(), kByteOrderMark.size()));
  const bool hidesATag = OpensASection(facts, rest);
  found.push_back(Diagnostic("cmx-byte-order-mark",
                             "the file begins with a byte-order mark (EF BB BF)" +
                                 (hidesATag ? ", which hides " + std::string(rest) : std::string()))
                      .Grave(hidesATag)
                      .At(RangeIn(facts.File(), line, 1, 1 + kByteOrderMark.size()), line.whole));
}

void CheckZeroBytes(const CmxFacts& facts, Diagnostics& found) {
  if (facts.File().bytes.find('\0') == std::string::npos) return;
  for (const CmxLine& line : facts.Lines()) {
    const std::size_t at = line.whole.find('\0');
    if (at == std::string_view::npos) continue;
    Diagnostic diagnostic("cmx-zero-byte", "the line holds a zero byte");
    const bool losesText =
        line.whole.find_first_not_of(std::string_view("\0 \t\r", 4), at) != std::string_view::npos;
    const bool isInside = IsInASection(facts, line);
    if ((isInside && losesText) || OpensASection(facts, line.whole.substr(at + 1))) {
      diagnostic.Grave();
    } else if (isInside) {
      diagnostic.As(kWarning);
    }
    const std::size_t column = line.column + at;
    found.push_back(diagnostic.At(RangeIn(facts.File(), line, column, column + 1), line.whole));
    return;
  }
}

/// Old editors end a file with it; only what stands behind it is lost.
void CheckControlZ(const CmxFacts& facts, Diagnostics& found) {
  const std::string& bytes = facts.File().bytes;
  const std::size_t at = bytes.find(kControlZ);
  if (at == std::string::npos) return;
  const std::string_view rest = std::string_view(bytes).substr(at);
  if (rest.find_first_not_of(std::string_view("\x1A\0\r\n\t ", 6)) == std::string_view::npos)
    return;
  const bool losesASection = std::ranges::any_of(facts.Readings(), [&](const auto& reading) {
    return reading.isOpen || rest.find(OpeningTag(*reading.section)) != std::string_view::npos;
  });
  const auto number = static_cast<std::size_t>(
      std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
  const std::size_t lineStart = at == 0 ? 0 : bytes.rfind('\n', at - 1) + 1;
  const std::size_t lineEnd = std::min(bytes.find('\n', at), bytes.size());
  const std::size_t column = at - lineStart + 1;
  found.push_back(Diagnostic("cmx-control-z", "a Ctrl-Z (1A) stands before the end of the file")
                      .Grave(losesASection)
                      .At({facts.File().filename, {number + 1, column}, {number + 1, column + 1}},
                          std::string_view(bytes).substr(lineStart, lineEnd - lineStart)));
}

void CheckLineEnds(const CmxFacts& facts, Diagnostics& found) {
  if (HasLoneCarriageReturns(facts.File().bytes)) {
    found.push_back(Diagnostic("cmx-line-ends", "the lines end in lone carriage returns")
                        .Because("the launcher would take the whole file as one line"));
    return;
  }
  if (HasReversedLineEnds(facts.File().bytes)) {
    found.push_back(
        Diagnostic("cmx-line-ends", "the lines end in a line feed before a carriage return"));
    return;
  }
  for (const CmxLine& line : facts.Lines()) {
    if (!line.text.ends_with('\r')) continue;
    if (!IsInASection(facts, line) &&
        !OpensASection(facts, line.text.substr(0, line.text.find('\r')))) {
      continue;
    }
    const std::size_t column = line.column + line.text.find_last_not_of('\r') + 1;
    found.push_back(
        Diagnostic("cmx-line-ends", "the line ends in more than one carriage return")
            .At(RangeIn(facts.File(), line, column, line.column + line.text.size()), line.whole));
    return;
  }
}

void CheckLongLines(const CmxFacts& facts, Diagnostics& found) {
  std::size_t reported = 0;
  for (const CmxLine& line : facts.Lines()) {
    if (line.column == 1 || line.number == reported || !IsInASection(facts, line)) continue;
    reported = line.number;
    found.push_back(Diagnostic("cmx-long-line", "the line has more than 1023 bytes")
                        .At(RangeIn(facts.File(), line, line.column, line.column + 1), line.whole));
  }
}

}  // namespace

bool HasLines(std::string_view bytes) {
  return WideEncoding(bytes).empty() && !HasLoneCarriageReturns(bytes) &&
         !HasReversedLineEnds(bytes);
}

void CheckBytes(const CmxFacts& facts, Diagnostics& found) {
  if (const std::string_view encoding = WideEncoding(facts.File().bytes); !encoding.empty()) {
    found.push_back(Diagnostic("cmx-utf-16", "the file is " + std::string(encoding)));
    return;
  }
  CheckByteOrderMark(facts, found);
  CheckZeroBytes(facts, found);
  CheckControlZ(facts, found);
  CheckLineEnds(facts, found);
  CheckLongLines(facts, found);
}

}  // namespace qvx::runcheck

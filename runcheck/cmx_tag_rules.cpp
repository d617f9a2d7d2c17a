#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "runcheck/cmx_rules.h"
#include "runcheck/similar_name.h"

namespace qvx::runcheck {
namespace {

constexpr std::size_t kLongestTag = 64;

/// A line that was meant to be a tag.
struct NearTag {
  const SectionReading* reading;
  bool closes;
  bool isMisspelt;  ///< by letters, not only by their case or by blanks
  std::string_view written;
};

bool IsExactTag(const CmxSection& section, std::string_view text) {
  return IsOpeningTag(section, text) || IsClosingTag(section, text);
}

/// A tag with more in it or behind it: `<TASKMANAGER version="1">`, "<TASKMANAGER>Version = 1.0".
std::optional<NearTag> CrowdedTagOf(const CmxFacts& facts, std::string_view written) {
  if (!written.starts_with('<')) return std::nullopt;
  const std::size_t start = written.find_first_not_of("</\\ \t");
  if (start == std::string_view::npos) return std::nullopt;
  const std::size_t end = std::min(written.find_first_of(" \t/>", start), written.size());
  const bool isAlone = written.find_first_not_of(" \t/\\>", end) == std::string_view::npos;
  if (isAlone) return std::nullopt;
  const std::string_view name = written.substr(start, end - start);
  for (const SectionReading& reading : facts.Readings()) {
    if (!IsSameInAnyCase(name, reading.section->name)) continue;
    return NearTag{&reading,
                   written.substr(0, start).find_first_of("/\\") != std::string_view::npos, false,
                   written.substr(0, kLongestTag)};
  }
  return std::nullopt;
}

std::optional<NearTag> NearTagOf(const CmxFacts& facts, const CmxLine& line) {
  const bool isSetting = line.text.find('=') != std::string_view::npos;
  if (isSetting && line.text.find('<') == std::string_view::npos) return std::nullopt;
  for (const SectionReading& reading : facts.Readings()) {
    if (IsExactTag(*reading.section, line.text)) return std::nullopt;
  }
  const std::string_view written = TrimmedOfInvisible(line.text);
  if (const std::optional<NearTag> tag = CrowdedTagOf(facts, written)) return tag;
  if (isSetting || written.size() > kLongestTag || written.empty()) return std::nullopt;
  std::string name(written);
  const std::size_t slash = name.find_first_of("/\\");
  const bool isSlashFirst = slash < name.find_first_not_of("<[({/\\ \t");
  const bool isMarked = name.find_first_of("<>[]") != std::string::npos;
  std::erase_if(name, [](char c) {
    constexpr std::string_view kMarks = "<>[](){}/\\ \t:;.";
    return std::ranges::find(kMarks, c) != kMarks.end();
  });
  for (const SectionReading& reading : facts.Readings()) {
    const std::string_view right = reading.section->name;
    const bool isSame = IsSameInAnyCase(name, right);
    if (isSame || (isMarked && IsSimilar(name, right))) {
      // A slash at its end closes what is open, and opens otherwise.
      const bool closes = isSlashFirst || (slash != std::string::npos && !reading.openings.empty());
      return NearTag{&reading, closes, !isSame, written};
    }
  }
  return std::nullopt;
}

/// Misspelt letters make another section's tag, unless this section's own is missing.
bool IsMeant(const NearTag& tag) {
  // Where no section is open, the opening tag is what is wrong.
  if (tag.closes && tag.reading->openings.empty()) return false;
  if (!tag.isMisspelt) return true;
  return tag.closes ? tag.reading->isOpen : tag.reading->openings.empty();
}

bool IsNeeded(const CmxFacts& facts, const CmxSection& section) {
  return &section != &kMultiShotSection && facts.Matters(section);
}

Diagnostic NearTagDiagnostic(const CmxFacts& facts, const NearTag& tag, const CmxLine& line) {
  const CmxSection& section = *tag.reading->section;
  const std::string right = tag.closes ? ClosingTag(section) : OpeningTag(section);
  const std::string summary =
      tag.written == right ? WithArticle(NameOfInvisible(line.text)) + " stands beside " + right
                           : std::string(tag.written) + " is not the tag " + right;
  Diagnostic diagnostic("cmx-tag", summary);
  diagnostic.Suggest(right, "the tag is written " + right + ", alone on its line");
  if (tag.closes) {
    diagnostic.Because("the launcher would read on to the end of the file");
  } else if (tag.reading->openings.empty() && IsNeeded(facts, section)) {
    diagnostic.Grave().Because(&section == &kTaskManagerSection
                                   ? "the launcher would see no such section and run distributed"
                                   : "the launcher would see no such section");
  }
  return std::move(diagnostic).At(LineRange(facts.File(), line), line.whole);
}

void CheckReading(const CmxFacts& facts, const SectionReading& reading, bool closingIsNear,
                  Diagnostics& found) {
  const std::string name(reading.section->name);
  if (reading.openings.size() > 1) {
    const CmxLine& second = *reading.openings[1];
    Diagnostic diagnostic("cmx-section-twice", name + " is opened twice");
    const std::string closing = ClosingTag(*reading.section);
    if (reading.isOpen) diagnostic.Suggest(closing, "the closing tag is written " + closing);
    found.push_back(std::move(diagnostic).At(LineRange(facts.File(), second), second.whole));
  } else if (reading.isOpen && !closingIsNear) {
    const CmxLine& opening = *reading.openings.back();
    const std::string closing = ClosingTag(*reading.section);
    found.push_back(Diagnostic("cmx-section-open", name + " is never closed")
                        .Suggest(closing, "the section ends with " + closing)
                        .At(LineRange(facts.File(), opening), opening.whole));
  }
}

void CheckMissing(const CmxFacts& facts, const SectionReading& reading, Diagnostics& found) {
  const CmxSection& section = *reading.section;
  if (!reading.openings.empty() || facts.Lines().empty()) return;
  Diagnostic diagnostic("cmx-section-missing",
                        facts.File().filename + " holds no " + OpeningTag(section));
  if (&section == &kTaskManagerSection) {
    found.push_back(std::move(diagnostic).Grave().Because("the run would be distributed"));
  } else if (&section == &kRemoteMachinesSection && facts.IsMeantDistributed()) {
    found.push_back(
        std::move(diagnostic).Grave().Because("the run would be distributed over no machine"));
  }
}

/// The first of two closing tags that stand alone: the opening tag with a slash too many.
const CmxLine* ClosingForOpening(const CmxFacts& facts, const SectionReading& reading) {
  if (!reading.openings.empty() || !IsNeeded(facts, *reading.section)) return nullptr;
  const CmxLine* first = nullptr;
  for (const CmxLine& line : facts.Lines()) {
    if (!IsClosingTag(*reading.section, line.text)) continue;
    if (first != nullptr) return first;
    first = &line;
  }
  return nullptr;
}

}  // namespace

bool IsTagLike(const CmxFacts& facts, const CmxLine& line) {
  const bool isTag = std::ranges::any_of(
      kSections, [&](const CmxSection* section) { return IsExactTag(*section, line.text); });
  const std::optional<NearTag> tag = NearTagOf(facts, line);
  return isTag || (tag && IsMeant(*tag));
}

void CheckTags(const CmxFacts& facts, Diagnostics& found) {
  std::vector<NearTag> near;
  for (const CmxLine& line : facts.Lines()) {
    const std::optional<NearTag> tag = NearTagOf(facts, line);
    if (!tag || !IsMeant(*tag)) continue;
    near.push_back(*tag);
    // Bytes around a tag have codes of their own.
    const bool hasMark = line.number == 1 && facts.File().bytes.starts_with("\xEF\xBB\xBF");
    if (hasMark || line.text.ends_with('\r')) continue;
    found.push_back(NearTagDiagnostic(facts, *tag, line));
  }
  const auto isNear = [&](const SectionReading& reading, bool closes) {
    return std::ranges::any_of(
        near, [&](const NearTag& tag) { return tag.reading == &reading && tag.closes == closes; });
  };
  for (const SectionReading& reading : facts.Readings()) {
    CheckReading(facts, reading, isNear(reading, true), found);
    if (isNear(reading, false)) continue;
    if (const CmxLine* line = ClosingForOpening(facts, reading)) {
      found.push_back(NearTagDiagnostic(facts, {&reading, false, false, line->text}, *line));
    } else {
      CheckMissing(facts, reading, found);
    }
  }
}

}  // namespace qvx::runcheck

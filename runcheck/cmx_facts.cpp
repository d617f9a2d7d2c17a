#include "runcheck/cmx_facts.h"

#include <algorithm>
#include <array>
#include <utility>

#include "runcheck/similar_name.h"
#include "support/numbers.h"
#include "support/trailing_backslash.h"

namespace qvx::runcheck {
namespace {

// Separators, and the no-break space of the Windows code pages.
constexpr std::string_view kInvisible = " \t\r\v\f\xA0";
// Of UTF-8. Where its first byte leads a letter, the no-break space may be one.
constexpr std::string_view kZeroWidthSpace = "\xE2\x80\x8B";
constexpr std::string_view kNoBreakSpace = "\xC2\xA0";

/// The bytes of the character that `text` begins with.
std::size_t CharacterSize(std::string_view text) {
  if (static_cast<unsigned char>(text.front()) < 0x80) return 1;  // nearly always
  for (const std::string_view character : {kByteOrderMark, kZeroWidthSpace}) {
    if (text.starts_with(character)) return character.size();
  }
  if (text.size() > 1 && IsLeadByte(text.front())) return 2;
  return text.starts_with(kNoBreakSpace) ? kNoBreakSpace.size() : 1;
}

bool IsInvisible(std::string_view character) {
  if (character.size() == 1) {
    return std::ranges::find(kInvisible, character.front()) != kInvisible.end();
  }
  return character == kByteOrderMark || character == kZeroWidthSpace ||
         (character == kNoBreakSpace && !IsLeadByte(character.front()));
}

/// Calls `visit` with the place and the size of every character that can be seen, or of every
/// other.
template <typename Visitor>
void ForEachCharacter(std::string_view text, bool visible, Visitor&& visit) {
  // Only from the start on can the halves of letters be told from whole ones.
  for (std::size_t at = 0, size = 0; at < text.size(); at += size) {
    size = CharacterSize(text.substr(at));
    if (IsInvisible(text.substr(at, size)) != visible) visit(at, size);
  }
}

bool IsRead(const CmxSection& section, SolverClass solverClass) {
  if (AlwaysRunsSerially(solverClass)) return false;
  if (&section == &kSolidCoolSection) return solverClass == SolverClass::Cool;
  if (&section == &kMultiShotSection) {
    return solverClass == SolverClass::Cool || solverClass == SolverClass::Warp;
  }
  return true;
}

}  // namespace

CmxFacts::CmxFacts(CmxFile file, SolverClass solverClass)
    : file_(std::move(file)), lines_(LinesOf(file_.bytes)), solverClass_(solverClass) {
  for (const CmxSection* section : kSections) {
    if (IsRead(*section, solverClass)) readings_.push_back(ReadLines(lines_, *section));
  }
  if (const SectionReading* tasks = Reading(kTaskManagerSection)) {
    const std::string_view mode = tasks->ValueOf("IDTaskMode");
    isDistributed_ = mode != "0";
    localIsMeant_ = MeansLocal(mode) || IsOverwritten(*tasks);
  }
}

bool CmxFacts::IsOverwritten(const SectionReading& tasks) const {
  return Reading(kRemoteMachinesSection)->openings.empty() &&
         std::ranges::any_of(tasks.settings, [](const SettingLine& setting) {
           return setting.key == "IDTaskMode" && setting.value == "0";
         });
}

const SectionReading* CmxFacts::Reading(const CmxSection& section) const {
  const auto found = std::ranges::find(readings_, &section, &SectionReading::section);
  return found == readings_.end() ? nullptr : &*found;
}

bool CmxFacts::IsSharedMemory() const {
  const SectionReading* tasks = Reading(kTaskManagerSection);
  return tasks != nullptr && !isDistributed_ && tasks->ValueOf("ValueLocalNoTask") != "1";
}

bool CmxFacts::Matters(const CmxSection& section) const {
  return &section == &kRemoteMachinesSection ? IsMeantDistributed() : Reading(section) != nullptr;
}

std::string_view TrimmedOfInvisible(std::string_view text) {
  std::size_t first = text.size();
  std::size_t end = text.size();
  ForEachCharacter(text, true, [&](std::size_t at, std::size_t size) {
    first = std::min(first, at);
    end = at + size;
  });
  return text.substr(first, end - first);
}

std::string WithoutInvisible(std::string_view text) {
  std::string visible;
  ForEachCharacter(text, true,
                   [&](std::size_t at, std::size_t size) { visible += text.substr(at, size); });
  return visible;
}

std::size_t CountOfInvisible(std::string_view text) {
  std::size_t count = 0;
  ForEachCharacter(text, false, [&](std::size_t, std::size_t) { ++count; });
  return count;
}

std::string NameOfInvisible(std::string_view text) {
  std::string invisible;
  ForEachCharacter(text, false,
                   [&](std::size_t at, std::size_t size) { invisible += text.substr(at, size); });
  if (invisible.find_first_not_of(' ') == std::string::npos) return "blank";
  return invisible.find_first_not_of(" \t") == std::string::npos ? "tab" : "invisible character";
}

std::string WithArticle(const std::string& thing) {
  return (thing.starts_with('i') ? "an " : "a ") + thing;
}

std::string Cleaned(std::string_view value) {
  value = TrimmedOfInvisible(value);
  while (!value.empty() && (value.front() == '=' || value.front() == ':')) {
    value = TrimmedOfInvisible(value.substr(1));
  }
  for (const std::string_view opening : {"<!--", ";", "#", "//", "!", "(", "/*", "--"}) {
    const std::size_t at = value.find(opening, 1);
    if (at != std::string_view::npos) value = TrimmedOfInvisible(value.substr(0, at));
  }
  for (const char mark : {'"', '\''}) {
    if (value.size() > 1 && value.front() == mark && value.back() == mark) {
      value = TrimmedOfInvisible(value.substr(1, value.size() - 2));
    }
  }
  return std::string(value);
}

bool MeansLocal(std::string_view taskMode) {
  const std::string mode = AsciiLower(Cleaned(taskMode));
  constexpr std::array<std::string_view, 12> kLocalWords = {
      "",      "null",   "o",    "no",  "off",           "false",
      "local", "serial", "none", "smp", "shared-memory", "localhost"};
  if (std::ranges::find(kLocalWords, mode) != kLocalWords.end()) return true;
  // "00", "0.0", "0 local", "0/1"
  if (mode.starts_with('0') && ParseInteger(mode.c_str()) == 0) return true;
  // "+0", "{0}", and a no-break space of UTF-8 before it
  return mode.find('0') != std::string::npos &&
         mode.find_first_not_of("0.,+-{}[]\xC2\xA0") == std::string::npos;
}

bool IsPlainNumber(std::string_view text) {
  return !text.empty() && text.size() <= 10 &&
         text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace qvx::runcheck

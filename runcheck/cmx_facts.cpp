#include "runcheck/cmx_facts.h"

#include <algorithm>
#include <array>
#include <utility>

#include "runcheck/similar_name.h"
#include "support/numbers.h"

namespace qvx::runcheck {
namespace {

// No-break space in the Latin code pages, byte-order mark, separators.
bool IsInvisible(char c) {
  constexpr std::string_view kInvisible = " \t\r\v\f\xA0\xEF\xBB\xBF";
  return std::ranges::find(kInvisible, c) != kInvisible.end();
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
    localIsMeant_ = MeansLocal(mode);
  }
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
  while (!text.empty() && IsInvisible(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsInvisible(text.back())) text.remove_suffix(1);
  return text;
}

std::string NameOfInvisible(std::string_view text) {
  std::string invisible(text);
  std::erase_if(invisible, [](char c) { return !IsInvisible(c); });
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
  for (const std::string_view opening : {";", "#", "//", "!", "(", "/*", "--"}) {
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
  // "00", "0.0", "+0", "0,0", "0x0"
  return mode.find('0') != std::string::npos &&
         mode.find_first_not_of("0.,+-x") == std::string::npos;
}

bool IsPlainNumber(std::string_view text) {
  return !text.empty() && text.size() <= 10 &&
         text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace qvx::runcheck

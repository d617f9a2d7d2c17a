// What the rules know of a run's CMX file: its lines, what each reader takes of them, and whether a
// local run is meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "launcher/solver_class.h"
#include "runcheck/cmx_lines.h"

namespace qvx::runcheck {

class CmxFacts {
 public:
  CmxFacts(CmxFile file, SolverClass solverClass);
  CmxFacts(const CmxFacts&) = delete;
  CmxFacts& operator=(const CmxFacts&) = delete;

  [[nodiscard]] const CmxFile& File() const { return file_; }
  [[nodiscard]] const std::vector<CmxLine>& Lines() const { return lines_.lines; }
  [[nodiscard]] SolverClass Family() const { return solverClass_; }

  /// Of the sections that are read for the solver class alone, in the order of their reading.
  [[nodiscard]] const std::vector<SectionReading>& Readings() const { return readings_; }
  /// Null for a section that is not read.
  [[nodiscard]] const SectionReading* Reading(const CmxSection& section) const;

  /// As the launcher decides.
  [[nodiscard]] bool IsDistributed() const { return isDistributed_; }
  /// Several machines are asked for, and not by a slip.
  [[nodiscard]] bool IsMeantDistributed() const { return isDistributed_ && !localIsMeant_; }
  [[nodiscard]] bool IsSharedMemory() const;

  /// True when what the section says has an effect on the run.
  [[nodiscard]] bool Matters(const CmxSection& section) const;

 private:
  /// A later value hides a local mode, and no machines are given.
  [[nodiscard]] bool IsOverwritten(const SectionReading& tasks) const;

  CmxFile file_;
  CmxLines lines_;
  SolverClass solverClass_;
  std::vector<SectionReading> readings_;
  bool isDistributed_ = false;
  bool localIsMeant_ = false;
};

/// True for what a person who wants a local run may write as `IDTaskMode`.
bool MeansLocal(std::string_view taskMode);

/// `value` without what often stands around it by mistake: blanks, quotation marks, a comment.
std::string Cleaned(std::string_view value);

/// Tabs, no-break spaces, carriage returns, byte-order marks and what else looks like nothing;
/// spaces too.
std::string_view TrimmedOfInvisible(std::string_view text);
std::string WithoutInvisible(std::string_view text);

/// The invisible characters in `text`.
std::size_t CountOfInvisible(std::string_view text);

/// What is invisible in `text`: "blank", "tab" or "invisible character"; blanks beside tabs do not
/// count.
std::string NameOfInvisible(std::string_view text);

/// "a tab", "an invisible character"
std::string WithArticle(const std::string& thing);

/// Digits alone, at most ten.
bool IsPlainNumber(std::string_view text);

}  // namespace qvx::runcheck

// The CMX file's lines with their places, cut and read as the launcher's readers cut and read them:
// what the rules look at. (Those readers give no places, and end at the first text that is too
// long.) Views into the file's bytes, which have to outlive them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <forward_list>
#include <string>
#include <string_view>
#include <vector>

#include "runcheck/cmx_keys.h"
#include "runcheck/diagnostic.h"

namespace qvx::runcheck {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr char kControlZ = 0x1A;  ///< where the readers, in text mode, end

/// A line, or a piece of one that is too long for the readers.
struct CmxLine {
  std::size_t number;
  std::size_t column;     ///< of its first byte
  std::string_view text;  ///< as far as the readers see it: up to a zero byte
  std::string_view whole;
};

struct CmxLines {
  std::vector<CmxLine> lines;
  bool repeatsLast = false;  ///< the readers handle the last line twice
};

CmxLines LinesOf(std::string_view bytes);

enum class LineRole { Setting, Machine, Weighting };

/// A line inside a section, split like the readers split it.
struct SettingLine {
  const CmxLine* line;
  const CmxKey* known;  ///< of the section's keys; null for any other text
  LineRole role;
  std::size_t entry;        ///< of a machine or weighting line, from 0
  bool isStored;            ///< false for an entry past the list
  std::string_view key;     ///< without spaces
  std::string_view rawKey;  ///< with them
  std::string_view value;   ///< without leading spaces; "NULL" without "="
  std::size_t rawValueLength;
  bool hasEquals;
  std::size_t keyColumn;
  std::size_t keyEnd;
  std::size_t valueColumn;
  std::size_t valueEnd;
};

/// One section as its reader goes through it, tag lines included among the settings.
struct SectionReading {
  const CmxSection* section;
  std::vector<const CmxLine*> openings;
  bool isOpen = false;  ///< at the end of the file
  std::vector<SettingLine> settings;
  std::forward_list<std::string> joinedKeys;            ///< those that spaces had cut
  std::array<const SettingLine*, kMostKeys> last = {};  ///< the lines that count, by key

  /// The last line that sets `key`, one of the section's; null when none does.
  [[nodiscard]] const SettingLine* Find(const CmxKey& key) const;
  [[nodiscard]] const SettingLine* Find(std::string_view key) const;
  /// The value that the launcher then has; empty when no line sets it.
  [[nodiscard]] std::string_view ValueOf(std::string_view key) const;
  /// The machine with the most tasks; null without machines.
  [[nodiscard]] const SettingLine* MostTasks() const;
};

SectionReading ReadLines(const CmxLines& lines, const CmxSection& section);

std::string OpeningTag(const CmxSection& section);
std::string ClosingTag(const CmxSection& section);
bool IsOpeningTag(const CmxSection& section, std::string_view text);
bool IsClosingTag(const CmxSection& section, std::string_view text);

/// `name` without spaces around it; nothing else counts as one.
std::string_view Trimmed(std::string_view text);

/// As the launcher reads the value of a setting.
std::int32_t IntegerOf(std::string_view value);

/// What the rules share about the file.
struct CmxFile {
  std::string filename;  ///< its name alone
  std::string bytes;
};

Range RangeIn(const CmxFile& file, const CmxLine& line, std::size_t start, std::size_t end);
Range KeyRange(const CmxFile& file, const SettingLine& setting);
Range ValueRange(const CmxFile& file, const SettingLine& setting);
Range LineRange(const CmxFile& file, const CmxLine& line);

}  // namespace qvx::runcheck

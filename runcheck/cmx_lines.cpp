#include "runcheck/cmx_lines.h"

#include <algorithm>
#include <cstdint>

#include "support/numbers.h"

namespace qvx::runcheck {
namespace {

/// The most that the readers take at once.
constexpr std::size_t kLongestPiece = 1023;

/// `line`: without its line end. `ended`: a line feed follows, which counts as a byte of the line.
void AddPieces(CmxLines& lines, std::size_t number, std::string_view line, bool ended) {
  std::size_t start = 0;
  do {
    const std::string_view piece = line.substr(start, kLongestPiece);
    lines.lines.push_back({number, start + 1, piece.substr(0, piece.find('\0')), piece});
    start += piece.size();
    if (piece.size() < kLongestPiece) return;
  } while (start < line.size() || ended);
}

SettingLine Split(const CmxLine& line) {
  SettingLine setting = {};
  setting.line = &line;
  const std::string_view text = line.text;
  const std::size_t equals = text.find('=');
  setting.hasEquals = equals != std::string_view::npos;
  const std::size_t keyLength = std::min(equals, text.size());
  setting.rawKey = text.substr(0, keyLength);
  setting.key = Trimmed(setting.rawKey);
  const std::size_t leading = std::min(setting.rawKey.find_first_not_of(' '), keyLength);
  setting.keyColumn = line.column + leading;
  setting.keyEnd = setting.keyColumn + setting.key.size();
  setting.valueEnd = line.column + text.size();
  setting.valueColumn = setting.valueEnd;
  setting.value = "NULL";
  if (setting.hasEquals) {
    const std::string_view value = text.substr(equals + 1);
    const std::size_t blanks = std::min(value.find_first_not_of(' '), value.size());
    setting.rawValueLength = value.size();
    setting.value = value.substr(blanks);
    setting.valueColumn = line.column + equals + 1 + blanks;
  }
  return setting;
}

/// The blocks of REMOTE_MACHINES: which lines they take.
class Blocks {
 public:
  void Place(SettingLine& setting) {
    for (Block* block : {&machines_, &weightings_}) {
      if (!block->isOpen) continue;
      setting.role = block->role;
      setting.entry = block->lines++;
      setting.isStored = static_cast<std::int64_t>(setting.entry) < listed_;
      if (static_cast<std::int64_t>(block->lines) == count_) block->isOpen = false;
      return;
    }
    if (setting.known == nullptr) return;
    if (setting.key == "ValueNoMachine") {
      count_ = IntegerOf(setting.value);
      listed_ = std::max<std::int64_t>(count_, 0);
    }
    if (setting.key == "ValueMachineSetting") machines_.isOpen = true;
    if (setting.key == "ValueMachineWeighting") weightings_.isOpen = true;
  }

 private:
  struct Block {
    LineRole role;
    bool isOpen = false;
    std::size_t lines = 0;
  };
  Block machines_ = {LineRole::Machine};
  Block weightings_ = {LineRole::Weighting};
  std::int64_t count_ = 0;
  std::int64_t listed_ = 0;
};

}  // namespace

CmxLines LinesOf(std::string_view bytes) {
  bytes = bytes.substr(0, bytes.find(kControlZ));
  CmxLines lines;
  std::size_t number = 1;
  for (std::size_t start = 0; start < bytes.size(); ++number) {
    const std::size_t feed = bytes.find('\n', start);
    const bool ended = feed != std::string_view::npos;
    std::string_view line = bytes.substr(start, ended ? feed - start : feed);
    start = ended ? feed + 1 : bytes.size();
    if (ended && line.ends_with('\r')) line.remove_suffix(1);
    AddPieces(lines, number, line, ended);
    // Without a line feed at the end, a read that fills the buffer has not seen the end yet.
    lines.repeatsLast = ended || line.size() % kLongestPiece == 0;
  }
  return lines;
}

std::string OpeningTag(const CmxSection& section) { return "<" + std::string(section.name) + ">"; }
std::string ClosingTag(const CmxSection& section) { return "</" + std::string(section.name) + ">"; }

bool IsOpeningTag(const CmxSection& section, std::string_view text) {
  return text.size() == section.name.size() + 2 && text.starts_with('<') && text.ends_with('>') &&
         text.substr(1).starts_with(section.name);
}

bool IsClosingTag(const CmxSection& section, std::string_view text) {
  return text.size() == section.name.size() + 3 && text.starts_with("</") && text.ends_with('>') &&
         text.substr(2).starts_with(section.name);
}

SectionReading ReadLines(const CmxLines& lines, const CmxSection& section) {
  SectionReading reading = {};
  reading.section = &section;
  Blocks blocks;
  const auto read = [&](const CmxLine& line) {
    if (IsOpeningTag(section, line.text)) {
      reading.isOpen = true;
      reading.openings.push_back(&line);
    }
    if (!reading.isOpen) return;
    SettingLine& setting = reading.settings.emplace_back(Split(line));
    if (setting.key.find(' ') != std::string_view::npos) {
      std::string& key = reading.joinedKeys.emplace_front(setting.key);
      std::erase(key, ' ');
      setting.key = key;
    }
    setting.known = FindKey(section, setting.key);
    if (&section == &kRemoteMachinesSection) blocks.Place(setting);
    if (IsClosingTag(section, line.text)) reading.isOpen = false;
  };
  for (const CmxLine& line : lines.lines) read(line);
  if (lines.repeatsLast && reading.isOpen) read(lines.lines.back());
  for (const SettingLine& setting : reading.settings) {
    if (setting.known == nullptr || setting.role != LineRole::Setting) continue;
    reading.last[IndexOf(section, *setting.known)] = &setting;
  }
  return reading;
}

const SettingLine* SectionReading::Find(const CmxKey& key) const {
  return last[IndexOf(*section, key)];
}

const SettingLine* SectionReading::Find(std::string_view key) const {
  const CmxKey* known = FindKey(*section, key);
  return known == nullptr ? nullptr : Find(*known);
}

std::string_view SectionReading::ValueOf(std::string_view key) const {
  const SettingLine* setting = Find(key);
  return setting == nullptr ? "" : setting->value;
}

const SettingLine* SectionReading::MostTasks() const {
  const SettingLine* most = nullptr;
  std::int32_t tasks = 0;
  for (const SettingLine& setting : settings) {
    const std::size_t tab = setting.value.find('\t');
    if (setting.role != LineRole::Machine || tab == std::string_view::npos) continue;
    const std::int32_t count = IntegerOf(setting.value.substr(tab + 1));
    if (count <= tasks) continue;
    most = &setting;
    tasks = count;
  }
  return most;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::int32_t IntegerOf(std::string_view value) { return ParseInteger(std::string(value).c_str()); }

Range RangeIn(const CmxFile& file, const CmxLine& line, std::size_t start, std::size_t end) {
  return {file.filename, {line.number, start}, {line.number, end}};
}

Range KeyRange(const CmxFile& file, const SettingLine& setting) {
  return RangeIn(file, *setting.line, setting.keyColumn, setting.keyEnd);
}

Range ValueRange(const CmxFile& file, const SettingLine& setting) {
  return RangeIn(file, *setting.line, setting.valueColumn, setting.valueEnd);
}

Range LineRange(const CmxFile& file, const CmxLine& line) {
  return RangeIn(file, line, line.column, line.column + line.text.size());
}

}  // namespace qvx::runcheck

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "runcheck/cmx_rules.h"
#include "runconfig/cmx_section_reader.h"

namespace qvx::runcheck {
namespace {

class Widths {
 public:
  Widths(const CmxFacts& facts, Diagnostics& found) : facts_(facts), found_(found) {}

  void Check(const SectionReading& reading, const SettingLine& setting) {
    if (TooLong("CMX key", kCmxTextWidth, setting.rawKey.size(), KeyRange(facts_.File(), setting),
                setting) ||
        TooLong("CMX value", kCmxTextWidth, setting.rawValueLength,
                ValueRange(facts_.File(), setting), setting)) {
      return;
    }
    switch (setting.role) {
      case LineRole::Machine:
        if (setting.isStored) CheckMachine(setting);
        break;
      case LineRole::Weighting:
        if (setting.isStored) {
          const std::size_t length = std::min(setting.value.find(' '), setting.value.size());
          TooLong("machine weighting", sizeof MachineEntry::weighting, length,
                  ValueRange(facts_.File(), setting), setting);
        }
        break;
      case LineRole::Setting:
        const CmxKey* key = FindKey(*reading.section, setting.key);
        if (key == nullptr || key->width == 0) break;
        if (TooLong(std::string(key->name), key->width, setting.value.size(),
                    ValueRange(facts_.File(), setting), setting)) {
          break;
        }
        break;
    }
  }

 private:
  void CheckMachine(const SettingLine& setting) {
    const std::size_t tab = std::min(setting.value.find('\t'), setting.value.size());
    if (TooLong("machine host name", sizeof MachineEntry::hostName, tab,
                ValueRange(facts_.File(), setting), setting)) {
      return;
    }
    if (tab == setting.value.size()) return;
    const std::string rest = setting.value.substr(tab + 1);
    TooLong("machine task count", sizeof MachineEntry::taskCount,
            std::min(rest.find('\t'), rest.size()), ValueRange(facts_.File(), setting), setting);
  }

  bool TooLong(const std::string& field, std::size_t width, std::size_t length, Range range,
               const SettingLine& setting) {
    if (length < width) return false;
    const std::string words = field + " is too long: width " + std::to_string(width) + ", length " +
                              std::to_string(length);
    // A line may be handled twice, by two readers or as the file's last.
    if (!told_.emplace(setting.line, words).second) return true;
    found_.push_back(Diagnostic("text-too-long", words).At(std::move(range), setting.line->whole));
    return true;
  }

  const CmxFacts& facts_;
  Diagnostics& found_;
  std::set<std::pair<const CmxLine*, std::string>> told_;
};

}  // namespace

void CheckWidths(const CmxFacts& facts, Diagnostics& found) {
  Widths widths(facts, found);
  for (const SectionReading& reading : facts.Readings()) {
    for (const SettingLine& setting : reading.settings) widths.Check(reading, setting);
  }
}

}  // namespace qvx::runcheck

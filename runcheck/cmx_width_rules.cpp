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

  void Check(const SettingLine& setting) {
    if (TooLong("CMX key", kCmxTextWidth, setting.rawKey.size(), setting, KeyRange) ||
        TooLong("CMX value", kCmxTextWidth, setting.rawValueLength, setting)) {
      return;
    }
    switch (setting.role) {
      case LineRole::Machine:
        if (setting.isStored) CheckMachine(setting);
        break;
      case LineRole::Weighting:
        if (setting.isStored) {
          const std::size_t length = std::min(setting.value.find(' '), setting.value.size());
          TooLong("machine weighting", sizeof MachineEntry::weighting, length, setting);
        }
        break;
      case LineRole::Setting:
        const CmxKey* key = setting.known;
        if (key == nullptr || key->width == 0) break;
        TooLong(key->name, key->width, setting.value.size(), setting);
        break;
    }
  }

 private:
  void CheckMachine(const SettingLine& setting) {
    const std::size_t tab = std::min(setting.value.find('\t'), setting.value.size());
    if (TooLong("machine host name", sizeof MachineEntry::hostName, tab, setting)) return;
    if (tab == setting.value.size()) return;
    const std::string_view rest = setting.value.substr(tab + 1);
    TooLong("machine task count", sizeof MachineEntry::taskCount,
            std::min(rest.find('\t'), rest.size()), setting);
  }

  bool TooLong(std::string_view field, std::size_t width, std::size_t length,
               const SettingLine& setting, decltype(ValueRange)* place = ValueRange) {
    if (length < width) return false;
    const std::string words = std::string(field) + " is too long: width " + std::to_string(width) +
                              ", length " + std::to_string(length);
    // A line may be handled twice, by two readers or as the file's last.
    if (!told_.emplace(setting.line, words).second) return true;
    found_.push_back(
        Diagnostic("text-too-long", words).At(place(facts_.File(), setting), setting.line->whole));
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
    for (const SettingLine& setting : reading.settings) widths.Check(setting);
  }
}

}  // namespace qvx::runcheck

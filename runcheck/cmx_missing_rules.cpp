#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

#include "runcheck/cmx_rules.h"
#include "runcheck/similar_name.h"

namespace qvx::runcheck {
namespace {

constexpr std::string_view kWordCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_";

struct Needed {
  const CmxSection* section;
  std::string_view key;
  bool isGrave;
  const char* consequence;
};

constexpr Needed kNeeded[] = {
    {&kTaskManagerSection, "IDTaskMode", true, "the run would be distributed"},
    {&kRemoteMachinesSection, "ValueNoMachine", true,
     "the run would be distributed over no machine"},
    {&kSolidCoolSection, "Flag3DSolidCoolingChannel", false, "the flow solver would not run first"},
};

/// The number in what stands behind a key: ` = 0`, `": 0,`, `>0</IDTaskMode>`, ` value="0"/>`;
/// empty when other words are there before it.
std::string_view NumberBehind(std::string_view text) {
  if (const auto behind = BehindFirstWord(text, "value")) text = *behind;
  const std::size_t start = std::min(text.find_first_of(kWordCharacters), text.size());
  const std::size_t end = std::min(text.find_first_not_of(kWordCharacters, start), text.size());
  const bool isPart = text.substr(end).starts_with('.') ||
                      (start > 0 && (text[start - 1] == '-' || text[start - 1] == '.'));
  const std::string_view number = text.substr(start, end - start);
  return IsPlainNumber(number) && !isPart ? number : std::string_view();
}

/// Looks for the keys that one section has to hold.
class MissingRules {
 public:
  MissingRules(const CmxFacts& facts, const SectionReading& reading, Diagnostics& found)
      : facts_(facts), reading_(reading), found_(found) {}

  void Check() {
    if (reading_.openings.empty()) return;
    for (const Needed& needed : kNeeded) {
      if (needed.section == &Section()) CheckKey(needed.key, needed.isGrave, needed.consequence);
    }
    if (&Section() == &kTaskManagerSection && facts_.IsSharedMemory()) {
      CheckKey("ValueLocalNoTask", false, "the run would be shared-memory parallel");
    }
  }

 private:
  [[nodiscard]] const CmxSection& Section() const { return *reading_.section; }

  void CheckKey(std::string_view key, bool grave, const std::string& consequence) {
    // A count after the blocks is taken into one of them; their own rules speak of it.
    const bool isThere = std::ranges::any_of(
        reading_.settings, [&](const SettingLine& setting) { return setting.key == key; });
    if (isThere || IsKeyTold(found_, key) || AddUnread(key, grave, consequence)) return;
    const CmxLine& opening = *reading_.openings.back();
    found_.push_back(
        Diagnostic("cmx-key-missing", std::string(Section().name) + " holds no " + std::string(key))
            .Grave(grave)
            .Because(consequence)
            .At(LineRange(facts_.File(), opening), opening.whole));
  }

  /// Tells of a missing number that stands in a line which the readers take for something else.
  bool AddUnread(std::string_view key, bool grave, const std::string& consequence) {
    for (const SettingLine& setting : reading_.settings) {
      const std::string_view text = setting.line->text;
      const std::optional<std::string_view> behind = BehindFirstWord(text, key);
      if (setting.role != LineRole::Setting || setting.known != nullptr || !behind) continue;
      const std::string name(key);
      Diagnostic diagnostic("cmx-key-missing", name + " stands in a line that nothing reads");
      const std::string_view number = NumberBehind(*behind);
      const std::string right = name + " = " + std::string(number);
      if (number.empty()) {
        diagnostic.Help("the line is written " + name + " = NUMBER");
      } else {
        diagnostic.Suggest(right, "the line is written " + right);
      }
      found_.push_back(std::move(diagnostic)
                           .Grave(grave)
                           .Because(consequence)
                           .At(LineRange(facts_.File(), *setting.line), setting.line->whole));
      return true;
    }
    return false;
  }

  const CmxFacts& facts_;
  const SectionReading& reading_;
  Diagnostics& found_;
};

}  // namespace

std::string_view NeededKey(const CmxSection& section) {
  const auto* needed = std::ranges::find(kNeeded, &section, &Needed::section);
  return needed == std::end(kNeeded) ? "" : needed->key;
}

std::optional<std::string_view> BehindFirstWord(std::string_view text, std::string_view key) {
  text.remove_prefix(std::min(text.find_first_of(kWordCharacters), text.size()));
  if (!text.starts_with(key)) return std::nullopt;
  text.remove_prefix(key.size());
  if (text.find_first_of(kWordCharacters) == 0) return std::nullopt;
  return text;
}

void CheckMissingKeys(const CmxFacts& facts, Diagnostics& found) {
  for (const SectionReading& reading : facts.Readings()) {
    if (facts.Matters(*reading.section)) MissingRules(facts, reading, found).Check();
  }
}

}  // namespace qvx::runcheck

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "runcheck/cmx_rules.h"
#include "runcheck/similar_name.h"

namespace qvx::runcheck {
namespace {

constexpr std::size_t kLongestShownKey = 64;

bool IsComment(std::string_view text) {
  text = TrimmedOfInvisible(text);
  return text.empty() || std::string_view(";#/!'*-").find(text.front()) != std::string_view::npos;
}

const CmxKey* FindInAnyCase(const CmxSection& section, std::string_view name) {
  for (const CmxKey& key : section.keys) {
    if (IsSameInAnyCase(key.name, name)) return &key;
  }
  return nullptr;
}

/// The section, other than `own`, that knows `name`; `Version` is everybody's.
const CmxSection* OtherSection(const CmxSection& own, std::string_view name) {
  for (const CmxSection* section : kSections) {
    if (section != &own && name != "Version" && FindKey(*section, name) != nullptr) return section;
  }
  return nullptr;
}

/// Goes through one section and remembers which keys its findings speak of.
class KeyRules {
 public:
  KeyRules(const CmxFacts& facts, const SectionReading& reading, Diagnostics& found)
      : facts_(facts), reading_(reading), found_(found) {}

  void Check() {
    std::string inner;  // the closing tag of a section within this one
    for (const SettingLine& setting : reading_.settings) {
      const std::string_view text = setting.line->text;
      if (!inner.empty()) {
        if (text == inner) inner.clear();
        continue;
      }
      // What comes after the next tag of a section that is never closed belongs elsewhere.
      if (reading_.isOpen && IsOtherTag(text)) break;
      if (IsOtherTag(text)) inner = InnerClosingTag(text);
      if (setting.role != LineRole::Setting || setting.key.empty()) continue;
      if (setting.known != nullptr) continue;
      if (IsTagLike(facts_, *setting.line) || IsComment(setting.line->text)) continue;
      CheckUnknown(setting);
    }
    CheckOutside();
    CheckTwice();
  }

 private:
  [[nodiscard]] const CmxSection& Section() const { return *reading_.section; }

  /// True when the run turns out differently because the section does not set `key`, `value` being
  /// what was meant.
  [[nodiscard]] bool Changes(const SectionReading& reading, const CmxKey& key,
                             std::string_view value) const {
    if (reading.Find(key) != nullptr || !facts_.Matters(*reading.section)) return false;
    switch (key.use) {
      case KeyUse::Mode:
        return Cleaned(value) != "1";
      case KeyUse::Host:
        return !IsStorageNode(reading, Cleaned(value));
      case KeyUse::MachineCount:
      case KeyUse::Folder:
      case KeyUse::MachineBlock:
        return true;
      case KeyUse::Flag:
        return reading.section == &kSolidCoolSection && Cleaned(value) == "1";
      case KeyUse::Tasks:
        return facts_.IsSharedMemory();
      default:
        return false;
    }
  }

  /// One of the two keys that name the storage node does without the other.
  [[nodiscard]] static bool IsStorageNode(const SectionReading& reading, std::string_view host) {
    const std::string_view node = reading.ValueOf("ValueStorageNode");
    return !node.empty() || reading.ValueOf("ValueLocalHost") == host;
  }

  /// Says what follows where the run turns out differently.
  static Diagnostic Weighed(Diagnostic diagnostic, const CmxKey& meant, bool changes) {
    if (changes && meant.use == KeyUse::Mode) {
      diagnostic.Because("the launcher would ignore the line and run distributed");
    } else if (changes && meant.use == KeyUse::Flag) {
      diagnostic.Because("the launcher would ignore the line and not run the flow solver first");
    }
    diagnostic.Grave(changes);
    return diagnostic;
  }

  void Add(Diagnostic diagnostic, const CmxKey& meant, const SettingLine& setting,
           std::string_view value) {
    diagnostic = Weighed(std::move(diagnostic), meant, Changes(reading_, meant, value));
    explained_.insert(meant.name);
    found_.push_back(
        std::move(diagnostic).At(KeyRange(facts_.File(), setting), setting.line->whole));
  }

  void CheckUnknown(const SettingLine& setting) {
    if (CheckSeparator(setting)) return;
    const std::string section(Section().name);
    const std::string written(Trimmed(setting.rawKey));
    const auto written_as = [&](const CmxKey& key) {
      return "a key of this section is written " + std::string(key.name);
    };
    if (const CmxKey* key = FindKey(Section(), WithoutInvisible(setting.key))) {
      Add(Diagnostic("cmx-key-blank", WithArticle(NameOfInvisible(setting.rawKey)) +
                                          " stands beside " + std::string(key->name))
              .Suggest(std::string(key->name), written_as(*key)),
          *key, setting, setting.value);
    } else if (key = FindInAnyCase(Section(), setting.key); key != nullptr) {
      Add(Diagnostic("cmx-key-case", written + " is not written " + std::string(key->name))
              .Suggest(std::string(key->name), written_as(*key)),
          *key, setting, setting.value);
    } else if (const CmxSection* other = OtherSection(Section(), setting.key)) {
      found_.push_back(
          Weighed(
              Diagnostic("cmx-key-section", written + " is a key of " + std::string(other->name) +
                                                ", not of " + section),
              *FindKey(*other, setting.key), IsMissedIn(*other, setting))
              .Suggest(std::string(other->name), "move it into " + std::string(other->name))
              .At(KeyRange(facts_.File(), setting), setting.line->whole));
    } else if (key = FindSimilarKey(Section(), setting.key); key != nullptr) {
      Add(Diagnostic("cmx-unknown-key", written + " is no key of " + section)
              .As(kWarning)
              .Suggest(std::string(key->name), written_as(*key)),
          *key, setting, setting.value);
    } else if (setting.hasEquals && setting.key.size() <= kLongestShownKey &&
               !IsStrayEntry(setting)) {
      const std::string_view needed = MissingNumber();
      if (!needed.empty() && BehindFirstWord(setting.line->text, needed)) return;
      Diagnostic diagnostic("cmx-unknown-key", written + " is no key of " + section);
      if (!needed.empty()) {
        diagnostic.Help("the line may be meant for " + std::string(needed) + ", which is missing");
      }
      found_.push_back(
          std::move(diagnostic).At(KeyRange(facts_.File(), setting), setting.line->whole));
    }
  }

  /// The key that the section has to hold, when nothing yet tells why it does not; else empty.
  [[nodiscard]] std::string_view MissingNumber() const {
    const std::string_view key = NeededKey(Section());
    return reading_.Find(key) == nullptr && !explained_.contains(key) ? key : "";
  }

  /// The run turns out differently because the line does not stand in `other`.
  [[nodiscard]] bool IsMissedIn(const CmxSection& other, const SettingLine& setting) const {
    const SectionReading* reading = facts_.Reading(other);
    return reading != nullptr && Changes(*reading, *FindKey(other, setting.key), setting.value);
  }

  [[nodiscard]] bool IsOtherTag(std::string_view text) const {
    return text.starts_with('<') && text.ends_with('>') && text != OpeningTag(Section());
  }

  /// Empty when this section does not hold it.
  [[nodiscard]] std::string InnerClosingTag(std::string_view opening) const {
    std::string closing = "</" + std::string(opening.substr(1));
    const bool isThere = std::ranges::any_of(reading_.settings, [&](const SettingLine& setting) {
      return setting.line->text == closing;
    });
    return isThere ? closing : std::string();
  }

  /// A line of a block that is over or was never opened: the block's own rules speak of it, or
  /// those of a key that stands in another section.
  [[nodiscard]] bool IsStrayEntry(const SettingLine& setting) const {
    const bool holdsBlocks =
        &Section() == &kRemoteMachinesSection ||
        std::ranges::any_of(reading_.settings, [](const SettingLine& line) {
          return line.key == "ValueMachineSetting" || line.key == "ValueMachineWeighting";
        });
    return holdsBlocks &&
           (IsPlainNumber(setting.key) || setting.value.find('\t') != std::string_view::npos);
  }

  /// "IDTaskMode: 0", "IDTaskMode 0", "IDTaskMode := 0"
  bool CheckSeparator(const SettingLine& setting) {
    const std::string_view text = TrimmedOfInvisible(setting.line->text);
    for (const CmxKey& key : Section().keys) {
      if (!StartsInAnyCase(text, key.name)) continue;
      const std::string_view rest = text.substr(key.name.size());
      const std::size_t valueAt = rest.find_first_not_of(" \t:=->,;");
      const std::string_view separator = rest.substr(0, valueAt);
      if (separator.empty() || valueAt == std::string_view::npos) continue;
      if (Trimmed(separator) == "=" || TrimmedOfInvisible(separator) == "=") continue;
      const std::string_view value = rest.substr(valueAt);
      // Another key that begins like this one.
      if (value.find('=') != std::string_view::npos) continue;
      const std::string right = std::string(key.name) + " = " + std::string(value);
      const std::string_view between = TrimmedOfInvisible(separator);
      Add(Diagnostic("cmx-separator", between.empty() ? "no = stands between " +
                                                            std::string(key.name) + " and its value"
                                                      : std::string(key.name) + " is followed by " +
                                                            std::string(between) + " and not by =")
              .Suggest(right, "the line is written " + right),
          key, setting, value);
      return true;
    }
    return false;
  }

  /// Keys of this section outside every section that is read, when the section does not hold them.
  void CheckOutside() {
    // A section that is needed and not there is told as such.
    const bool mayBeMissing =
        &Section() == &kSolidCoolSection && !IsKeyTold(found_, OpeningTag(Section()));
    if (reading_.openings.empty() && !mayBeMissing) return;
    for (const CmxLine& line : facts_.Lines()) {
      const std::size_t equals = line.text.find('=');
      if (equals > kLongestShownKey) continue;  // none, too
      const std::string_view name = Trimmed(line.text.substr(0, equals));
      const CmxKey* key = FindKey(Section(), name);
      if (key == nullptr || key->use == KeyUse::Shown || reading_.Find(*key) != nullptr) continue;
      if (explained_.contains(name)) continue;
      const bool isInside = std::ranges::any_of(facts_.Readings(), [&](const auto& reading) {
        return facts_.Matters(*reading.section) &&
               std::ranges::any_of(reading.settings, [&](const SettingLine& setting) {
                 return setting.line == &line;
               });
      });
      if (isInside) continue;
      const bool grave = Changes(reading_, *key, line.text.substr(equals + 1));
      if (reading_.openings.empty() && !grave) continue;
      explained_.insert(key->name);
      const std::size_t start = line.column + line.text.find_first_not_of(' ');
      found_.push_back(
          Weighed(Diagnostic("cmx-key-section",
                             std::string(name) + " stands outside " + std::string(Section().name)),
                  *key, grave)
              .Help("move it into " + std::string(Section().name))
              .At(RangeIn(facts_.File(), line, start, start + name.size()), line.whole));
    }
  }

  void CheckTwice() {
    for (const CmxKey& key : Section().keys) {
      const SettingLine* last = reading_.Find(key);
      if (key.use == KeyUse::Shown || last == nullptr) continue;
      if (key.use == KeyUse::MachineBlock || key.use == KeyUse::WeightingBlock) continue;
      for (const SettingLine& setting : reading_.settings) {
        if (setting.role != LineRole::Setting || setting.known != &key) continue;
        if (setting.value == last->value) continue;
        const bool grave = key.use == KeyUse::Mode && setting.value == "0";
        found_.push_back(Diagnostic("cmx-key-twice", std::string(key.name) + " is set to " +
                                                         std::string(setting.value) + " in line " +
                                                         std::to_string(setting.line->number) +
                                                         " and to " + std::string(last->value) +
                                                         " here")
                             .Grave(grave)
                             .At(LineRange(facts_.File(), *last->line), last->line->whole));
        break;
      }
    }
  }

  const CmxFacts& facts_;
  const SectionReading& reading_;
  Diagnostics& found_;
  std::set<std::string_view> explained_;
};

}  // namespace

const CmxKey* FindSimilarKey(const CmxSection& section, std::string_view name) {
  std::vector<std::string_view> names;
  names.reserve(section.keys.size());
  for (const CmxKey& key : section.keys) names.push_back(key.name);
  if (const CmxKey* key = FindKey(section, MostSimilar(name, names))) return key;
  const CmxKey* only = nullptr;
  for (const CmxKey& key : section.keys) {
    if (!IsShortened(name, key.name)) continue;
    if (only != nullptr) return nullptr;
    only = &key;
  }
  return only != nullptr && name.size() * 2 >= only->name.size() ? only : nullptr;
}

bool IsKeyTold(const Diagnostics& found, std::string_view key) {
  return std::ranges::any_of(found, [&](const Diagnostic& diagnostic) {
    return diagnostic.code.starts_with("cmx-") &&
           (diagnostic.summary.starts_with(key) ||
            (diagnostic.suggestion && diagnostic.suggestion->starts_with(key)));
  });
}

void CheckKeys(const CmxFacts& facts, Diagnostics& found) {
  for (const SectionReading& reading : facts.Readings()) {
    if (facts.Matters(*reading.section)) KeyRules(facts, reading, found).Check();
  }
}

}  // namespace qvx::runcheck

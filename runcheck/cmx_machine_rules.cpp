#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "runcheck/call_facts.h"
#include "runcheck/cmx_rules.h"
#include "runcheck/similar_name.h"
#include "support/numbers.h"
#include "support/trailing_backslash.h"

namespace qvx::runcheck {
namespace {

constexpr const char* kHandedToMpi = "the MPI process launcher would be given it as it stands";

/// Six digits, without zeros at the end.
std::string Decimal(double number) {
  char text[32];
  std::snprintf(text, sizeof text, "%g", number);
  return text;
}

/// "NODE1:8676"; an IPv6 address has several colons.
bool HasPort(std::string_view name) { return std::ranges::count(name, ':') == 1; }

/// A host name, as far as DNS and NetBIOS allow one; an address too.
bool IsHostName(std::string_view name) {
  for (std::size_t at = 0; at < name.size(); ++at) {
    const char c = name[at];
    if (IsLeadByte(c)) {
      ++at;
      continue;
    }
    const bool isAscii = static_cast<unsigned char>(c) < 0x80;
    const bool fits = !isAscii || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                      (c >= '0' && c <= '9') ||
                      std::string_view("-_.:").find(c) != std::string_view::npos;
    if (!fits) return false;
  }
  return !name.empty() && !HasPort(name);
}

/// A decimal number, the whole text.
bool IsDecimal(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const char* end = text.data() + text.size();
  const auto [read, error] = std::from_chars(text.data(), end, number);
  return read == end && error == std::errc() && std::isfinite(number);
}

class MachineRules {
 public:
  MachineRules(const CmxFacts& facts, const SectionReading& reading, Diagnostics& found)
      : facts_(facts), reading_(reading), found_(found), count_(CountOf(reading)) {}

  void Check() {
    if (!CheckCount()) return;
    const bool machinesFit = CheckBlock(LineRole::Machine);
    const bool weightingsFit = CheckBlock(LineRole::Weighting);
    if (machinesFit) CheckMachines();
    CheckWeightings(weightingsFit);
  }

 private:
  static std::int32_t CountOf(const SectionReading& reading) {
    return IntegerOf(reading.ValueOf("ValueNoMachine"));
  }

  void Add(Diagnostic diagnostic, const SettingLine& setting) {
    found_.push_back(
        std::move(diagnostic).At(ValueRange(facts_.File(), setting), setting.line->whole));
  }

  [[nodiscard]] const SettingLine* Opener(LineRole role) const {
    return reading_.Find(role == LineRole::Machine ? "ValueMachineSetting"
                                                   : "ValueMachineWeighting");
  }

  /// The line that opens a block which has all its lines already; null for none.
  [[nodiscard]] const SettingLine* SecondOpener(LineRole role) const {
    const CmxKey* key = Opener(role)->known;
    const SettingLine* first = nullptr;
    for (const SettingLine& setting : reading_.settings) {
      const bool opens = setting.role == LineRole::Setting && setting.known == key;
      if (opens && first != nullptr && setting.line != first->line) return &setting;
      if (opens) first = &setting;
    }
    return nullptr;
  }

  [[nodiscard]] std::vector<const SettingLine*> EntriesOf(LineRole role) const {
    std::vector<const SettingLine*> entries;
    for (const SettingLine& setting : reading_.settings) {
      if (setting.role == role) entries.push_back(&setting);
    }
    return entries;
  }

  /// False when there is nothing more to say about the blocks.
  bool CheckCount() {
    const SettingLine* count = reading_.Find("ValueNoMachine");
    if (count == nullptr) {
      CheckTakenCount();
      return false;
    }
    if (count_ < 1) {
      Add(Diagnostic("machine-count",
                     "ValueNoMachine is " +
                         std::string(count->value.empty() ? "empty" : count->value) +
                         ", no number above 0")
              .Because("the run would be distributed over no machine"),
          *count);
      return false;
    }
    // Told as a count that no memory holds.
    constexpr std::int32_t kMostMachines = 500'000;
    if (count_ > kMostMachines) return false;
    for (const LineRole role : {LineRole::Machine, LineRole::Weighting}) {
      const SettingLine* opener = Opener(role);
      if (opener == nullptr || opener->line->number > count->line->number) continue;
      Add(Diagnostic("machine-count-late",
                     "ValueNoMachine stands after " + std::string(opener->key)),
          *count);
      return false;
    }
    if (!IsPlainNumber(count->value)) {
      const std::string right = std::to_string(count_);
      // The text itself goes into the command line, where blanks behind it do no harm.
      const std::size_t last = count->value.find_last_not_of(" \t");
      const bool isHarmless = IsPlainNumber(count->value.substr(0, last + 1));
      Add(Diagnostic(isHarmless ? Code("cmx-number") : Code("machine-count"),
                     "ValueNoMachine is " + std::string(count->value) + ", no plain number")
              .Because(isHarmless ? "the launcher would read it as " + right : kHandedToMpi)
              .Suggest(right, "the value is written " + right),
          *count);
    }
    return true;
  }

  /// A block that opens before the count has no end and takes the count's line.
  void CheckTakenCount() {
    for (const SettingLine& setting : reading_.settings) {
      if (setting.key != "ValueNoMachine") continue;
      Add(Diagnostic("machine-count-late", "ValueNoMachine stands after a block, which takes it"),
          setting);
      return;
    }
  }

  /// A line that a person would write into a block.
  [[nodiscard]] bool LooksLikeEntry(const SettingLine& setting, LineRole role) const {
    const std::string_view text = TrimmedOfInvisible(setting.line->text);
    const bool isRemark = text.starts_with(';') || text.starts_with('#') || text.starts_with("//");
    if (isRemark || setting.known != nullptr || IsTagLike(facts_, *setting.line)) {
      return false;
    }
    if (setting.hasEquals) return true;
    if (role == LineRole::Machine) return text.find('\t') != std::string_view::npos;
    return setting.role == role && IsDecimal(LastField(text));
  }

  /// What stands behind the last tab or blank: the weighting of a line without =.
  static std::string_view LastField(std::string_view text) {
    return text.substr(text.find_last_of(" \t") + 1);
  }

  /// True when the block takes exactly the lines that are meant for it.
  bool CheckBlock(LineRole role) {
    const bool isMachine = role == LineRole::Machine;
    const std::string block = isMachine ? "machine" : "weighting";
    const Code code = isMachine ? Code("machine-count") : Code("weighting-count");
    const SettingLine* count = reading_.Find("ValueNoMachine");
    const SettingLine* opener = Opener(role);
    if (opener == nullptr) {
      const char* meant = isMachine ? "ValueMachineSetting" : "ValueMachineWeighting";
      const bool isTaken = std::ranges::any_of(
          reading_.settings, [&](const SettingLine& line) { return line.key == meant; });
      if (isTaken || IsKeyTold(found_, meant)) return false;
      Add(Diagnostic(code, isMachine ? "there is no line ValueMachineSetting"
                                     : "there is no line ValueMachineWeighting")
              .Because(isMachine ? "the machines would have no names" : "all weights would be 0")
              .Help("the line " + std::string(meant) + " opens the block"),
          *count);
      return false;
    }
    const std::vector<const SettingLine*> entries = EntriesOf(role);
    if (const SettingLine* second = SecondOpener(role)) {
      AddSecondBlock(*second, role, entries);
      return false;
    }
    for (const SettingLine* entry : entries) {
      if (LooksLikeEntry(*entry, role)) continue;
      const std::string text(TrimmedOfInvisible(entry->line->text));
      const bool holdsMachine = isMachine && opener->value.find('\t') != std::string::npos;
      found_.push_back(
          Diagnostic(isMachine ? Code("machine-line") : Code("weighting-count"),
                     (text.empty() ? "an empty line" : text) + " is taken as " + block + " " +
                         std::to_string(entry->entry + 1) + " of " + std::to_string(count_))
              .Grave(TakesAnOpener(*entry))
              .Help(holdsMachine
                        ? "the first machine stands in the line after ValueMachineSetting"
                        : "ValueNoMachine is the number of lines in each of the two blocks, which "
                          "follow one another without a gap")
              .At(LineRange(facts_.File(), *entry->line), entry->line->whole));
      return false;
    }
    if (entries.size() < static_cast<std::size_t>(count_)) {
      Add(Diagnostic(code, "ValueNoMachine is " + std::string(count->value) + " and the " + block +
                               " block has " + Counted(entries.size(), "line")),
          *count);
      return false;
    }
    return CheckRest(role, entries);
  }

  /// A block that is opened again takes every later line and stores none.
  void AddSecondBlock(const SettingLine& opener, LineRole role,
                      const std::vector<const SettingLine*>& entries) {
    bool losesText = false;
    const auto count = static_cast<std::size_t>(count_);
    for (std::size_t i = count; i < entries.size(); ++i) {
      const SettingLine& entry = *entries[i];
      const std::string_view first = entries[i % count]->value;
      const bool differs = entry.value != first && !IsTagLike(facts_, *entry.line);
      losesText = losesText || entry.known != nullptr || (role == LineRole::Machine && differs);
    }
    found_.push_back(
        Diagnostic("cmx-key-twice", std::string(opener.key) + " opens its block again")
            .Grave(losesText)
            .Because("the launcher would keep the first block and drop the lines after this one")
            .At(LineRange(facts_.File(), *opener.line), opener.line->whole));
  }

  /// A block that takes the line which would have opened the other one.
  static bool TakesAnOpener(const SettingLine& entry) { return entry.key == "ValueMachineSetting"; }

  /// Lines after the block that were meant for it. Machines that are dropped leave the others as
  /// they are, weightings have another sum.
  bool CheckRest(LineRole role, const std::vector<const SettingLine*>& entries) {
    const bool isMachine = role == LineRole::Machine;
    std::size_t more = 0;
    const SettingLine* first = nullptr;
    for (const SettingLine* next = entries.back() + 1;
         next != reading_.settings.data() + reading_.settings.size(); ++next) {
      if (next->role != LineRole::Setting || !LooksLikeEntry(*next, role)) break;
      if (next->line == entries.back()->line) break;  // the file's last line, handled twice
      const bool hasTab = next->value.find('\t') != std::string_view::npos;
      // Weightings, when nothing opens their block.
      if (isMachine && !hasTab && Opener(LineRole::Weighting) == nullptr) break;
      if (!IsPlainNumber(next->key) && next->key != entries.back()->key && !hasTab) break;
      if (first == nullptr) first = next;
      ++more;
    }
    if (more == 0) return true;
    const std::string have = std::to_string(entries.size() + more);
    found_.push_back(
        Diagnostic(isMachine ? Code("machine-count") : Code("weighting-count"),
                   "ValueNoMachine is " + std::to_string(count_) + " and the " +
                       (isMachine ? "machine" : "weighting") + " block has " + have + " lines")
            .Because("the launcher would drop " + Counted(more, "line") + " of it")
            .Suggest(have, "ValueNoMachine is the number of lines in each of the two blocks")
            .At(LineRange(facts_.File(), *first->line), first->line->whole));
    return isMachine;
  }

  void CheckMachines() {
    std::map<std::string, std::size_t> seen;
    for (const SettingLine* entry : EntriesOf(LineRole::Machine)) {
      const std::size_t tab = entry->value.find('\t');
      if (tab == std::string_view::npos) {
        AddSeparator(*entry);
        continue;
      }
      const std::string host(entry->value.substr(0, tab));
      std::string tasks(entry->value.substr(tab + 1));
      tasks = tasks.substr(0, tasks.find('\t'));
      CheckHost(*entry, host, tasks);
      if (host.empty()) continue;
      CheckTaskCount(*entry, host, tasks);
      const auto [earlier, isNew] = seen.emplace(AsciiLower(host), entry->line->number);
      if (!isNew) {
        Add(Diagnostic("machine-twice",
                       host + " is also in line " + std::to_string(earlier->second)),
            *entry);
      }
    }
  }

  void AddSeparator(const SettingLine& entry) {
    Diagnostic diagnostic("machine-separator", entry.hasEquals
                                                   ? "no tab stands between host and tasks in " +
                                                         std::string(entry.value)
                                                   : "no = stands before the machine");
    const std::size_t host = entry.value.find_first_of(" ,;:|");
    if (entry.hasEquals && host != std::string_view::npos) {
      diagnostic.Help("one tab, no blank and no other character, stands between host and tasks");
    }
    found_.push_back(
        std::move(diagnostic).At(LineRange(facts_.File(), *entry.line), entry.line->whole));
  }

  /// `next`: what stands behind the tab.
  void CheckHost(const SettingLine& entry, const std::string& host, const std::string& next) {
    if (IsHostName(host)) return;
    const std::string clean(TrimmedOfInvisible(host));
    const std::string bare = Bare(host);
    Diagnostic diagnostic("machine-host", host + " is no host name");
    if (host.empty() && IsHostName(next) && !IsPlainNumber(next)) {
      diagnostic.summary = "a tab stands before the host name " + next;
      diagnostic.Grave().Suggest(next, "the host name stands first");
    } else if (host.empty()) {
      diagnostic.summary = "the host name is empty";
      diagnostic.Grave();
    } else if (IsHostName(clean)) {
      diagnostic.summary =
          WithArticle(NameOfInvisible(host)) + " stands beside the host name " + clean;
    } else if (IsHostName(bare) && host == '"' + bare + '"') {
      // The MPI process launcher takes them off as every program does.
      diagnostic.summary = "quotation marks stand around the host name " + bare;
      diagnostic.Because("the launcher would hand them on as they stand");
    } else {
      diagnostic.Grave();
    }
    if (IsHostName(bare)) diagnostic.Suggest(bare, "the name is written " + bare);
    Add(std::move(diagnostic), entry);
  }

  /// Without what stands around a host name by mistake.
  static std::string Bare(const std::string& host) {
    std::string_view name = TrimmedOfInvisible(host);
    constexpr const char* kAround = "\"'\\/";
    name.remove_prefix(std::min(name.find_first_not_of(kAround), name.size()));
    while (!name.empty() &&
           FindCharacter(name, kAround, name.size() - 1) != std::string_view::npos) {
      name.remove_suffix(1);
    }
    return std::string(HasPort(name) ? name.substr(0, name.find(':')) : name);
  }

  void CheckTaskCount(const SettingLine& entry, const std::string& host, const std::string& tasks) {
    const std::string clean(TrimmedOfInvisible(tasks));
    if (IsPlainNumber(clean) && ParseInteger(clean.c_str()) > 0) return;
    Diagnostic diagnostic("machine-tasks",
                          "the tasks of " + host + " are " + clean + ", no number above 0");
    if (clean.empty()) {
      diagnostic.summary = host + " has no task count";
    } else if (IsPlainNumber(host) && IsHostName(clean)) {
      diagnostic.summary = "the tasks stand before the host in " + host + " " + clean;
    } else if (ParseInteger(clean.c_str()) > 0) {
      const std::string right = std::to_string(ParseInteger(clean.c_str()));
      diagnostic.summary = "the tasks of " + host + " are " + clean + ", no plain number";
      diagnostic.Because(kHandedToMpi).Suggest(right, "the tasks are written " + right);
    } else if (clean.front() >= '0' && clean.front() <= '9') {  // "0", "0.5"
      diagnostic.summary = host + " has " + clean + " tasks";
    }
    Add(std::move(diagnostic), entry);
  }

  void CheckWeightings(bool areAll) {
    const std::vector<const SettingLine*> entries = EntriesOf(LineRole::Weighting);
    double sum = 0;
    bool areNumbers = true;
    for (const SettingLine* entry : entries) {
      if (!LooksLikeEntry(*entry, LineRole::Weighting)) return;
      if (!entry->hasEquals) {
        AddWeightingWithoutEquals(*entry);
        areNumbers = false;
        continue;
      }
      std::string value(entry->value.substr(0, entry->value.find(' ')));
      // Tabs around a number do no harm.
      value.erase(0, std::min(value.find_first_not_of('\t'), value.size()));
      value.erase(value.find_last_not_of('\t') + 1);
      areNumbers = CheckWeighting(*entry, value) && areNumbers;
      sum += ParseDecimal(value.c_str());
    }
    if (!areNumbers || !areAll) return;
    // Each weighting may be rounded to two decimals.
    const double rounding = 0.005 * static_cast<double>(entries.size()) + 1e-9;
    if (entries.empty() || entries.size() != static_cast<std::size_t>(count_)) return;
    if (std::abs(sum - 1) <= rounding) return;
    Add(Diagnostic("weighting-sum", "the weightings add up to " + Decimal(sum)), *entries.back());
  }

  void AddWeightingWithoutEquals(const SettingLine& entry) {
    const std::string right = std::to_string(entry.entry + 1) + " = " +
                              std::string(LastField(TrimmedOfInvisible(entry.line->text)));
    found_.push_back(Diagnostic("weighting-value", "no = stands before the weighting")
                         .Because("the launcher would read it as 0")
                         .Suggest(right, "the line is written " + right)
                         .At(LineRange(facts_.File(), *entry.line), entry.line->whole));
  }

  /// False for one that is no number above 0.
  bool CheckWeighting(const SettingLine& entry, const std::string& value) {
    const double weighting = ParseDecimal(value.c_str());
    const bool isDecimal = IsDecimal(value);
    if (isDecimal && weighting > 0) return true;
    Diagnostic diagnostic("weighting-value",
                          (value.empty() ? "the weighting is empty" : value + " is no weighting"));
    diagnostic.Because("the launcher would read it as " + Decimal(weighting));
    if (isDecimal && weighting == 0) {
      diagnostic.summary = "the weighting is " + value;
      diagnostic.Because("the solver would get the weight 0 for each process of this machine");
    }
    const std::string clean = Cleaned(value);
    if (!isDecimal && IsDecimal(clean) && ParseDecimal(clean.c_str()) > 0) {
      diagnostic.Suggest(clean, "the weighting is written " + clean);
    }
    std::string point = value;
    std::ranges::replace(point, ',', '.');
    if (point != value && ParseDecimal(point.c_str()) > 0) {
      diagnostic.Suggest(point, "the decimal point is written " + point);
    }
    Add(std::move(diagnostic), entry);
    return false;
  }

  const CmxFacts& facts_;
  const SectionReading& reading_;
  Diagnostics& found_;
  std::int32_t count_;
};

}  // namespace

void CheckMachineBlocks(const CmxFacts& facts, Diagnostics& found) {
  const SectionReading* reading = facts.Reading(kRemoteMachinesSection);
  if (reading == nullptr || reading->openings.empty() || !facts.IsMeantDistributed()) return;
  MachineRules(facts, *reading, found).Check();
}

}  // namespace qvx::runcheck

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "runcheck/cmx_rules.h"
#include "runcheck/similar_name.h"
#include "support/numbers.h"

namespace qvx::runcheck {
namespace {

bool IsSpaceOrTab(char c) { return c == ' ' || c == '\t'; }

/// Checks the value that counts for one key.
class ValueRules {
 public:
  ValueRules(const CmxFacts& facts, const CmxKey& key, const SettingLine& setting,
             Diagnostics& found)
      : facts_(facts), key_(key), setting_(setting), value_(setting.value), found_(found) {
    // The reader of this section takes every space out.
    if (IsCoolingFlag()) value_.erase(value_.find_last_not_of(' ') + 1);
  }

  void Check() {
    if (!setting_.hasEquals) {
      Add(Diagnostic("cmx-no-equals", Name() + " stands without ="), setting_.keyColumn,
          setting_.keyEnd);
      return;
    }
    // A text or count too long for the launcher is told with what ends it.
    if (key_.width > 0 && setting_.value.size() >= key_.width) return;
    if (CheckAround()) return;
    switch (key_.use) {
      case KeyUse::Mode:
        CheckMode();
        break;
      case KeyUse::LocalTasks:
        if (!IsPositiveNumber()) AddNumber(", no plain number above 0");
        break;
      case KeyUse::Tasks:
        CheckTasks();
        break;
      case KeyUse::Flag:
        if (value_ != "0" && value_ != "1") AddNumber(", neither 0 nor 1");
        break;
      case KeyUse::Integer:
        if (!IsPlainNumber(value_)) AddNumber(", no number");
        break;
      default:
        break;
    }
  }

 private:
  [[nodiscard]] std::string Name() const { return std::string(key_.name); }
  [[nodiscard]] std::string Shown() const { return value_.empty() ? "empty" : value_; }

  [[nodiscard]] bool IsCoolingFlag() const { return key_.name == "Flag3DSolidCoolingChannel"; }

  [[nodiscard]] bool MeansYes() const {
    constexpr std::string_view kWords[] = {"true", "yes", "on"};
    return std::ranges::find(kWords, AsciiLower(value_)) != std::end(kWords);
  }

  [[nodiscard]] bool IsPositiveNumber() const {
    return IsPlainNumber(value_) && !value_.starts_with('0');
  }

  /// True when the run turns out differently than `value_` was meant.
  [[nodiscard]] bool Changes() const {
    switch (key_.use) {
      case KeyUse::Mode:
        return value_ != "0" && MeansLocal(value_);
      case KeyUse::Host:
      case KeyUse::Folder:
        return true;
      case KeyUse::Tasks:
        return Cleaned(value_) != TrimmedOfInvisible(value_);
      case KeyUse::Flag:
        return IsCoolingFlag() && ParseInteger(value_.c_str()) != 1 &&
               (Cleaned(value_) == "1" || MeansYes());
      default:
        return false;
    }
  }

  void Add(Diagnostic diagnostic, std::size_t start, std::size_t end) {
    diagnostic.Grave(Changes());
    if (key_.use == KeyUse::Mode && Changes()) {
      diagnostic.Because("the value is not 0 and the run would be distributed");
    } else if (key_.use == KeyUse::Tasks && Changes()) {
      diagnostic.Because("the MPI process launcher would be given it as it stands");
    }
    found_.push_back(
        std::move(diagnostic)
            .At(RangeIn(facts_.File(), *setting_.line, start, end), setting_.line->whole));
  }

  void Add(Diagnostic diagnostic) {
    Add(std::move(diagnostic), setting_.valueColumn, setting_.valueEnd);
  }

  void AddNumber(const std::string& what) {
    Diagnostic diagnostic("cmx-number", Name() + " is " + Shown() + what);
    const std::int32_t number = ParseInteger(value_.c_str());
    const std::string right = std::to_string(number);
    diagnostic.Because(IsCoolingFlag() && number != 1 ? "the flow solver would not run first"
                                                      : "the launcher would read it as " + right);
    if (key_.use == KeyUse::Flag) diagnostic.Help("the value is 0 or 1");
    if (number > 0 && right != value_) {
      diagnostic.Suggest(right, "the value is written " + right);
    } else if (key_.use == KeyUse::Flag && MeansYes()) {
      diagnostic.Suggest("1", "the value is written 1");
    }
    if (key_.use == KeyUse::LocalTasks) {
      diagnostic.Because("the launcher would not read 1 and run shared-memory parallel");
    }
    Add(std::move(diagnostic));
  }

  void CheckTasks() {
    const std::int32_t number = ParseInteger(value_.c_str());
    if (number < 1) {
      Add(Diagnostic("task-count", Name() + " is " + Shown() + ", no number above 0"));
    } else if (value_.find_first_not_of("0123456789") != std::string::npos) {
      Add(Diagnostic("task-count", Name() + " is " + Shown() + ", no plain number")
              .Because("the MPI process launcher would be given it as it stands"));
    }
  }

  [[nodiscard]] Diagnostic Wrong(Code code, const std::string& summary) const {
    const std::string right = Cleaned(value_);
    Diagnostic diagnostic(code, summary);
    if (!right.empty()) diagnostic.Suggest(right, "the value is written " + right);
    return diagnostic;
  }

  /// What stands around the value proper.
  bool CheckAround() {
    if (value_.empty()) return false;
    // Carriage returns have a code of their own.
    std::string_view value = value_;
    value = value.substr(0, value.find_last_not_of('\r') + 1);
    const std::size_t start = setting_.valueColumn;
    if (value.empty()) return false;
    const std::string_view visible = TrimmedOfInvisible(value);
    if (visible.data() != value.data()) {
      const auto before = value.substr(0, static_cast<std::size_t>(visible.data() - value.data()));
      Add(Wrong("cmx-leading-tab",
                WithArticle(NameOfInvisible(before)) + " stands before " + Cleaned(value)),
          start, start + before.size());
    } else if (value.front() == '=' || value.front() == ':') {
      Add(Wrong("cmx-separator", "two separators stand between " + Name() + " and its value"),
          start, start + 1);
    } else if (value.front() == '"' || value.front() == '\'') {
      Add(Wrong("cmx-quoted-value", "the value of " + Name() + " stands in quotation marks"));
    } else if (const std::size_t comment = CommentStart(value); comment != std::string_view::npos) {
      Add(Wrong("cmx-comment", "a comment stands behind the value of " + Name()), start + comment,
          start + value.size());
    } else if (visible.size() < value.size()) {
      const std::size_t length = visible.size();
      const std::size_t blanks = CountOfInvisible(value.substr(length));
      Add(Wrong("cmx-trailing-blank", Counted(blanks, NameOfInvisible(value.substr(length))) +
                                          (blanks == 1 ? " stands" : " stand") +
                                          " behind the value of " + Name()),
          start + length, start + value.size());
    } else {
      return false;
    }
    return true;
  }

  /// Where a comment begins; npos when there is none. In names and paths only behind a blank.
  [[nodiscard]] std::size_t CommentStart(std::string_view value) const {
    const bool isText =
        key_.use == KeyUse::Host || key_.use == KeyUse::Folder || key_.use == KeyUse::Text;
    for (std::size_t i = 1; i < value.size(); ++i) {
      const std::string_view rest = value.substr(i);
      const bool opens =
          rest.starts_with(';') || rest.starts_with('#') || rest.starts_with("//") ||
          rest.starts_with("--") || rest.starts_with("<!--") ||
          (!isText && (rest.starts_with('!') || rest.starts_with('(') || rest.starts_with("/*")));
      if (opens && (!isText || IsSpaceOrTab(value[i - 1]))) return i;
    }
    return std::string_view::npos;
  }

  void CheckMode() {
    if (value_ == "0" || value_ == "1") return;
    constexpr std::string_view kDistributedWords[] = {"dmp", "distributed", "remote"};
    const bool isWord = MeansYes() || std::ranges::find(kDistributedWords, AsciiLower(value_)) !=
                                          std::end(kDistributedWords);
    const bool isNumber = ParseInteger(value_.c_str()) != 0;
    Diagnostic diagnostic("cmx-mode", Name() + " is " + Shown() + ", neither 0 nor 1");
    if (MeansLocal(value_)) diagnostic.Suggest("0", "a run on this machine is written 0");
    if (isWord || isNumber) {
      diagnostic.Because("the run would be distributed, as with 1");
    } else {
      diagnostic.Grave();
    }
    Add(std::move(diagnostic));
  }

  const CmxFacts& facts_;
  const CmxKey& key_;
  const SettingLine& setting_;
  std::string value_;
  Diagnostics& found_;
};

/// True when the launcher looks at the value in this run.
bool IsUsed(const CmxFacts& facts, const SectionReading& reading, const CmxKey& key) {
  switch (key.use) {
    case KeyUse::Shown:
    case KeyUse::MachineBlock:
    case KeyUse::WeightingBlock:
    case KeyUse::MachineCount:  // with the blocks
      return false;
    case KeyUse::Tasks:
      return !facts.IsMeantDistributed() && reading.ValueOf("ValueLocalNoTask") != "1";
    case KeyUse::LocalTasks:
      return !facts.IsMeantDistributed();
    case KeyUse::Host:
      return key.name != "ValueLocalHost" || reading.ValueOf("ValueStorageNode").empty();
    default:
      return true;
  }
}

void CheckTasks(const CmxFacts& facts, Diagnostics& found) {
  const SectionReading* tasks = facts.Reading(kTaskManagerSection);
  if (tasks == nullptr || tasks->openings.empty() || facts.IsDistributed()) return;
  const SettingLine* count = tasks->Find("ValueNoTask");
  const std::string_view localTasks = tasks->ValueOf("ValueLocalNoTask");
  if (count == nullptr) {
    if (!facts.IsSharedMemory() || IsKeyTold(found, "ValueNoTask")) return;
    const CmxLine& opening = *tasks->openings.back();
    found.push_back(Diagnostic("task-count", "TASKMANAGER holds no ValueNoTask")
                        .At(LineRange(facts.File(), opening), opening.whole));
  } else if (facts.IsSharedMemory()) {
    if (count->value != "1" || !IsPlainNumber(localTasks) || IntegerOf(localTasks) < 2) return;
    found.push_back(Diagnostic("tasks-differ", "ValueNoTask is 1 and ValueLocalNoTask is " +
                                                   std::string(localTasks))
                        .Because("the launcher would start one process because ValueNoTask is 1")
                        .Help("ValueNoTask holds the number of tasks too")
                        .At(ValueRange(facts.File(), *count), count->line->whole));
  } else if (IntegerOf(count->value) > 1) {
    found.push_back(Diagnostic("tasks-differ", "ValueNoTask is " + std::string(count->value) +
                                                   " and ValueLocalNoTask is 1")
                        .At(ValueRange(facts.File(), *count), count->line->whole));
  }
}

}  // namespace

void CheckValues(const CmxFacts& facts, Diagnostics& found) {
  for (const SectionReading& reading : facts.Readings()) {
    if (!facts.Matters(*reading.section)) continue;
    for (const CmxKey& key : reading.section->keys) {
      const SettingLine* setting = reading.Find(key);
      if (setting == nullptr || !IsUsed(facts, reading, key)) continue;
      ValueRules(facts, key, *setting, found).Check();
    }
  }
  CheckTasks(facts, found);
}

}  // namespace qvx::runcheck
